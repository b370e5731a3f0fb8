// The message editor: opening, following the edit session, the choosers, keys and wiring.

#include "messages/frmMessages.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTextEdit>

#include "messages/DirectionPicture.h"
#include "messages/LongEntryToolTip.h"
#include "messages/MessageLineForm.h"
#include "messages/SpecialCodeFile.h"
#include "messages/frmFlag.h"
#include "messages/frmSystem.h"
#include "platform/Modal.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "session/PlanetEdits.h"
#include "session/SystemEdits.h"
#include "testmode/TestLauncher.h"

namespace orr::ui {

frmMessages::frmMessages(EditSession& session, QWidget* parent)
    : QDialog(parent), session_(session) {
    setObjectName(QStringLiteral("frmMessages"));
    setWindowTitle(kCaptionPrefix);
    setModal(true);
    buildControls();
    form_->setChoosers(
        {[this](int index) { return chooseSystem(index); },
         [this](const std::string& flag) { return toBytes(GetFlagChar(toQString(flag))); }});
    connectControls();
    connectListControls();
    connectRoomButtons();
    hideLengthError();
    listener_ = session_.subscribe([this](const ChangeNotice& notice) { sessionChanged(notice); });
    sessionLifetime_ = session_.lifetime();
}

frmMessages::~frmMessages() {
    // The main window owns the session and goes before its child windows.
    if (!sessionLifetime_.expired()) session_.unsubscribe(listener_);
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
    SpecialCodeLoad load = orr::loadSpecialCodes(session_.folder(), programCopy);
    codes_ = std::move(load.list);
    form_->setCodes(codes_);
    if (!load.problem.empty()) warn(toQString(load.problem));
}

void frmMessages::prepareForPlanet(int planet, const QString& planetName, bool customMessages) {
    loadSpecialCodes();
    if (planet != state_.planet() || !reader_) {
        state_.setPlanet(planet);
        reader_ = std::make_unique<PlanetMessageStore>(session_.store(), planet);
    }
    {
        const QSignalBlocker blocker(chkCustom);
        chkCustom->setChecked(customMessages);
    }
    setWindowTitle(kCaptionPrefix + planetName);
    picDirection->start();
    session_.recheck();
    activate();
}

bool frmMessages::openForPlanet(int planet, const QString& planetName, bool customMessages) {
    prepareForPlanet(planet, planetName, customMessages);
    runDialog(*this);
    return this->customMessages();
}

bool frmMessages::customMessages() const {
    return chkCustom->isChecked();
}

void frmMessages::markForReload() {
    state_.markForReload();
}

void frmMessages::windowActivated() {
    if (state_.activate(session_.record().DisplayName))
        switchDirection(Direction::Message, {}, false);
}

void frmMessages::sessionChanged(const ChangeNotice& notice) {
    if (notice.has(kSystemOpened)) {
        // Another system: the next opening reads the groups again.
        state_.markForReload();
        return;
    }
    const int planet = state_.planet();
    if (ownChange_ || planet < 1 || !session_.isOpen()) return;
    if (notice.has(kFlagsChanged) && isVisible()) {
        const QSignalBlocker blocker(chkCustom);
        chkCustom->setChecked(session_.store().GetGeneralFlag(kMessagesFlag, planet) == 1);
    }
    if (notice.has(kNamesChanged) && isVisible())
        setWindowTitle(kCaptionPrefix + toQString(planetName(session_.store(), planet)));
    if (!notice.touchesKeysOf(planet)) return;
    state_.reread(messages());
    if (isVisible()) showFromFile();
}

void frmMessages::undoOrRedo(bool redo) {
    // A text box keeps its own undo of the typing; the keys reach the window there only when the
    // box has no use for them (Ctrl+Y on some platforms), and then they do nothing.
    QWidget* focus = QApplication::focusWidget();
    if (qobject_cast<QLineEdit*>(focus) || qobject_cast<QPlainTextEdit*>(focus) ||
        qobject_cast<QTextEdit*>(focus))
        return;
    if (!(redo ? session_.canRedo() : session_.canUndo())) return;
    report(redo ? session_.redo() : session_.undo());
}

void frmMessages::customSwitchClicked(bool on) {
    const Busy own(ownChange_);
    if (report(setPlanetFlag(session_, kMessagesFlag, planet(), on))) return;
    const QSignalBlocker blocker(chkCustom);
    chkCustom->setChecked(!on);
}

frmFlag& frmMessages::flagChooser() {
    if (!flagChooser_) flagChooser_ = new frmFlag(session_, this);
    return *flagChooser_;
}

frmSystem& frmMessages::systemChooser() {
    if (!systemChooser_) systemChooser_ = new frmSystem(this);
    return *systemChooser_;
}

void frmMessages::runChooser(QDialog& chooser) {
    // A flag's description is no change of the lists shown.
    const Busy own(ownChange_);
    state_.setSkipMark();
    runDialog(chooser);
    windowActivated();
}

void frmMessages::testPlanet() {
    // The test only reads the planet: coming back from it reads nothing again.
    state_.setSkipMark();
    startTest(this, session_, planet());
    windowActivated();
}

QString frmMessages::GetFlagChar(const QString& current) {
    frmFlag& chooser = flagChooser();
    chooser.setPlanet(planet());
    chooser.prepare(current);
    runChooser(chooser);
    return chooser.chosenFlag();
}

int frmMessages::chooseSystem(int index) {
    frmSystem& chooser = systemChooser();
    chooser.prepare(index);
    runChooser(chooser);
    return chooser.chosenIndex();
}

bool frmMessages::putPlanetKey(const char* key, const QString& value) {
    const Busy own(ownChange_);
    return putPlanetKeys(session_, planet(), "Change Restrictions", {{key, toBytes(value)}});
}

namespace {

QString storedOrEmpty(MessageStore& messages, const char* key) {
    const std::string value = messages.GetMessage(key);
    return value == kMissingValue ? QString() : toQString(value);
}

}  // namespace

QString frmMessages::BeamFlags() {
    return storedOrEmpty(messages(), kBeamFlagKey);
}

QString frmMessages::SearchFlags() {
    return storedOrEmpty(messages(), kSearchFlagKey);
}

QString frmMessages::TricorderFlags() {
    return storedOrEmpty(messages(), kTricorderFlagKey);
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
    cancelEditing(false);
    state_.clearReloadMark();
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
            adoptTypedGroup();
    }
    if (watched == txtMessage && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        // A stored line is one line of text: Enter is ignored.
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) return true;
    }
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        for (std::size_t i = 0; i < lblInsert.size(); ++i) {
            if (watched != lblInsert[i]) continue;
            insertCode(static_cast<int>(i));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmMessages::connectControls() {
    for (std::size_t i = 0; i < optDir.size(); ++i) {
        connect(optDir[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on) chooseDirection(static_cast<Direction>(i));
        });
    }
    connect(cboGroup, &QComboBox::currentIndexChanged, this, &frmMessages::groupChosen);
    connect(cboGroup, &QComboBox::editTextChanged, this, &frmMessages::groupTextEdited);
    connect(cmdAddGroup, &QPushButton::clicked, this, &frmMessages::addGroup);
    cboGroup->installEventFilter(this);
    connect(form_, &MessageLineForm::changed, this, &frmMessages::optionsEdited);
    connect(txtMessage, &QPlainTextEdit::textChanged, this, &frmMessages::textEdited);
    txtMessage->installEventFilter(this);
    for (QLabel* label : lblInsert) label->installEventFilter(this);
    connect(chkCustom, &QCheckBox::clicked, this, &frmMessages::customSwitchClicked);
    connect(cmdClose, &QPushButton::clicked, this, &frmMessages::reject);
    connect(actUndo, &QAction::triggered, this, [this] { undoOrRedo(false); });
    connect(actRedo, &QAction::triggered, this, [this] { undoOrRedo(true); });
}

void frmMessages::connectListControls() {
    connect(lstMessages, &QListWidget::currentRowChanged, this, &frmMessages::lineSelected);
    connect(lstMessages, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { editRow(lstMessages->row(item)); });
    lstMessages->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(lstMessages, &QListWidget::customContextMenuRequested, this,
            &frmMessages::showListMenu);

    connect(cmdNew, &QPushButton::clicked, this, &frmMessages::newLine);
    connect(cmdEdit, &QPushButton::clicked, this, &frmMessages::editLine);
    connect(cmdRemove, &QPushButton::clicked, this, &frmMessages::removeLine);
    connect(cmdClearAll, &QPushButton::clicked, this, &frmMessages::clearAll);
    connect(cmdSwap[0], &QPushButton::clicked, this, [this] { swapLine(0); });
    connect(cmdSwap[1], &QPushButton::clicked, this, [this] { swapLine(1); });
    connect(cmdSave, &QPushButton::clicked, this, &frmMessages::save);
    connect(cmdCancel, &QPushButton::clicked, this, &frmMessages::cancel);
    connect(cmdDelete, &QPushButton::clicked, this, &frmMessages::deleteEdited);
    connect(cmdGo, &QPushButton::clicked, this, &frmMessages::goToAnswer);
    connect(cmdTest, &QPushButton::clicked, this, &frmMessages::testPlanet);
    connect(mnuEdit, &QAction::triggered, this, &frmMessages::editLine);
    connect(mnuRemove, &QAction::triggered, this, &frmMessages::removeLine);
    connect(mnuGo, &QAction::triggered, this, &frmMessages::goToAnswer);
}

void frmMessages::showListMenu(const QPoint& pos) {
    if (editing_) return;
    // A right click selects the line under the mouse first.
    if (QListWidgetItem* item = lstMessages->itemAt(pos)) lstMessages->setCurrentItem(item);
    runMenu(*mnuPopup, lstMessages->viewport()->mapToGlobal(pos));
}

bool frmMessages::report(bool ok) {
    return ui::report(this, ok, session_.lastError());
}

void frmMessages::warn(const QString& text) {
    MessagePrompt prompt;
    prompt.text = text;
    prompt.icon = PromptIcon::Exclamation;
    prompts().message(this, prompt);
}

bool frmMessages::confirm(const QString& question) {
    MessagePrompt prompt;
    prompt.text = question;
    prompt.buttons = PromptButtons::YesNo;
    prompt.icon = PromptIcon::Exclamation;
    return prompts().message(this, prompt) == PromptAnswer::Yes;
}

}  // namespace orr::ui
