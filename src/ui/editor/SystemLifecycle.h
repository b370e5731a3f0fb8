#pragma once
// The life of the open system in the main window: the list of systems, opening one (with the
// revert and save questions), new and exit. A system is always edited in its working copy; these
// commands decide when that copy is committed over the saved descriptor and when it is thrown
// away. Save, save as, delete and clear planets are carried out by SystemSaveCommands.

#include <QString>
#include <optional>
#include <string>

#include "editor/SystemSaveCommands.h"
#include "platform/Prompts.h"
#include "store/SystemOperations.h"

namespace orr::ui {

class frmSSEdit;

class SystemLifecycle {
  public:
    explicit SystemLifecycle(frmSSEdit& window);

    // Lists the saved descriptors of the game folder in cboSystems.
    void fillSystemList();
    // The list index of the open system, -1 when none is open.
    int tag() const { return tag_; }
    // The system name (the game's 8-bit text) of a list entry.
    std::string entryName(int index) const;
    // The entry with exactly this name, -1 when none.
    int findEntry(const std::string& name) const;
    // The entry with this name, else one that differs only in letter case; -1 when none.
    int findEntryIgnoringCase(const std::string& name) const;

    // The user chose an entry of cboSystems (possibly the open one again).
    void systemChosen(int index);
    void newSystem();
    bool save();
    void saveAs();
    void deleteSystem();
    void clearPlanets();
    // Asks what to do with a modified system; true when the program may end.
    bool confirmExit();

    // Nothing open: empty record, empty canvas, no star, commands off.
    void applyNoSelection();
    // Throws the open system's working copy away.
    void discardWorkingCopy();

    // List changes that do not count as the user's choice.
    void addEntry(const std::string& name);
    // The entry names this system again, in another spelling.
    void respellEntry(int index, const std::string& name);
    void removeEntry(int index);
    // Shows the entry as the open system (after its name changed under it).
    void showAsOpen(int index);

  private:
    // Before another system is opened: asks `question` when the open system is modified and
    // commits or discards its working copy. False when the user cancelled or the save failed.
    bool leaveOpenSystem(const MessagePrompt& question);
    void openEntry(int index);
    void loadPlanetPictures();
    // Selects an entry without it counting as the user's choice.
    void selectEntry(int index);
    // The answer of the Add System dialog and whether it was typed as a custom name.
    struct NewSystemChoice {
        std::string name;
        NewSystemAnswer kind = NewSystemAnswer::ListedKey;
    };
    std::optional<NewSystemChoice> askNewSystemName();
    MessagePrompt saveQuestion(const std::string& newName) const;

    frmSSEdit& w_;
    int tag_ = -1;
    bool reentryGuard_ = false;
    SystemSaveCommands saving_;
};

}  // namespace orr::ui
