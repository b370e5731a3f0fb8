#include "editor/SystemLifecycle.h"

#include <QGuiApplication>

#include "editor/SystemListBox.h"
#include "editor/frmNewSS.h"
#include "platform/Modal.h"
#include "platform/QtText.h"
#include "session/EditSession.h"
#include "session/SystemFiles.h"

namespace orr::ui {
namespace {

const QString kCaption = QStringLiteral("Orrerion");

// Shows the hourglass while a system is being opened. A question or a warning is shown with
// the normal cursor: restore() it first, show() the hourglass again when the work goes on.
class WaitCursor {
  public:
    WaitCursor() { show(); }
    ~WaitCursor() { restore(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

    void show() {
        if (shown_) return;
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        shown_ = true;
    }
    void restore() {
        if (!shown_) return;
        QGuiApplication::restoreOverrideCursor();
        shown_ = false;
    }

  private:
    bool shown_ = false;
};

}  // namespace

SystemLifecycle::SystemLifecycle(QWidget& window, EditSession& session, SystemListBox& list)
    : window_(window), session_(session), list_(list) {}

void SystemLifecycle::fillSystemList() {
    list_.fill(session_.folder().systemNames());
}

MessagePrompt SystemLifecycle::saveQuestion(const std::string& newName) const {
    return MessagePrompt::question(
        QStringLiteral("Do you want to save the current system before loading '") +
            toQString(newName) + QStringLiteral("'?"),
        kCaption, PromptButtons::YesNoCancel, PromptIcon::Question);
}

void SystemLifecycle::systemChosen(int index) {
    // The open entry chosen again means going back to its saved version.
    const MessagePrompt ask =
        index == openIndex_
            ? MessagePrompt::question(
                  QStringLiteral("This will revert to the last saved version of '") +
                      toQString(session_.name()) + QStringLiteral("'."),
                  kCaption, PromptButtons::OkCancel, PromptIcon::Information)
            : saveQuestion(list_.entryName(index));
    if (!leaveOpenSystem(ask)) {
        list_.selectQuietly(openIndex_);
        return;
    }
    if (index < 0) {
        followSession();
        return;
    }
    openEntry(index);
}

bool SystemLifecycle::openNamed(const std::string& name) {
    const int index = list_.findEntry(name);
    if (index < 0) {
        prompts().inform(&window_, QStringLiteral("There is no system named '") + toQString(name) +
                                       QStringLiteral("' in this game folder."));
        return false;
    }
    list_.selectQuietly(index);
    systemChosen(index);
    return openIndex_ == index;
}

bool SystemLifecycle::leaveOpenSystem(const MessagePrompt& ask) {
    if (!session_.isOpen()) return true;
    if (!session_.isModified()) return report(&window_, session_.discard(), session_.lastError());
    switch (prompts().message(&window_, ask)) {
        case PromptAnswer::Cancel:
            return false;
        case PromptAnswer::Yes:
            return report(&window_, session_.commit(), session_.lastError());
        default:
            return report(&window_, session_.discard(), session_.lastError());
    }
}

void SystemLifecycle::openEntry(int index) {
    WaitCursor hourglass;
    openIndex_ = index;
    list_.selectQuietly(index);
    LoadResult loaded;
    const bool opened = session_.open(
        list_.entryName(index),
        [this, &hourglass] {
            const MessagePrompt ask = MessagePrompt::question(
                QStringLiteral(
                    "There is a backup for this solar system, would you like to edit it?"),
                QStringLiteral("Backup Exists"), PromptButtons::YesNo, PromptIcon::Question);
            hourglass.restore();
            const bool useBackup = prompts().message(&window_, ask) == PromptAnswer::Yes;
            hourglass.show();
            return useBackup;
        },
        &loaded);
    hourglass.restore();
    if (!opened) {
        report(&window_, false, session_.lastError());
        followSession();
        return;
    }
    // The warning comes when the system shows what was kept of it.
    if (!loaded.warning.empty()) prompts().inform(&window_, toQString(loaded.warning));
}

void SystemLifecycle::followSession() {
    if (session_.isOpen()) return;
    openIndex_ = -1;
    list_.selectQuietly(-1);
}

void SystemLifecycle::showAsOpen(int index) {
    openIndex_ = index;
    list_.selectQuietly(index);
}

void SystemLifecycle::newSystem() {
    frmNewSS dialog(session_.folder(), &window_);
    runDialog(dialog);
    const auto answer = dialog.answer();
    if (!answer) return;
    if (const auto refusal = canCreateSystem(session_.folder(), answer->name, answer->kind)) {
        prompts().inform(&window_, toQString(*refusal));
        return;
    }
    if (!leaveOpenSystem(saveQuestion(answer->name))) return;
    followSession();
    std::string error;
    if (!report(&window_, createSystem(session_.folder(), answer->name, answer->kind, &error),
                error))
        return;
    openEntry(list_.addEntry(answer->name));
}

bool SystemLifecycle::confirmExit() {
    const MessagePrompt ask =
        MessagePrompt::question(QStringLiteral("Do you want to save before exiting?"), kCaption,
                                PromptButtons::YesNoCancel, PromptIcon::Question);
    return leaveOpenSystem(ask);
}

}  // namespace orr::ui
