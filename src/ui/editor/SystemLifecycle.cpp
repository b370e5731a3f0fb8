#include "editor/SystemLifecycle.h"

#include <QBuffer>
#include <QComboBox>
#include <QGuiApplication>
#include <QImage>
#include <system_error>

#include "editor/StarView.h"
#include "editor/SystemCanvas.h"
#include "editor/frmNewSS.h"
#include "editor/frmSSEdit.h"
#include "platform/QtText.h"
#include "store/FileIo.h"
#include "store/SystemName.h"
#include "store/SystemOperations.h"
#include "text/Text.h"

namespace orr::ui {
namespace {

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

MessagePrompt question(const QString& text, const QString& caption, PromptButtons buttons,
                       PromptIcon icon) {
    MessagePrompt prompt;
    prompt.text = text;
    prompt.caption = caption;
    prompt.buttons = buttons;
    prompt.icon = icon;
    return prompt;
}

QString shown(const std::string& name) {
    return toQString(name);
}

}  // namespace

SystemLifecycle::SystemLifecycle(frmSSEdit& window) : w_(window) {}

void SystemLifecycle::fillSystemList() {
    const fs::path folder = w_.store().folder().descriptorFolder();
    for (const std::string& file : GameFolder::filesWithExtension(folder, ".orb"))
        addEntry(file.substr(0, file.size() - 4));
}

void SystemLifecycle::addEntry(const std::string& name) {
    // The raw name travels with the entry: the shown text is only its Unicode rendering.
    w_.cboSystems->addItem(toQString(name), QByteArray::fromStdString(name));
}

std::string SystemLifecycle::entryName(int index) const {
    if (index < 0 || index >= w_.cboSystems->count()) return {};
    return w_.cboSystems->itemData(index).toByteArray().toStdString();
}

int SystemLifecycle::findEntry(const std::string& name) const {
    for (int i = 0; i < w_.cboSystems->count(); ++i)
        if (entryName(i) == name) return i;
    return -1;
}

int SystemLifecycle::findEntryIgnoringCase(const std::string& name) const {
    const int exact = findEntry(name);
    if (exact >= 0) return exact;
    for (int i = 0; i < w_.cboSystems->count(); ++i)
        if (text::equalsIgnoreCase(entryName(i), name)) return i;
    return -1;
}

void SystemLifecycle::selectEntry(int index) {
    reentryGuard_ = true;
    w_.cboSystems->setCurrentIndex(index);
    reentryGuard_ = false;
}

MessagePrompt SystemLifecycle::saveQuestion(const std::string& newName) const {
    return question(QStringLiteral("Do you want to save the current system before loading '") +
                        shown(newName) + QStringLiteral("'?"),
                    frmSSEdit::kCaption, PromptButtons::YesNoCancel, PromptIcon::Question);
}

void SystemLifecycle::systemChosen(int index) {
    if (reentryGuard_) return;
    // The open entry chosen again means going back to its saved version.
    const MessagePrompt ask =
        index == tag_
            ? question(QStringLiteral("This will revert to the last saved version of '") +
                           shown(w_.store().record().Name) + QStringLiteral("'."),
                       frmSSEdit::kCaption, PromptButtons::OkCancel, PromptIcon::Information)
            : saveQuestion(entryName(index));
    if (!leaveOpenSystem(ask)) {
        selectEntry(tag_);
        return;
    }
    if (index < 0) {
        applyNoSelection();
        return;
    }
    openEntry(index);
}

bool SystemLifecycle::leaveOpenSystem(const MessagePrompt& ask) {
    SystemStore& store = w_.store();
    if (!store.IsEditing()) return true;
    if (!store.IsModified()) {
        discardWorkingCopy();
        return true;
    }
    switch (prompts().message(&w_, ask)) {
        case PromptAnswer::Cancel:
            return false;
        case PromptAnswer::Yes:
            return commitOpenSystem();
        default:
            discardWorkingCopy();
            return true;
    }
}

void SystemLifecycle::discardWorkingCopy() {
    w_.report(w_.store().EndEdit(false));
}

bool SystemLifecycle::commitOpenSystem() {
    SystemStore& store = w_.store();
    if (!saveSteps()) return false;
    if (store.EndEdit(true)) return true;
    w_.report(false);
    // The commit failed and the working copy is still there: keep editing it.
    reopenWorkingCopy(true);
    return false;
}

bool SystemLifecycle::reopenWorkingCopy(bool keepOld) {
    if (w_.store().BeginEdit([keepOld] { return keepOld; })) return true;
    // Without a working copy every change would go straight into the saved descriptor: leave
    // the system, as when it cannot be opened.
    w_.report(false);
    applyNoSelection();
    return false;
}

void SystemLifecycle::openEntry(int index) {
    WaitCursor hourglass;
    SystemStore& store = w_.store();
    const std::string name = entryName(index);
    tag_ = index;
    if (w_.cboSystems->currentIndex() != index) selectEntry(index);
    store.record().Name = name;
    const bool editing = store.BeginEdit([this, &hourglass] {
        MessagePrompt ask = question(
            QStringLiteral("There is a backup for this solar system, would you like to edit it?"),
            QStringLiteral("Backup Exists"), PromptButtons::YesNo, PromptIcon::Question);
        hourglass.restore();
        const bool useBackup = prompts().message(&w_, ask) == PromptAnswer::Yes;
        hourglass.show();
        return useBackup;
    });
    if (!editing) {
        hourglass.restore();
        w_.report(false);
        applyNoSelection();
        return;
    }
    const LoadResult loaded = store.LoadSystem(name);

    w_.showStarPicture();
    w_.picSolarSystem->setHighlightedPlanet(0);
    w_.picSolarSystem->setHighlightLocked(false);
    w_.picSolarSystem->setSystemIndex(index);
    w_.DrawSystem(true);
    w_.applyEnablingRules();
    loadPlanetPictures();
    emit w_.systemOpened();
    // The warning comes when the system shows what was kept of it.
    hourglass.restore();
    if (!loaded.warning.empty()) prompts().inform(&w_, toQString(loaded.warning));
}

void SystemLifecycle::loadPlanetPictures() {
    SystemStore& store = w_.store();
    const int count = store.record().PlanetCount;
    const auto file = count > 0 ? PictureStrip::findStripFile(store.folder().picturesFolder(),
                                                              store.record().Name)
                                : std::nullopt;
    if (file)
        w_.pictures().LoadPictures(*file, count);
    else
        w_.pictures().SetupPics(count);
}

void SystemLifecycle::applyNoSelection() {
    SystemRecord& record = w_.store().record();
    record.Name.clear();
    record.setDisplayName("");
    record.PlanetCount = 0;
    tag_ = -1;
    selectEntry(-1);
    w_.pictures().SetupPics(0);
    w_.picStar->clearPicture();
    w_.picSolarSystem->setHighlightedPlanet(0);
    w_.picSolarSystem->setHighlightLocked(false);
    w_.picSolarSystem->setSystemIndex(-1);
    w_.DrawSystem(true);
    w_.applyEnablingRules();
    emit w_.systemOpened();
}

bool SystemLifecycle::saveSteps() {
    if (!w_.report(w_.store().SaveSystemBlock())) return false;
    return savePlanetPictures() && saveStarPicture();
}

bool SystemLifecycle::savePlanetPictures() {
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
        prompts().inform(&w_, QStringLiteral("The old planet pictures of '") + shown(name) +
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

bool SystemLifecycle::saveStarPicture() {
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

bool SystemLifecycle::save() {
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

std::optional<std::string> SystemLifecycle::askSaveAsName() {
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
        if (findEntryIgnoringCase(name) < 0) return name;
        const MessagePrompt overwrite = question(
            QStringLiteral("This system aready exists.  Are you sure you want to overwrite?"),
            frmSSEdit::kCaption, PromptButtons::YesNo, PromptIcon::Exclamation);
        if (prompts().message(&w_, overwrite) == PromptAnswer::Yes) return name;
    }
}

void SystemLifecycle::saveAs() {
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
    int index = findEntryIgnoringCase(*name);
    if (index < 0) {
        addEntry(*name);
        index = w_.cboSystems->count() - 1;
    } else {
        w_.cboSystems->setItemText(index, toQString(*name));
        w_.cboSystems->setItemData(index, QByteArray::fromStdString(*name));
    }
    // A failed fresh working copy has left the system already.
    if (!store.IsEditing()) return;
    tag_ = index;
    selectEntry(index);
    w_.picSolarSystem->setSystemIndex(index);
    w_.DrawSystem(true);
}

std::optional<SystemLifecycle::NewSystemChoice> SystemLifecycle::askNewSystemName() {
    frmNewSS dialog(w_.store().folder(), &w_);
    w_.runDialog(dialog);
    if (dialog.tag().isEmpty()) return std::nullopt;
    return NewSystemChoice{dialog.tagBytes(), dialog.customChosen() ? NewSystemAnswer::CustomName
                                                                    : NewSystemAnswer::ListedKey};
}

void SystemLifecycle::newSystem() {
    const std::optional<NewSystemChoice> answer = askNewSystemName();
    if (!answer) return;
    SystemStore& store = w_.store();
    if (const auto refusal = canCreateSystem(store, answer->name, answer->kind)) {
        prompts().inform(&w_, toQString(*refusal));
        return;
    }
    if (!leaveOpenSystem(saveQuestion(answer->name))) return;
    if (!w_.report(createSystem(store, answer->name, answer->kind))) {
        applyNoSelection();
        return;
    }
    addEntry(answer->name);
    openEntry(w_.cboSystems->count() - 1);
}

void SystemLifecycle::deleteSystem() {
    const int index = w_.cboSystems->currentIndex();
    if (index < 0) return;
    const std::string name = entryName(index);
    MessagePrompt ask = question(
        QStringLiteral("Are you sure you want to delete ") + shown(name) + QStringLiteral("?"),
        frmSSEdit::kCaption, PromptButtons::YesNo, PromptIcon::Exclamation);
    ask.defaultButton = PromptAnswer::No;
    if (prompts().message(&w_, ask) != PromptAnswer::Yes) return;
    SystemStore& store = w_.store();
    if (store.IsEditing()) discardWorkingCopy();
    const bool deleted = w_.report(deleteSystemFiles(store, name));
    reentryGuard_ = true;
    w_.cboSystems->removeItem(index);
    reentryGuard_ = false;
    applyNoSelection();
    if (!deleted) {
        // Whatever is left of it stays listed, so the user can try again.
        if (fs::exists(store.descriptorPath(name, ".orb"))) addEntry(name);
    }
}

void SystemLifecycle::clearPlanets() {
    if (!w_.hasOpenSystem()) return;
    const MessagePrompt ask = question(
        QStringLiteral("Are you sure you want to clear all planets, their messages, and pictures?"),
        QStringLiteral("Confirmation"), PromptButtons::YesNo, PromptIcon::Exclamation);
    if (prompts().message(&w_, ask) != PromptAnswer::Yes) return;
    w_.report(orr::clearPlanets(w_.store(), &w_.pictures()));
    w_.picSolarSystem->setHighlightedPlanet(0);
    w_.DrawSystem(true);
    w_.applyEnablingRules();
}

bool SystemLifecycle::confirmExit() {
    const MessagePrompt ask =
        question(QStringLiteral("Do you want to save before exiting?"), frmSSEdit::kCaption,
                 PromptButtons::YesNoCancel, PromptIcon::Question);
    return leaveOpenSystem(ask);
}

}  // namespace orr::ui
