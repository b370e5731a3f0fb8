#include "editor/frmSSEdit.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSessionManager>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "editor/InfoPanel.h"
#include "editor/MainMenuBuilder.h"
#include "editor/PlanetCommands.h"
#include "editor/StarStrip.h"
#include "editor/StarView.h"
#include "editor/SystemCanvas.h"
#include "editor/SystemLifecycle.h"
#include "editor/frmAbout.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "platform/Settings.h"
#include "store/SystemOperations.h"
#include "text/Text.h"

namespace orr::ui {

frmSSEdit::frmSSEdit(GameFolder folder, QWidget* parent)
    : QMainWindow(parent),
      store_(std::move(folder)),
      lifecycle_(std::make_unique<SystemLifecycle>(*this)),
      planetCommands_(std::make_unique<PlanetCommands>(*this)) {
    setObjectName(QStringLiteral("frmSSEdit"));
    setWindowTitle(kCaption);
    buildControls();
    MainMenuBuilder::build(*this);
    connectCommands();
    picSolarSystem->setRecord(&store_.record());
    applyEnablingRules();
}

// Whatever is open stays in its working copy: ending without the exit questions keeps it as the
// backup the next opening offers.
frmSSEdit::~frmSSEdit() = default;

void frmSSEdit::buildControls() {
    auto* central = new QWidget(this);
    central->setObjectName(QStringLiteral("central"));
    setCentralWidget(central);

    lblSS = new QLabel(QStringLiteral("Solar System:"), central);
    lblSS->setObjectName(QStringLiteral("lblSS"));
    cboSystems = new QComboBox(central);
    cboSystems->setObjectName(QStringLiteral("cboSystems"));
    cboSystems->setMinimumContentsLength(20);
    lblSS->setBuddy(cboSystems);
    cmdAdd = new QPushButton(QStringLiteral("&Add"), central);
    cmdAdd->setObjectName(QStringLiteral("cmdAdd"));
    cmdDelete = new QPushButton(QStringLiteral("&Delete"), central);
    cmdDelete->setObjectName(QStringLiteral("cmdDelete"));
    cmdSave = new QPushButton(QStringLiteral("&Save"), central);
    cmdSave->setObjectName(QStringLiteral("cmdSave"));

    lblName = new QLabel(central);
    lblName->setObjectName(QStringLiteral("lblName"));
    lblName->setAlignment(Qt::AlignCenter);
    lblName->setToolTip(QStringLiteral("Click to change the name the game shows"));
    QFont nameFont = lblName->font();
    nameFont.setPointSizeF(nameFont.pointSizeF() * 1.4);
    nameFont.setBold(true);
    lblName->setFont(nameFont);
    lblName->installEventFilter(this);
    txtName = new QLineEdit(central);
    txtName->setObjectName(QStringLiteral("txtName"));
    txtName->setMaxLength(static_cast<int>(kDisplayNameWidth));
    txtName->setAlignment(Qt::AlignCenter);
    txtName->setFont(nameFont);
    txtName->installEventFilter(this);
    nameStack_ = new QStackedWidget(central);
    nameStack_->addWidget(lblName);
    nameStack_->addWidget(txtName);
    nameStack_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    // The raised frame round the canvas.
    auto* canvasFrame = new QFrame(central);
    canvasFrame->setObjectName(QStringLiteral("fraCanvas"));
    canvasFrame->setFrameShape(QFrame::Panel);
    canvasFrame->setFrameShadow(QFrame::Raised);
    canvasFrame->setLineWidth(2);
    picSolarSystem = new SystemCanvas(canvasFrame);
    picStar = picSolarSystem->star();
    auto* frameLayout = new QVBoxLayout(canvasFrame);
    frameLayout->setContentsMargins(2, 2, 2, 2);
    frameLayout->addWidget(picSolarSystem);
    clpStars = new StarStrip(this);

    picInfo = new InfoPanel(central);
    picInfo->setFixedWidth(picInfo->fontMetrics().horizontalAdvance(QLatin1Char('M')) * 13);
    QSizePolicy keepPlace = picInfo->sizePolicy();
    keepPlace.setRetainSizeWhenHidden(true);
    picInfo->setSizePolicy(keepPlace);
    picInfo->hide();

    auto* top = new QHBoxLayout;
    top->addWidget(lblSS);
    top->addWidget(cboSystems, 1);
    top->addWidget(cmdAdd);
    top->addWidget(cmdDelete);
    top->addWidget(cmdSave);
    auto* side = new QVBoxLayout;
    side->addWidget(picInfo);
    side->addStretch(1);
    auto* body = new QHBoxLayout;
    body->addWidget(canvasFrame, 1);
    body->addLayout(side);
    auto* layout = new QVBoxLayout(central);
    layout->addLayout(top);
    layout->addWidget(nameStack_);
    layout->addLayout(body, 1);
}

void frmSSEdit::connectCommands() {
    SystemLifecycle* life = lifecycle_.get();
    PlanetCommands* planets = planetCommands_.get();
    connect(cboSystems, &QComboBox::activated, this, [life](int i) { life->systemChosen(i); });
    connect(cmdAdd, &QPushButton::clicked, this, [life] { life->newSystem(); });
    connect(cmdDelete, &QPushButton::clicked, this, [life] { life->deleteSystem(); });
    connect(cmdSave, &QPushButton::clicked, this, [life] { life->save(); });
    connect(mnuFNew, &QAction::triggered, this, [life] { life->newSystem(); });
    connect(mnuFSave, &QAction::triggered, this, [life] { life->save(); });
    connect(mnuFSaveAs, &QAction::triggered, this, [life] { life->saveAs(); });
    connect(mnuFClear, &QAction::triggered, this, [life] { life->clearPlanets(); });
    connect(mnuFDelete, &QAction::triggered, this, [life] { life->deleteSystem(); });
    connect(mnuFExit, &QAction::triggered, this, [this, life] {
        if (!life->confirmExit()) return;
        exitConfirmed_ = true;
        close();
    });
    connect(mnuHAbout, &QAction::triggered, this, [this] {
        frmAbout about(this);
        runDialog(about);
    });

    connect(mnuPAdd, &QAction::triggered, this, [planets] { planets->addPlanet(); });
    connect(mnuPOrder, &QAction::triggered, this, [planets] { planets->setOrder(); });
    connect(mnuPDetail, &QAction::triggered, this, [planets] { planets->toggleAsteroids(); });

    using Chosen = PlanetCommands::Chosen;
    connect(mnuProperties, &QAction::triggered, this,
            [planets] { planets->choose(Chosen::Properties); });
    connect(mnuPicture, &QAction::triggered, this,
            [planets] { planets->choose(Chosen::Pictures); });
    connect(mnuMessages, &QAction::triggered, this,
            [planets] { planets->choose(Chosen::Messages); });
    connect(mnuDescription, &QAction::triggered, this, [planets] { planets->renameHighlighted(); });
    connect(mnuInsert, &QAction::triggered, this, [planets] { planets->insertPlanet(); });
    connect(mnuDelete, &QAction::triggered, this, [planets] { planets->deleteHighlighted(); });
    for (QAction* entry : mnuPClass)
        connect(entry, &QAction::triggered, this,
                [planets, entry] { planets->setHighlightedClass(entry->data().toInt()); });
    connect(mnuStarDesc, &QAction::triggered, this, [planets] { planets->describeStar(); });
    for (QAction* entry : mnuStarType)
        connect(entry, &QAction::triggered, this,
                [planets, entry] { planets->setStarType(entry->data().toInt()); });

    connect(picSolarSystem, &SystemCanvas::redrawn, this, &frmSSEdit::updateInfo);
    connect(picSolarSystem, &SystemCanvas::dragStarted, this,
            [planets] { planets->orbitDragStarted(); });
    connect(picSolarSystem, &SystemCanvas::planetMenuRequested, this,
            [planets](int planet, const QPoint& at) { planets->runPlanetMenu(planet, at); });
    connect(picStar, &StarView::rightClicked, this,
            [planets](const QPoint& at) { planets->runStarMenu(at); });
    connect(picStar, &StarView::hovered, picSolarSystem, &SystemCanvas::clearHighlight);
    connect(txtName, &QLineEdit::returnPressed, this, [this] { finishNameEdit(true); });

    connect(qApp, &QGuiApplication::commitDataRequest, this,
            [this](QSessionManager&) { endWithoutQuestions(); });
    qApp->installEventFilter(this);
}

bool frmSSEdit::startUp() {
    if (!store_.folder().hasGameExecutable()) {
        prompts().inform(this, QStringLiteral("This software must be installed in the same "
                                              "folder as Voidrunner for Windows 9x."));
        return false;
    }
    store_.InitTables();
    lifecycle_->fillSystemList();
    const bool asteroids = Settings::displayAsteroids();
    mnuPDetail->setChecked(asteroids);
    picSolarSystem->setDisplayAsteroids(asteroids);
    lifecycle_->applyNoSelection();
    return true;
}

void frmSSEdit::showAboutIfWanted() {
    if (!Settings::showAbout()) return;
    frmAbout about(this);
    runDialog(about);
}

bool frmSSEdit::openSystemNamed(const std::string& name) {
    const int index = lifecycle_->findEntry(name);
    if (index < 0) {
        prompts().inform(this, QStringLiteral("There is no system named '") + toQString(name) +
                                   QStringLiteral("' in this game folder."));
        return false;
    }
    cboSystems->setCurrentIndex(index);
    lifecycle_->systemChosen(index);
    return lifecycle_->tag() == index;
}

void frmSSEdit::DrawSystem(bool force) {
    picSolarSystem->drawSystem(force);
}

QString frmSSEdit::FitName(const QLabel* label, const QString& text) {
    return InfoPanel::FitName(label, text);
}

void frmSSEdit::updateInfo() {
    const SystemRecord& record = store_.record();
    const int planet = picSolarSystem->highlightedPlanet();
    if (planet < 1 || planet > record.PlanetCount || picSolarSystem->draggedPlanet() != 0) {
        picInfo->hide();
    } else {
        picInfo->showPlanet(toQString(planetLabel(store_, planet)),
                            record.planet(planet).Attributes);
        picInfo->show();
    }
    lblName->setText(toQString(record.trimmedDisplayName()));
    picStar->setToolTip(hasOpenSystem() ? toQString(planetName(store_, 0)) : QString());
}

bool frmSSEdit::hasOpenSystem() const {
    return lifecycle_->tag() >= 0 && cboSystems->currentIndex() >= 0;
}

void frmSSEdit::applyEnablingRules() {
    const bool open = hasOpenSystem();
    const int count = open ? store_.record().PlanetCount : 0;
    for (QWidget* button : {static_cast<QWidget*>(cmdSave), static_cast<QWidget*>(cmdDelete)})
        button->setEnabled(open);
    for (QAction* item : {mnuFSave, mnuFSaveAs, mnuFClear, mnuFDelete}) item->setEnabled(open);
    // Game launch and packaging are not offered yet.
    mnuFTest->setEnabled(false);
    mnuFPackage->setEnabled(false);
    mnuPlanet->setEnabled(open);
    mnuPAdd->setEnabled(open);
    mnuPOrder->setEnabled(open && count >= 2);
    // The pictures window is not part of the editor yet.
    mnuPPics->setEnabled(false);
    mnuPicture->setEnabled(false);
    mnuStarPic->setEnabled(false);
    mnuMessages->setEnabled(static_cast<bool>(messageEditorOpener_));
}

bool frmSSEdit::starHasOwnPicture() const {
    return picStar->showsOwnPicture();
}

void frmSSEdit::showStarPicture() {
    const SystemRecord& record = store_.record();
    const std::string starName = record.Name + "Sun";
    for (const fs::path& file : systemPictureFiles(store_.folder(), record.Name)) {
        const std::string fileName = file.filename().string();
        const auto dot = fileName.rfind('.');
        if (dot == std::string::npos || !text::equalsIgnoreCase(fileName.substr(0, dot), starName))
            continue;
        const QImage picture(QFile::decodeName(QByteArray::fromStdString(file.string())));
        if (picture.isNull()) continue;
        picStar->setPicture(picture, true);
        mnuStarPic->setChecked(true);
        return;
    }
    picStar->setPicture(clpStars->cell(record.StarType), false);
    mnuStarPic->setChecked(false);
}

bool frmSSEdit::report(bool ok) {
    if (!ok) {
        const std::string& error = store_.lastError();
        prompts().inform(this, error.empty() ? QStringLiteral("The system could not be written.")
                                             : toQString(error));
    }
    return ok;
}

void frmSSEdit::setPopupRunner(PopupRunner runner) {
    popupRunner_ = std::move(runner);
}

void frmSSEdit::runPopup(QMenu* menu, const QPoint& globalPos) {
    if (popupRunner_)
        popupRunner_(menu, globalPos);
    else
        menu->exec(globalPos);
}

void frmSSEdit::setDialogRunner(DialogRunner runner) {
    dialogRunner_ = std::move(runner);
}

void frmSSEdit::runDialog(QDialog& dialog) {
    if (dialogRunner_)
        dialogRunner_(dialog);
    else
        dialog.exec();
}

void frmSSEdit::setMessageEditorOpener(MessageEditorOpener opener) {
    messageEditorOpener_ = std::move(opener);
    applyEnablingRules();
}

void frmSSEdit::endWithoutQuestions() {
    endingQuietly_ = true;
}

void frmSSEdit::closeEvent(QCloseEvent* event) {
    // Exit has asked already; an ending of the session or the application asks nothing.
    if (endingQuietly_ || exitConfirmed_ || lifecycle_->confirmExit()) {
        event->accept();
        return;
    }
    event->ignore();
}

bool frmSSEdit::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp) {
        // The application is told to quit (not the user closing this window): its windows
        // are closed next, and this one must go without questions.
        if (event->type() == QEvent::Quit) endWithoutQuestions();
        return false;
    }
    if (watched == lblName && event->type() == QEvent::MouseButtonPress) {
        beginNameEdit();
        return true;
    }
    if (watched == txtName) {
        if (event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
            finishNameEdit(false);
            return true;
        }
        if (event->type() == QEvent::FocusOut && !refusingName_) finishNameEdit(false);
    }
    return QMainWindow::eventFilter(watched, event);
}

void frmSSEdit::beginNameEdit() {
    if (!hasOpenSystem()) return;
    txtName->setText(toQString(store_.record().trimmedDisplayName()));
    nameStack_->setCurrentWidget(txtName);
    txtName->selectAll();
    txtName->setFocus();
}

void frmSSEdit::finishNameEdit(bool keep) {
    if (nameStack_->currentWidget() != txtName) return;
    const QString typed = txtName->text();
    if (keep) {
        if (const QString unstorable = unstorableCharacters(typed); !unstorable.isEmpty()) {
            // The box stays open for a correction; the message must not close it by taking the
            // focus away.
            refusingName_ = true;
            prompts().inform(this, unstorableMessage(unstorable));
            refusingName_ = false;
            txtName->setFocus();
            return;
        }
    }
    nameStack_->setCurrentWidget(lblName);
    // Enter on the name as it was shown writes nothing, so the system does not turn modified.
    if (keep && typed != toQString(store_.record().trimmedDisplayName())) {
        report(setDisplayName(store_, toBytes(typed)));
        DrawSystem(true);
    }
    picSolarSystem->setFocus();
}

}  // namespace orr::ui
