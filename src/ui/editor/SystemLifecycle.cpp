#include "editor/SystemLifecycle.h"

#include <QComboBox>
#include <QGuiApplication>

#include "editor/StarView.h"
#include "editor/SystemCanvas.h"
#include "editor/frmNewSS.h"
#include "editor/frmSSEdit.h"
#include "platform/QtText.h"
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

QString shown(const std::string& name) {
    return toQString(name);
}

}  // namespace

SystemLifecycle::SystemLifecycle(frmSSEdit& window) : w_(window), saving_(window, *this) {}

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

void SystemLifecycle::respellEntry(int index, const std::string& name) {
    w_.cboSystems->setItemText(index, toQString(name));
    w_.cboSystems->setItemData(index, QByteArray::fromStdString(name));
}

void SystemLifecycle::removeEntry(int index) {
    reentryGuard_ = true;
    w_.cboSystems->removeItem(index);
    reentryGuard_ = false;
}

void SystemLifecycle::selectEntry(int index) {
    reentryGuard_ = true;
    w_.cboSystems->setCurrentIndex(index);
    reentryGuard_ = false;
}

void SystemLifecycle::showAsOpen(int index) {
    tag_ = index;
    selectEntry(index);
    w_.picSolarSystem->setSystemIndex(index);
    w_.DrawSystem(true);
}

MessagePrompt SystemLifecycle::saveQuestion(const std::string& newName) const {
    return MessagePrompt::question(
        QStringLiteral("Do you want to save the current system before loading '") + shown(newName) +
            QStringLiteral("'?"),
        frmSSEdit::kCaption, PromptButtons::YesNoCancel, PromptIcon::Question);
}

void SystemLifecycle::systemChosen(int index) {
    if (reentryGuard_) return;
    // The open entry chosen again means going back to its saved version.
    const MessagePrompt ask =
        index == tag_ ? MessagePrompt::question(
                            QStringLiteral("This will revert to the last saved version of '") +
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
            return saving_.commitOpenSystem();
        default:
            discardWorkingCopy();
            return true;
    }
}

void SystemLifecycle::discardWorkingCopy() {
    w_.report(w_.store().EndEdit(false));
}

void SystemLifecycle::openEntry(int index) {
    WaitCursor hourglass;
    SystemStore& store = w_.store();
    const std::string name = entryName(index);
    tag_ = index;
    if (w_.cboSystems->currentIndex() != index) selectEntry(index);
    store.record().Name = name;
    const bool editing = store.BeginEdit([this, &hourglass] {
        MessagePrompt ask = MessagePrompt::question(
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

bool SystemLifecycle::save() {
    return saving_.save();
}

void SystemLifecycle::saveAs() {
    saving_.saveAs();
}

void SystemLifecycle::deleteSystem() {
    saving_.deleteSystem();
}

void SystemLifecycle::clearPlanets() {
    saving_.clearPlanets();
}

bool SystemLifecycle::confirmExit() {
    const MessagePrompt ask = MessagePrompt::question(
        QStringLiteral("Do you want to save before exiting?"), frmSSEdit::kCaption,
        PromptButtons::YesNoCancel, PromptIcon::Question);
    return leaveOpenSystem(ask);
}

}  // namespace orr::ui
