#include "editor/frmSSEdit.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QSessionManager>
#include <QStatusBar>
#include <QVBoxLayout>

#include "editor/DisplayNameBox.h"
#include "editor/ExternalCommands.h"
#include "editor/InfoPanel.h"
#include "editor/PlanetCommands.h"
#include "editor/StarStrip.h"
#include "editor/StarView.h"
#include "editor/SystemCanvas.h"
#include "editor/SystemLifecycle.h"
#include "editor/SystemListBox.h"
#include "editor/SystemSaveCommands.h"
#include "editor/frmAbout.h"
#include "platform/Modal.h"
#include "platform/ProcessLauncher.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "platform/Settings.h"
#include "session/SystemEdits.h"

namespace orr::ui {

frmSSEdit::frmSSEdit(GameFolder folder, QWidget* parent)
    : QMainWindow(parent), session_(std::move(folder)) {
    setObjectName(QStringLiteral("frmSSEdit"));
    session_.setPictureCodec(&codec_);
    buildControls();
    menus_.build(*this);
    for (QMenu* menu : findChildren<QMenu*>()) {
        menu->setToolTipsVisible(true);
        menu->installEventFilter(this);
    }
    lifecycle_ = std::make_unique<SystemLifecycle>(*this, session_, *cboSystems);
    saving_ = std::make_unique<SystemSaveCommands>(*this, session_, *cboSystems, *lifecycle_);
    planets_ = std::make_unique<PlanetCommands>(*this, session_);
    external_ = std::make_unique<ExternalCommands>(*this, session_, *saving_);
    connectCommands();
    connectPlanetMenus();
    picSolarSystem->setRecord(&session_.record());
    session_.subscribe([this](const ChangeNotice& notice) { refresh(notice); });
    refresh({kSystemOpened | kSavedChanged});
}

// Whatever is open stays in its working copy: ending without the exit questions keeps it as the
// backup the next opening offers.
frmSSEdit::~frmSSEdit() {
    if (session_.isOpen()) session_.close();
}

void frmSSEdit::buildControls() {
    auto* central = new QWidget(this);
    central->setObjectName(QStringLiteral("central"));
    setCentralWidget(central);

    lblSS = new QLabel(QStringLiteral("Solar System:"), central);
    lblSS->setObjectName(QStringLiteral("lblSS"));
    cboSystems = new SystemListBox(central);
    lblSS->setBuddy(cboSystems);
    cmdAdd = new QPushButton(QStringLiteral("&Add"), central);
    cmdAdd->setObjectName(QStringLiteral("cmdAdd"));
    cmdDelete = new QPushButton(QStringLiteral("&Delete"), central);
    cmdDelete->setObjectName(QStringLiteral("cmdDelete"));
    // "&System" is the menu's key, as on the game's own platform: the button takes another.
    cmdSave = new QPushButton(QStringLiteral("Sa&ve"), central);
    cmdSave->setObjectName(QStringLiteral("cmdSave"));

    nameBox_ = new DisplayNameBox(central);

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
    layout->addWidget(nameBox_);
    layout->addLayout(body, 1);
    statusBar()->setObjectName(QStringLiteral("sbrStatus"));
}

void frmSSEdit::connectCommands() {
    SystemLifecycle* life = lifecycle_.get();
    SystemSaveCommands* saving = saving_.get();
    connect(cboSystems, &SystemListBox::chosen, this, [life](int i) { life->systemChosen(i); });
    connect(cmdAdd, &QPushButton::clicked, this, [life] { life->newSystem(); });
    connect(cmdDelete, &QPushButton::clicked, this, [saving] { saving->deleteSystem(); });
    connect(cmdSave, &QPushButton::clicked, this, [saving] { saving->save(); });
    connect(menus_.mnuFNew, &QAction::triggered, this, [life] { life->newSystem(); });
    connect(menus_.mnuFSave, &QAction::triggered, this, [saving] { saving->save(); });
    connect(menus_.mnuFSaveAs, &QAction::triggered, this, [saving] { saving->saveAs(); });
    connect(menus_.mnuFClear, &QAction::triggered, this, [saving] { saving->clearPlanets(); });
    connect(menus_.mnuFDelete, &QAction::triggered, this, [saving] { saving->deleteSystem(); });
    ExternalCommands* external = external_.get();
    connect(menus_.mnuFTest, &QAction::triggered, this,
            [external] { external->testInVoidrunner(); });
    connect(menus_.mnuFPackage, &QAction::triggered, this, [external] { external->makePackage(); });
    connect(menus_.mnuPPics, &QAction::triggered, this, [external] { external->showPictures(1); });
    planets_->setPictureEditorOpener([external](int planet) { external->showPictures(planet); });
    connect(menus_.mnuFExit, &QAction::triggered, this, [this, life] {
        if (!life->confirmExit()) return;
        exitConfirmed_ = true;
        close();
    });
    connect(menus_.mnuEUndo, &QAction::triggered, this, [this] { undoOrRedo(false); });
    connect(menus_.mnuERedo, &QAction::triggered, this, [this] { undoOrRedo(true); });
    connect(menus_.mnuHAbout, &QAction::triggered, this, [this] {
        frmAbout about(this);
        runDialog(about);
    });
    for (QObject* source : {static_cast<QObject*>(life), static_cast<QObject*>(saving),
                            static_cast<QObject*>(external)}) {
        connect(source, SIGNAL(statusMessage(QString)), statusBar(), SLOT(showMessage(QString)));
    }
    connect(nameBox_, &DisplayNameBox::nameEntered, this, [this](const QString& name) {
        report(this, setDisplayName(session_, toBytes(name)), session_.lastError());
    });
    connect(nameBox_, &DisplayNameBox::editingFinished, picSolarSystem,
            qOverload<>(&QWidget::setFocus));
    connect(qApp, &QGuiApplication::commitDataRequest, this,
            [this](QSessionManager&) { endWithoutQuestions(); });
    qApp->installEventFilter(this);
}

void frmSSEdit::connectPlanetMenus() {
    PlanetCommands* planets = planets_.get();
    SystemCanvas* canvas = picSolarSystem;
    const auto highlighted = [canvas] { return canvas->highlightedPlanet(); };
    connect(menus_.mnuPAdd, &QAction::triggered, this, [planets] { planets->addPlanet(); });
    connect(menus_.mnuPOrder, &QAction::triggered, this, [planets] { planets->setOrder(); });
    connect(menus_.mnuPDetail, &QAction::triggered, this, [this](bool on) {
        picSolarSystem->setDisplayAsteroids(on);
        Settings::setDisplayAsteroids(on);
        picSolarSystem->drawSystem(true);
    });
    connect(menus_.mnuDescription, &QAction::triggered, this,
            [=] { planets->renamePlanet(highlighted()); });
    connect(menus_.mnuInsert, &QAction::triggered, this,
            [=] { planets->insertPlanet(highlighted()); });
    connect(menus_.mnuDelete, &QAction::triggered, this, [=] {
        planets->deletePlanet(highlighted());
        // The highlighted number now belongs to the next planet, or to none.
        canvas->setHighlightedPlanet(0);
    });
    for (QAction* entry : menus_.mnuPClass)
        connect(entry, &QAction::triggered, this,
                [=] { planets->setPlanetClass(highlighted(), entry->data().toInt()); });
    connect(menus_.mnuStarDesc, &QAction::triggered, this, [planets] { planets->describeStar(); });
    for (QAction* entry : menus_.mnuStarType)
        connect(entry, &QAction::triggered, this,
                [planets, entry] { planets->setStarType(entry->data().toInt()); });

    connect(canvas, &SystemCanvas::redrawn, this, &frmSSEdit::updateInfo);
    // Every move of one drag joins one step of the history.
    connect(canvas, &SystemCanvas::dragStarted, this, [this] { ++dragId_; });
    connect(canvas, &SystemCanvas::orbitDragged, this, [this](int planet, int position) {
        report(this, movePlanet(session_, planet, position, dragId_), session_.lastError());
    });
    connect(canvas, &SystemCanvas::planetMenuRequested, this, &frmSSEdit::runPlanetMenu);
    connect(picStar, &StarView::rightClicked, this, &frmSSEdit::runStarMenu);
    connect(picStar, &StarView::hovered, canvas, &SystemCanvas::clearHighlight);
}

bool frmSSEdit::startUp() {
    if (!session_.folder().hasGameExecutable()) {
        prompts().inform(this, QStringLiteral("This software must be installed in the same "
                                              "folder as Voidrunner for Windows 9x."));
        return false;
    }
    session_.InitTables();
    lifecycle_->fillSystemList();
    const bool asteroids = Settings::displayAsteroids();
    menus_.mnuPDetail->setChecked(asteroids);
    picSolarSystem->setDisplayAsteroids(asteroids);
    refresh({kSystemOpened | kSavedChanged});
    return true;
}

void frmSSEdit::showAboutIfWanted() {
    if (!Settings::showAbout()) return;
    frmAbout about(this);
    runDialog(about);
}

bool frmSSEdit::openSystemNamed(const std::string& name) {
    return lifecycle_->openNamed(name);
}

void frmSSEdit::setMessageEditorOpener(MessageEditorOpener opener) {
    planets_->setMessageEditorOpener(std::move(opener));
    applyEnablingRules();
}

void frmSSEdit::highlightPlanet(int planet) {
    picSolarSystem->setHighlightedPlanet(planet);
    picSolarSystem->drawSystem();
}

void frmSSEdit::refresh(const ChangeNotice& notice) {
    if (notice.has(kSystemOpened)) {
        lifecycle_->followSession();
        picSolarSystem->setHighlightedPlanet(0);
        picSolarSystem->setHighlightLocked(false);
        picSolarSystem->setSystemIndex(session_.isOpen() ? lifecycle_->openIndex() : -1);
    }
    if (notice.has(kSystemOpened | kPicturesChanged | kStarChanged)) showStarPicture();
    if (notice.has(kPlanetsChanged) &&
        picSolarSystem->highlightedPlanet() > session_.record().PlanetCount)
        picSolarSystem->setHighlightedPlanet(0);
    picSolarSystem->drawSystem(true);
    applyEnablingRules();
    menus_.showHistory(toQString(session_.undoName()), toQString(session_.redoName()));
    // The title names the open system and marks it while it has unsaved changes.
    setWindowTitle(session_.isOpen()
                       ? toQString(session_.name()) + QStringLiteral("[*] - ") + kCaption
                       : kCaption);
    setWindowModified(session_.isModified());
}

void frmSSEdit::updateInfo() {
    const SystemRecord& record = session_.record();
    const int planet = picSolarSystem->highlightedPlanet();
    if (planet < 1 || planet > record.PlanetCount || picSolarSystem->draggedPlanet() != 0) {
        picInfo->hide();
    } else {
        picInfo->showPlanet(toQString(planetLabel(session_.store(), planet)),
                            record.planet(planet).Attributes);
        picInfo->show();
    }
    nameBox_->setName(toQString(record.trimmedDisplayName()));
    nameBox_->setEditable(session_.isOpen());
    picStar->setToolTip(session_.isOpen() ? toQString(planetName(session_.store(), 0)) : QString());
}

void frmSSEdit::applyEnablingRules() {
    const bool open = session_.isOpen();
    const int count = open ? session_.record().PlanetCount : 0;
    for (QWidget* button : {static_cast<QWidget*>(cmdSave), static_cast<QWidget*>(cmdDelete)})
        button->setEnabled(open);
    for (QAction* item : {menus_.mnuFSave, menus_.mnuFSaveAs, menus_.mnuFClear, menus_.mnuFDelete})
        item->setEnabled(open);
    menus_.mnuPlanet->setEnabled(open);
    menus_.mnuPAdd->setEnabled(open);
    menus_.mnuPOrder->setEnabled(open && count >= 2);
    menus_.mnuPPics->setEnabled(open && count >= 1);
    for (QAction* item : {menus_.mnuFTest, menus_.mnuFPackage}) item->setEnabled(open);
    menus_.mnuMessages->setEnabled(planets_->canEditMessages());
}

void frmSSEdit::showStarPicture() {
    if (!session_.isOpen()) {
        picStar->clearPicture();
        return;
    }
    const QImage own = imageOf(session_.pictures().star());
    if (!own.isNull())
        picStar->setPicture(own, true);
    else
        picStar->setPicture(clpStars->cell(session_.record().StarType), false);
    menus_.mnuStarPic->setChecked(picStar->showsOwnPicture());
}

void frmSSEdit::runPlanetMenu(int planet, const QPoint& globalPos) {
    if (planet < 1 || planet > session_.record().PlanetCount) return;
    picSolarSystem->setHighlightedPlanet(planet);
    picSolarSystem->setHighlightLocked(true);
    picSolarSystem->drawSystem();
    menus_.mnuInsert->setEnabled(session_.record().PlanetCount < kMaxPlanets);
    const int planetClass = session_.record().planet(planet).PlanetClass;
    for (QAction* entry : menus_.mnuPClass) entry->setChecked(entry->data().toInt() == planetClass);

    // Properties, Messages and Picture open windows of their own: they wait for the menu to go.
    QAction* chosen = nullptr;
    const auto remember = connect(menus_.mnuPopup, &QMenu::triggered, this,
                                  [&chosen](QAction* action) { chosen = action; });
    runMenu(*menus_.mnuPopup, globalPos);
    disconnect(remember);
    if (chosen == menus_.mnuProperties) {
        picInfo->hide();
        planets_->showProperties(planet);
    } else if (chosen == menus_.mnuMessages) {
        planets_->editMessages(planet);
    } else if (chosen == menus_.mnuPicture) {
        external_->showPictures(planet);
    }
    picSolarSystem->setHighlightLocked(false);
    picSolarSystem->trackPointer();
    picSolarSystem->drawSystem();
}

void frmSSEdit::runStarMenu(const QPoint& globalPos) {
    if (!session_.isOpen() || !picStar->hasPicture()) return;
    const int starType = session_.record().StarType;
    for (QAction* entry : menus_.mnuStarType) entry->setChecked(entry->data().toInt() == starType);
    const bool own = picStar->showsOwnPicture();
    menus_.mnuType->setEnabled(!own);
    menus_.mnuStarPic->setChecked(own);
    // Picture asks questions and may wait for the paint program: it waits for the menu to go.
    QAction* chosen = nullptr;
    const auto remember = connect(menus_.mnuPopupStar, &QMenu::triggered, this,
                                  [&chosen](QAction* action) { chosen = action; });
    runMenu(*menus_.mnuPopupStar, globalPos);
    disconnect(remember);
    // The entry's check mark says whether the star has its own picture, not what a click made it.
    menus_.mnuStarPic->setChecked(own);
    if (chosen == menus_.mnuStarPic) external_->starPicture(picStar->picture());
    picSolarSystem->trackPointer();
}

void frmSSEdit::undoOrRedo(bool redo) {
    if (!(redo ? session_.canRedo() : session_.canUndo())) return;
    report(this, redo ? session_.redo() : session_.undo(), session_.lastError());
}

void frmSSEdit::endWithoutQuestions() {
    endingQuietly_ = true;
}

void frmSSEdit::closeEvent(QCloseEvent* event) {
    // Exit has asked already; an ending of the session or the application asks nothing. While
    // an external program works on a file the editor gave it, the editor stays.
    if (isWaitingForProgram() && !endingQuietly_) {
        event->ignore();
        return;
    }
    if (endingQuietly_ || exitConfirmed_ || lifecycle_->confirmExit()) {
        event->accept();
        return;
    }
    event->ignore();
}

void frmSSEdit::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // Back from a dialog or message box (or another program): while this window was blocked the
    // canvas saw none of the pointer's moves, so the highlight follows where the pointer is now.
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        picSolarSystem->trackPointer();
}

bool frmSSEdit::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp) {
        // The application is told to quit (not the user closing this window): its windows
        // are closed next, and this one must go without questions.
        if (event->type() == QEvent::Quit) endWithoutQuestions();
        return false;
    }
    if (auto* menu = qobject_cast<QMenu*>(watched); menu && event->type() == QEvent::MouseMove) {
        // Qt tells the status line nothing of a context menu's entries or of disabled ones: the
        // line says what the entry under the pointer does, or why it is not available.
        const QAction* entry =
            menu->actionAt(static_cast<QMouseEvent*>(event)->position().toPoint());
        statusBar()->showMessage(entry ? entry->statusTip() : QString());
        return false;
    }
    return QMainWindow::eventFilter(watched, event);
}

}  // namespace orr::ui
