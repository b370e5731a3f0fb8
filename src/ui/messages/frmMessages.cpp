#include "messages/frmMessages.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>

#include "messages/DirectionPicture.h"
#include "messages/LongEntryToolTip.h"
#include "messages/MessageEditSession.h"
#include "messages/MessageLineForm.h"
#include "messages/SpecialCodeFile.h"
#include "messages/SpecialCodesPanel.h"
#include "messages/frmFlag.h"
#include "messages/frmSystem.h"
#include "session/MessageEdits.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"

namespace orr::ui {

frmMessages::frmMessages(EditSession& session, QWidget* parent)
    : QDialog(parent), editSession_(session) {
    setObjectName(QStringLiteral("frmMessages"));
    setWindowTitle(kCaptionPrefix);
    setModal(true);
    buildControls();
    form_ = std::make_unique<MessageLineForm>(*this);
    session_ = std::make_unique<MessageEditSession>(*this, editSession_, *form_, codes_);
    fraActions->setChoosers(
        {[this](int index) { return chooseSystem(index); },
         [this](const std::string& flag) { return toBytes(GetFlagChar(toQString(flag))); }});
    connectControls();
    connectListControls();
    form_->reset();
    form_->setOptionsEnabled(false);
    form_->hideError();
    // Another system opened: the next opening reads the groups again.
    listener_ = editSession_.subscribe([this](const ChangeNotice& notice) {
        if (notice.has(kSystemOpened)) markForReload();
    });
}

frmMessages::~frmMessages() {
    editSession_.unsubscribe(listener_);
}

void frmMessages::setProgramSpecialList(std::filesystem::path path) {
    programSpecialList_ = std::move(path);
}

void frmMessages::loadSpecialCodes() {
    if (codesLoaded_) return;
    codesLoaded_ = true;
    std::filesystem::path programCopy = programSpecialList_;
    if (programCopy.empty()) {
        programCopy =
            std::filesystem::path(QCoreApplication::applicationDirPath().toStdU16String()) /
            kSpecialListFile;
    }
    SpecialCodeLoad load = orr::loadSpecialCodes(editSession_.folder(), programCopy);
    codes_ = std::move(load.list);
    fraActions->setCodes(codes_);
    if (!load.problem.empty()) {
        MessagePrompt prompt;
        prompt.text = toQString(load.problem);
        prompt.icon = PromptIcon::Exclamation;
        prompts().message(this, prompt);
    }
}

void frmMessages::prepareForPlanet(int planet, const QString& planetName, bool customMessages) {
    loadSpecialCodes();
    session_->setPlanet(planet);
    {
        const QSignalBlocker blocker(chkCustom);
        chkCustom->setChecked(customMessages);
    }
    setWindowTitle(kCaptionPrefix + planetName);
    picDirection->start();
    if (!session_->activated()) session_->refresh();
}

bool frmMessages::openForPlanet(int planet, const QString& planetName, bool customMessages) {
    prepareForPlanet(planet, planetName, customMessages);
    runDialog(*this);
    return this->customMessages();
}

bool frmMessages::customMessages() const {
    return chkCustom->isChecked();
}

int frmMessages::planet() const {
    return session_->planet();
}

void frmMessages::markForReload() {
    session_->markForReload();
}

void frmMessages::windowActivated() {
    session_->activated();
}

void frmMessages::setDialogRunner(DialogRunner runner) {
    dialogRunner_ = std::move(runner);
}

void frmMessages::runDialog(QDialog& dialog) {
    if (dialogRunner_)
        dialogRunner_(dialog);
    else
        dialog.exec();
}

void frmMessages::setPopupRunner(PopupRunner runner) {
    popupRunner_ = std::move(runner);
}

frmFlag& frmMessages::flagChooser() {
    if (!flagChooser_) flagChooser_ = new frmFlag(editSession_, this);
    return *flagChooser_;
}

frmSystem& frmMessages::systemChooser() {
    if (!systemChooser_) systemChooser_ = new frmSystem(this);
    return *systemChooser_;
}

QString frmMessages::GetFlagChar(const QString& current) {
    frmFlag& chooser = flagChooser();
    chooser.setPlanet(planet());
    chooser.prepare(current);
    // Coming back from the chooser is no reason to read the groups again.
    session_->setSkipMark();
    runDialog(chooser);
    windowActivated();
    return chooser.chosenFlag();
}

int frmMessages::chooseSystem(int index) {
    frmSystem& chooser = systemChooser();
    chooser.prepare(index);
    session_->setSkipMark();
    runDialog(chooser);
    windowActivated();
    return chooser.chosenIndex();
}

bool frmMessages::putPlanetKey(const char* key, const QString& value) {
    return putPlanetKeys(editSession_, planet(), "Change Restrictions", {{key, toBytes(value)}});
}

namespace {

QString storedOrEmpty(MessageStore& messages, const char* key) {
    const std::string value = messages.GetMessage(key);
    return value == kMissingValue ? QString() : toQString(value);
}

}  // namespace

QString frmMessages::BeamFlags() {
    return storedOrEmpty(session_->messages(), kBeamFlagKey);
}

QString frmMessages::SearchFlags() {
    return storedOrEmpty(session_->messages(), kSearchFlagKey);
}

QString frmMessages::TricorderFlags() {
    return storedOrEmpty(session_->messages(), kTricorderFlagKey);
}

bool frmMessages::setBeamFlags(const QString& code) {
    return putPlanetKey(kBeamFlagKey, code);
}

bool frmMessages::setSearchFlags(const QString& code) {
    return putPlanetKey(kSearchFlagKey, code);
}

bool frmMessages::setTricorderFlags(const QString& code) {
    return putPlanetKey(kTricorderFlagKey, code);
}

void frmMessages::reject() {
    session_->close();
    picDirection->stop();
    picTooltip->dismiss();
    QDialog::reject();
}

void frmMessages::keyPressEvent(QKeyEvent* event) {
    // Enter does not press a button here, and Escape does not close the window (an edit in
    // progress would be lost): cmdClose and the close box do that.
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
            event->accept();
            return;
        default:
            QDialog::keyPressEvent(event);
    }
}

bool frmMessages::eventFilter(QObject* watched, QEvent* event) {
    if (watched == cboGroup && event->type() == QEvent::FocusOut) {
        // Not when the box's own list opens or another window takes over: the designer has not
        // left the box then.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
            session_->groupBoxLeft();
    }
    if (watched == txtMessage && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        // A stored line is one line of text: Enter is ignored.
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) return true;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        for (std::size_t i = 0; i < lblInsert.size(); ++i) {
            if (watched == lblInsert[i] &&
                static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
                session_->insertCode(static_cast<int>(i));
                return true;
            }
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmMessages::connectControls() {
    for (std::size_t i = 0; i < optDir.size(); ++i) {
        connect(optDir[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on) session_->chooseDirection(static_cast<Direction>(i));
        });
    }
    connect(cboGroup, &QComboBox::currentIndexChanged, this,
            [this](int index) { session_->groupChosen(index); });
    connect(cboGroup, &QComboBox::editTextChanged, this,
            [this](const QString& text) { session_->groupTextEdited(text); });
    connect(cmdAddGroup, &QPushButton::clicked, this, [this] { session_->addGroup(); });
    cboGroup->installEventFilter(this);

    connect(vsbWait, &QScrollBar::valueChanged, this, [this] {
        form_->waitChanged();
        session_->optionsEdited();
    });
    connect(vsbPercent, &QScrollBar::valueChanged, this, [this] {
        form_->percentChanged();
        session_->optionsEdited();
    });
    connect(cboAnswerGroup, &QComboBox::editTextChanged, this,
            [this] { session_->optionsEdited(); });
    connect(fraActions, &SpecialCodesPanel::changed, this, [this] { session_->optionsEdited(); });
    for (std::size_t i = 0; i < optDisplay.size(); ++i) {
        connect(optDisplay[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (!on) return;
            form_->displayChosen(static_cast<DisplayMode>(i));
            session_->optionsEdited();
        });
    }
    connect(txtDisplay, &QLineEdit::textEdited, this,
            [this](const QString& title) { form_->customTitleEdited(title); });
    connect(txtDisplay, &QLineEdit::textChanged, this, [this] { session_->optionsEdited(); });

    connect(txtMessage, &QPlainTextEdit::textChanged, this, [this] { session_->textEdited(); });
    txtMessage->installEventFilter(this);
    for (QLabel* label : lblInsert) label->installEventFilter(this);

    connect(chkCustom, &QCheckBox::clicked, this,
            [this](bool on) { session_->customSwitchClicked(on); });
    connect(cmdClose, &QPushButton::clicked, this, &frmMessages::reject);
}

void frmMessages::connectListControls() {
    MessageEditSession* session = session_.get();
    connect(lstMessages, &QListWidget::currentRowChanged, this,
            [session](int row) { session->lineSelected(row); });
    connect(lstMessages, &QListWidget::itemDoubleClicked, this,
            [this, session](QListWidgetItem* item) { session->editRow(lstMessages->row(item)); });
    lstMessages->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(lstMessages, &QListWidget::customContextMenuRequested, this,
            &frmMessages::showListMenu);

    connect(cmdNew, &QPushButton::clicked, this, [session] { session->newLine(); });
    connect(cmdEdit, &QPushButton::clicked, this, [session] { session->editLine(); });
    connect(cmdRemove, &QPushButton::clicked, this, [session] { session->removeLine(); });
    connect(cmdClearAll, &QPushButton::clicked, this, [session] { session->clearAll(); });
    connect(cmdSwap[0], &QPushButton::clicked, this, [session] { session->swapLine(0); });
    connect(cmdSwap[1], &QPushButton::clicked, this, [session] { session->swapLine(1); });
    connect(cmdSave, &QPushButton::clicked, this, [session] { session->save(); });
    connect(cmdCancel, &QPushButton::clicked, this, [session] { session->cancel(); });
    connect(cmdDelete, &QPushButton::clicked, this, [session] { session->deleteEdited(); });
    connect(cmdGo, &QPushButton::clicked, this, [session] { session->goToAnswer(); });
    connect(mnuEdit, &QAction::triggered, this, [session] { session->editLine(); });
    connect(mnuRemove, &QAction::triggered, this, [session] { session->removeLine(); });
    connect(mnuGo, &QAction::triggered, this, [session] { session->goToAnswer(); });

    connect(picTooltip, &LongEntryToolTip::entryClicked, this,
            [this](int row) { lstMessages->setCurrentRow(row); });
    connect(picTooltip, &LongEntryToolTip::entryDoubleClicked, this,
            [session](int row) { session->editRow(row); });
    connect(picTooltip, &LongEntryToolTip::entryMenuRequested, this,
            [this](int row, const QPoint& globalPos) {
                lstMessages->setCurrentRow(row);
                showListMenu(lstMessages->viewport()->mapFromGlobal(globalPos));
            });
}

void frmMessages::showListMenu(const QPoint& pos) {
    if (session_->isEditing()) return;
    // A right click selects the line under the mouse first.
    if (QListWidgetItem* item = lstMessages->itemAt(pos)) lstMessages->setCurrentItem(item);
    const QPoint global = lstMessages->viewport()->mapToGlobal(pos);
    if (popupRunner_)
        popupRunner_(mnuPopup, global);
    else
        mnuPopup->exec(global);
}

}  // namespace orr::ui
