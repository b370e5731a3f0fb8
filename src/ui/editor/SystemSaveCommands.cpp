#include "editor/SystemSaveCommands.h"

#include "editor/SystemLifecycle.h"
#include "editor/SystemListBox.h"
#include "platform/Modal.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "session/EditSession.h"
#include "session/PlanetEdits.h"
#include "session/SystemFiles.h"
#include "store/SystemName.h"

namespace orr::ui {

namespace {

const QString kCaption = QStringLiteral("Orrerion");

}  // namespace

SystemSaveCommands::SystemSaveCommands(QWidget& window, EditSession& session, SystemListBox& list,
                                       SystemLifecycle& lifecycle)
    : window_(window), session_(session), list_(list), lifecycle_(lifecycle) {}

bool SystemSaveCommands::save() {
    if (!session_.isOpen()) return false;
    const std::string name = session_.name();
    const bool saved = session_.save();
    lifecycle_.followSession();
    if (!saved) {
        emit statusMessage(QStringLiteral("%1 was not saved.").arg(toQString(name)));
        return report(&window_, false, session_.lastError());
    }
    if (!session_.lastWarning().empty())
        prompts().inform(&window_, toQString(session_.lastWarning()));
    emit statusMessage(QStringLiteral("Saved %1.").arg(toQString(name)));
    return true;
}

std::optional<std::string> SystemSaveCommands::askSaveAsName() {
    InputPrompt ask;
    ask.text = QStringLiteral("Please enter the new name of this system.");
    ask.caption = kCaption;
    ask.defaultText = toQString(session_.name());
    for (;;) {
        const std::optional<QString> answer = prompts().input(&window_, ask);
        if (!answer || answer->isEmpty()) return std::nullopt;
        ask.defaultText = *answer;
        const std::optional<std::string> storable = toStorableBytes(*answer);
        if (!storable) {
            prompts().inform(&window_, unstorableMessage(unstorableCharacters(*answer)));
            continue;
        }
        if (const auto problem = CheckSystemName(*storable)) {
            prompts().inform(&window_, toQString(*problem));
            continue;
        }
        // Game folders travel to Windows, where names differing only in case are one file.
        if (list_.findEntryIgnoringCase(*storable) < 0) return storable;
        const MessagePrompt overwrite = MessagePrompt::question(
            QStringLiteral("This system aready exists.  Are you sure you want to overwrite?"),
            kCaption, PromptButtons::YesNo, PromptIcon::Exclamation);
        if (prompts().message(&window_, overwrite) == PromptAnswer::Yes) return storable;
    }
}

void SystemSaveCommands::saveAs() {
    if (!session_.isOpen()) return;
    const std::optional<std::string> name = askSaveAsName();
    if (!name) return;
    const std::string oldName = session_.name();
    const bool saved = session_.saveAs(*name);
    if (session_.isOpen() && session_.name() == *name) {
        // A name equal to an entry but for the letter case is that entry, now spelled anew.
        int index = list_.findEntryIgnoringCase(*name);
        if (index < 0)
            index = list_.addEntry(*name);
        else
            list_.respellEntry(index, *name);
        lifecycle_.showAsOpen(index);
    }
    lifecycle_.followSession();
    if (!saved) {
        emit statusMessage(
            QStringLiteral("%1 was not saved as %2.").arg(toQString(oldName), toQString(*name)));
        report(&window_, false, session_.lastError());
        return;
    }
    if (!session_.lastWarning().empty())
        prompts().inform(&window_, toQString(session_.lastWarning()));
    emit statusMessage(QStringLiteral("Saved as %1.").arg(toQString(*name)));
}

void SystemSaveCommands::deleteSystem() {
    const int index = list_.currentIndex();
    if (index < 0) return;
    const std::string name = list_.entryName(index);
    MessagePrompt ask = MessagePrompt::question(
        QStringLiteral("Are you sure you want to delete ") + toQString(name) + QStringLiteral("?"),
        kCaption, PromptButtons::YesNo, PromptIcon::Exclamation);
    ask.defaultButton = PromptAnswer::No;
    if (prompts().message(&window_, ask) != PromptAnswer::Yes) return;
    const bool deleted = orr::deleteSystem(session_, name);
    // Whatever is left of it stays listed, so the user can try again.
    std::error_code error;
    if (!std::filesystem::exists(
            GameFolder::findInFolder(session_.folder().descriptorFolder(), name + ".orb"), error))
        list_.removeEntry(index);
    lifecycle_.followSession();
    if (report(&window_, deleted, session_.lastError()))
        emit statusMessage(QStringLiteral("Deleted %1.").arg(toQString(name)));
}

void SystemSaveCommands::clearPlanets() {
    if (!session_.isOpen()) return;
    const MessagePrompt ask = MessagePrompt::question(
        QStringLiteral("Are you sure you want to clear all planets, their messages, and pictures?"),
        QStringLiteral("Confirmation"), PromptButtons::YesNo, PromptIcon::Exclamation);
    if (prompts().message(&window_, ask) != PromptAnswer::Yes) return;
    report(&window_, orr::clearPlanets(session_), session_.lastError());
}

}  // namespace orr::ui
