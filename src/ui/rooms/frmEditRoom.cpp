// The room editor: showing rooms, following the edit session, and its dialogs and questions.

#include "rooms/frmEditRoom.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextEdit>
#include <QTimer>

#include "messages/PlanetMessageStore.h"
#include "platform/Modal.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "rooms/RoomChanges.h"
#include "rooms/RoomPicture.h"
#include "rooms/frmAdvancedRoom.h"
#include "rooms/frmLock.h"

namespace orr::ui {

frmEditRoom::frmEditRoom(EditSession& session, FlagChooser chooseFlag, QWidget* parent)
    : QDialog(parent), session_(session), chooseFlag_(std::move(chooseFlag)) {
    setObjectName(QStringLiteral("frmEditRoom"));
    setWindowTitle(kCaption);
    setModal(true);
    buildControls();
    connectControls();
    showAction({});
    listener_ = session_.subscribe([this](const ChangeNotice& notice) { sessionChanged(notice); });
    sessionLifetime_ = session_.lifetime();
}

frmEditRoom::~frmEditRoom() {
    if (!sessionLifetime_.expired()) session_.unsubscribe(listener_);
}

void frmEditRoom::setPlanet(int planet) {
    if (planet == planet_) return;
    planet_ = planet;
    room_.clear();
    view_.reset();
    back_.clear();
    cmdBack->setEnabled(false);
    pnlRoom->setRoomName(QString());
}

QString frmEditRoom::shownRoom() const {
    return pnlRoom->roomName();
}

bool frmEditRoom::LoadRoom(const QString& room) {
    const std::optional<std::string> name = storable(room);
    if (!name) return false;
    if (*name != kNoRoom) {
        if (const std::string problem = roomNameProblem(*name); !problem.empty()) {
            warn(toQString(problem));
            return false;
        }
    }
    session_.recheck();
    PlanetMessageStore reader(session_.store(), planet_);
    const std::optional<RoomView> view = orr::LoadRoom(
        reader, *name, [this](const std::string& shown, const LeadingMessage& message) {
            const PromptAnswer answer = prompts().message(
                this, MessagePrompt::question(toQString(notARoomQuestion(message)),
                                              toQString(notARoomCaption(shown)),
                                              PromptButtons::YesNoCancel, PromptIcon::Question));
            return answer == PromptAnswer::Yes  ? NotARoomAnswer::Yes
                   : answer == PromptAnswer::No ? NotARoomAnswer::No
                                                : NotARoomAnswer::Cancel;
        });
    if (!view) return false;  // the room shown before stays, and so does its Back target
    back_ = shownRoom();
    cmdBack->setEnabled(!back_.isEmpty());
    cmdBack->setToolTip(back_.isEmpty() ? QString() : QStringLiteral("Back to %1").arg(back_));
    room_ = view->room;
    showAction({});
    showRoom(*view);
    txtMessage->setFocus();
    return true;
}

void frmEditRoom::sessionChanged(const ChangeNotice& notice) {
    if (ownChange_ || room_.empty() || !notice.touchesKeysOf(planet_)) return;
    if (notice.has(kSystemOpened) || !session_.isOpen()) {
        // Another system: nothing of this room is left to show.
        room_.clear();
        view_.reset();
        if (isVisible()) QDialog::reject();
        return;
    }
    refresh();
}

void frmEditRoom::refresh() {
    if (room_.empty()) return;
    session_.recheck();
    std::optional<RoomView> view = viewRoom(session_, ref());
    if (view) showRoom(*view);
}

void frmEditRoom::showRoom(const RoomView& view) {
    const Busy loading(loading_);
    view_ = view;
    const QString name = toQString(view.room);
    setWindowTitle(kCaption + QStringLiteral(" - ") + name);
    pnlRoom->setRoomName(name);
    showDescription();
    showBoxes();
    showList();
    // The action shown may have gone (an undo, a removal): the frame is cleared then.
    if (shown_.number > 0 && !view.action(shown_.number)) shown_ = {};
    showAction(shown_);
}

void frmEditRoom::showDescription() {
    const std::optional<RoomDescription>& description = view_->description;
    const QString stored = description ? toQString(description->line.text) : QString();
    if (txtMessage->toPlainText() != stored) {
        const QSignalBlocker blocker(txtMessage);
        txtMessage->setPlainText(stored);
    }
    txtMessage->setToolTip(
        description ? QStringLiteral("Message %1 of %2").arg(description->number).arg(shownRoom())
                    : QStringLiteral("%1 has no description yet").arg(shownRoom()));
}

std::optional<std::string> frmEditRoom::storable(const QString& typed) {
    if (const QString characters = unstorableCharacters(typed); !characters.isEmpty()) {
        showProblem(unstorableMessage(characters));
        return std::nullopt;
    }
    return toBytes(typed);
}

void frmEditRoom::showProblem(const QString& problem) {
    lblProblem->setText(problem);
    lblProblem->setVisible(!problem.isEmpty());
}

bool frmEditRoom::run(const std::function<bool()>& command, bool typing) {
    bool ok = false;
    {
        const Busy own(ownChange_);
        ok = command();
    }
    // A keystroke that cannot be stored is said beside the box, not in a message box that
    // would take the keyboard away at every key.
    showProblem(typing && !ok ? toQString(session_.lastError()) : QString());
    if (!typing) report(this, ok, session_.lastError());
    refresh();
    return ok;
}

void frmEditRoom::backClicked() {
    if (!back_.isEmpty()) LoadRoom(back_);
}

void frmEditRoom::lockClicked() {
    if (!view_) return;
    frmLock lock(this);
    lock.Clear();
    for (const ActionBinding& binding : view_->standard)
        if (binding.state != kNotStored) lock.AddItem(toQString(binding.line.text), binding.number);
    for (const ListedAction& action : view_->listed)
        lock.AddItem(toQString(action.line.text), action.number);
    runDialog(lock);
    const int k = lock.SelectedID();
    const QString message = lock.Description();
    if (k == 0 || lock.result() != QDialog::Accepted) return;
    const std::optional<std::string> bytes = storable(message);
    if (!bytes) return;
    const QString flag = chooseFlag_(this, QString());
    if (flag.isEmpty()) return;
    run([&] { return lockRoomAction(session_, ref(), k, flag.at(0).toLatin1(), *bytes); });
}

void frmEditRoom::advancedClicked() {
    frmAdvancedRoom advanced(session_, planet_, chooseFlag_, this);
    advanced.Load();
    {
        const Busy own(ownChange_);
        runDialog(advanced);
    }
    // The room is shown again, so that the default lines carry the new requirements.
    refresh();
}

void frmEditRoom::effectClicked() {
    const SplitLine* line = shownLine();
    if (!line) return;
    const std::string group = toBytes(shownDestination());
    if (const std::string problem = effectGroupProblem(group); !problem.empty()) {
        warn(toQString(problem));
        return;
    }
    session_.recheck();
    PlanetMessageStore reader(session_.store(), planet_);
    const EffectSlot slot = FindEffect(reader, group);
    if (slot.isRoom && !confirm(kEffectWarning, false)) return;
    const QString action = toQString(line->text);
    const QString breaks = QStringLiteral("\r\n\r\n");
    const std::optional<QString> effect =
        ask(QStringLiteral("Enter Effect"),
            action + breaks +
                QStringLiteral("Enter the description of what happens when this action is chosen:"),
            toQString(slot.line.text));
    if (!effect || effect->isEmpty()) return;
    const std::optional<QString> destination = ask(
        QStringLiteral("Enter Destination"),
        action + breaks + *effect + breaks +
            QStringLiteral("Enter the destination room of this effect (usually, this will be the "
                           "current room):"),
        slot.returnRoom.empty() ? shownRoom() : toQString(slot.returnRoom));
    if (!destination || destination->isEmpty()) return;
    const std::optional<std::string> text = storable(*effect);
    const std::optional<std::string> room = storable(*destination);
    if (!text || !room) return;
    run([&] { return editEffect(session_, ref(), group, *text, *room); });
}

void frmEditRoom::undoOrRedo(bool redo) {
    // A text box keeps its own undo of the typing.
    QWidget* focus = QApplication::focusWidget();
    if (qobject_cast<QLineEdit*>(focus) || qobject_cast<QPlainTextEdit*>(focus) ||
        qobject_cast<QTextEdit*>(focus))
        return;
    if (!(redo ? session_.canRedo() : session_.canUndo())) return;
    report(this, redo ? session_.redo() : session_.undo(), session_.lastError());
}

std::optional<QString> frmEditRoom::ask(const QString& caption, const QString& prompt,
                                        const QString& defaultText) {
    InputPrompt input;
    input.caption = caption;
    input.text = prompt;
    input.defaultText = defaultText;
    return prompts().input(this, input);
}

bool frmEditRoom::confirm(const QString& question, bool destructive) {
    const MessagePrompt prompt =
        MessagePrompt::question(question, QStringLiteral("Orrerion"), PromptButtons::YesNo,
                                destructive ? PromptIcon::Exclamation : PromptIcon::Question);
    return prompts().message(this, prompt) == PromptAnswer::Yes;
}

void frmEditRoom::warn(const QString& text) {
    MessagePrompt prompt;
    prompt.text = text;
    prompt.icon = PromptIcon::Exclamation;
    prompts().message(this, prompt);
}

void frmEditRoom::reject() {
    tmrDisableHighlight->stop();
    QDialog::reject();
}

void frmEditRoom::keyPressEvent(QKeyEvent* event) {
    // Escape closes the window like "&Close"; Enter presses nothing (see the buttons).
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

bool frmEditRoom::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Enter:
        case QEvent::MouseMove:
            for (int i = 0; i < kStandardActionCount; ++i)
                if (watched == chkAct[i] || (i < kDirectionCount && watched == pnlRoom->door(i)))
                    hovered(i);
            break;
        case QEvent::MouseButtonRelease:
            // After a click in the Action frame's boxes, the pointer may cross the standard
            // actions on its way without showing them.
            if (watched == txtResponse || watched == txtDest) tmrDisableHighlight->start();
            break;
        case QEvent::KeyPress: {
            const int key = static_cast<QKeyEvent*>(event)->key();
            // The description is one line of text.
            if (watched == txtMessage && (key == Qt::Key_Return || key == Qt::Key_Enter))
                return true;
            break;
        }
        default:
            break;
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace orr::ui
