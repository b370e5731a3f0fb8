#include "editor/SystemSaveCommands.h"

#include <QBuffer>
#include <QComboBox>
#include <QImage>
#include <system_error>

#include "editor/StarView.h"
#include "editor/SystemCanvas.h"
#include "editor/SystemLifecycle.h"
#include "editor/frmSSEdit.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "store/FileIo.h"
#include "store/SystemName.h"
#include "store/SystemOperations.h"
#include "text/Text.h"

namespace orr::ui {
SystemSaveCommands::SystemSaveCommands(frmSSEdit& window, SystemLifecycle& lifecycle)
    : w_(window), lifecycle_(lifecycle) {}

bool SystemSaveCommands::commitOpenSystem() {
    SystemStore& store = w_.store();
    if (!saveSteps()) return false;
    if (store.EndEdit(true)) return true;
    w_.report(false);
    // The commit failed and the working copy is still there: keep editing it.
    reopenWorkingCopy(true);
    return false;
}

bool SystemSaveCommands::reopenWorkingCopy(bool keepOld) {
    if (w_.store().BeginEdit([keepOld] { return keepOld; })) return true;
    // Without a working copy every change would go straight into the saved descriptor: leave
    // the system, as when it cannot be opened.
    w_.report(false);
    lifecycle_.applyNoSelection();
    return false;
}

bool SystemSaveCommands::saveSteps() {
    if (!w_.report(w_.store().SaveSystemBlock())) return false;
    return savePlanetPictures() && saveStarPicture();
}

bool SystemSaveCommands::savePlanetPictures() {
    PictureStrip& strip = w_.pictures();
    if (!strip.isDirty()) return true;
    const SystemStore& store = w_.store();
    const fs::path folder = store.folder().picturesFolder();
    const std::string& name = store.record().Name;
    if (!strip.hasAnyPicture()) {
        if (PictureStrip::deleteStripFiles(folder, name)) {
            strip.clearDirty();
            return true;
        }
        prompts().inform(&w_, QStringLiteral("The old planet pictures of '") + toQString(name) +
                                  QStringLiteral("' could not be deleted."));
        return false;
    }
    std::error_code ec;
    fs::create_directories(folder, ec);
    const fs::path target = GameFolder::findInFolder(folder, name + ".bmp");
    if (!strip.SavePictures(target)) {
        prompts().inform(&w_, QStringLiteral("The planet pictures could not be saved as '") +
                                  toQString(target.filename().string()) + QStringLiteral("'."));
        return false;
    }
    // A strip saved earlier in another picture format would otherwise be found first.
    for (const fs::path& old : PictureStrip::stripFiles(folder, name))
        if (old.filename() != target.filename()) fs::remove(old, ec);
    return true;
}

bool SystemSaveCommands::saveStarPicture() {
    const SystemStore& store = w_.store();
    const fs::path folder = store.folder().picturesFolder();
    const std::string starName = store.record().Name + "Sun";
    fs::path kept;
    if (w_.starHasOwnPicture()) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        std::string error;
        std::error_code ec;
        fs::create_directories(folder, ec);
        kept = GameFolder::findInFolder(folder, starName + ".bmp");
        if (!w_.picStar->picture().save(&buffer, "BMP") ||
            !writeFileAtomically(kept, std::string_view(bytes.constData(), bytes.size()), &error)) {
            prompts().inform(
                &w_, QStringLiteral("The star picture could not be saved: ") + toQString(error));
            return false;
        }
    }
    // Every other picture of this star goes: only the one just saved may remain.
    for (const fs::path& file : systemPictureFiles(store.folder(), store.record().Name)) {
        const std::string fileName = file.filename().string();
        const auto dot = fileName.rfind('.');
        if (dot == std::string::npos || !text::equalsIgnoreCase(fileName.substr(0, dot), starName))
            continue;
        if (file.filename() == kept.filename()) continue;
        std::error_code ec;
        fs::remove(file, ec);
    }
    return true;
}

bool SystemSaveCommands::save() {
    SystemStore& store = w_.store();
    if (!store.IsEditing()) return false;
    if (!saveSteps()) return false;
    const bool committed = w_.report(store.EndEdit(true));
    // A fresh working copy equal to the saved file; after a failed commit the old working copy
    // (with every change) is kept instead.
    if (!reopenWorkingCopy(!committed)) return false;
    w_.applyEnablingRules();
    return committed;
}

std::optional<std::string> SystemSaveCommands::askSaveAsName() {
    InputPrompt ask;
    ask.text = QStringLiteral("Please enter the new name of this system.");
    ask.caption = frmSSEdit::kCaption;
    ask.defaultText = toQString(w_.store().record().Name);
    for (;;) {
        const std::optional<QString> answer = prompts().input(&w_, ask);
        if (!answer || answer->isEmpty()) return std::nullopt;
        ask.defaultText = *answer;
        const std::optional<std::string> storable = toStorableBytes(*answer);
        if (!storable) {
            prompts().inform(&w_, unstorableMessage(unstorableCharacters(*answer)));
            continue;
        }
        const std::string& name = *storable;
        if (const auto problem = CheckSystemName(name)) {
            prompts().inform(&w_, toQString(*problem));
            continue;
        }
        // Game folders travel to Windows, where names differing only in case are one file.
        if (lifecycle_.findEntryIgnoringCase(name) < 0) return name;
        const MessagePrompt overwrite = MessagePrompt::question(
            QStringLiteral("This system aready exists.  Are you sure you want to overwrite?"),
            frmSSEdit::kCaption, PromptButtons::YesNo, PromptIcon::Exclamation);
        if (prompts().message(&w_, overwrite) == PromptAnswer::Yes) return name;
    }
}

void SystemSaveCommands::saveAs() {
    SystemStore& store = w_.store();
    if (!store.IsEditing()) return;
    const std::optional<std::string> name = askSaveAsName();
    if (!name) return;
    const std::string oldName = store.record().Name;
    if (!w_.report(store.RenameSystem(*name))) return;
    // The saved pictures go with the new name (an overwritten system's own are replaced); the
    // old system keeps its files. The strip in memory may hold unsaved changes and is written
    // under the new name in any case.
    std::string error;
    if (!replaceSystemPictures(store.folder(), oldName, *name, &error))
        prompts().inform(&w_, toQString(error));
    w_.pictures().setDirty();
    save();
    // A name equal to an entry but for the letter case is that entry, now spelled anew.
    int index = lifecycle_.findEntryIgnoringCase(*name);
    if (index < 0) {
        lifecycle_.addEntry(*name);
        index = w_.cboSystems->count() - 1;
    } else {
        lifecycle_.respellEntry(index, *name);
    }
    // A failed fresh working copy has left the system already.
    if (!store.IsEditing()) return;
    lifecycle_.showAsOpen(index);
}

void SystemSaveCommands::deleteSystem() {
    const int index = w_.cboSystems->currentIndex();
    if (index < 0) return;
    const std::string name = lifecycle_.entryName(index);
    MessagePrompt ask = MessagePrompt::question(
        QStringLiteral("Are you sure you want to delete ") + toQString(name) + QStringLiteral("?"),
        frmSSEdit::kCaption, PromptButtons::YesNo, PromptIcon::Exclamation);
    ask.defaultButton = PromptAnswer::No;
    if (prompts().message(&w_, ask) != PromptAnswer::Yes) return;
    SystemStore& store = w_.store();
    if (store.IsEditing()) lifecycle_.discardWorkingCopy();
    const bool deleted = w_.report(deleteSystemFiles(store, name));
    lifecycle_.removeEntry(index);
    lifecycle_.applyNoSelection();
    if (!deleted) {
        // Whatever is left of it stays listed, so the user can try again.
        if (fs::exists(store.descriptorPath(name, ".orb"))) lifecycle_.addEntry(name);
    }
}

void SystemSaveCommands::clearPlanets() {
    if (!w_.hasOpenSystem()) return;
    const MessagePrompt ask = MessagePrompt::question(
        QStringLiteral("Are you sure you want to clear all planets, their messages, and pictures?"),
        QStringLiteral("Confirmation"), PromptButtons::YesNo, PromptIcon::Exclamation);
    if (prompts().message(&w_, ask) != PromptAnswer::Yes) return;
    w_.report(orr::clearPlanets(w_.store(), &w_.pictures()));
    w_.picSolarSystem->setHighlightedPlanet(0);
    w_.DrawSystem(true);
    w_.applyEnablingRules();
}

}  // namespace orr::ui
