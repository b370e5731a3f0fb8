#pragma once
// The main window's commands that write or remove the open system's files: save, save as,
// delete and clear planets, and the commit that a save question leads to. SystemLifecycle owns
// this object and keeps the list of systems and the opening and closing of one; the two work on
// the same window.

#include <optional>
#include <string>

namespace orr::ui {

class frmSSEdit;
class SystemLifecycle;

class SystemSaveCommands {
  public:
    SystemSaveCommands(frmSSEdit& window, SystemLifecycle& lifecycle);

    bool save();
    void saveAs();
    void deleteSystem();
    void clearPlanets();
    // Save steps and the commit of the working copy over the saved descriptor, as the answer
    // Yes to a save question does; when the commit fails the working copy stays open for editing.
    bool commitOpenSystem();

  private:
    // Steps of Save that come before the commit: block, planet pictures, star picture.
    bool saveSteps();
    bool savePlanetPictures();
    bool saveStarPicture();
    // BeginEdit after a save: keepOld edits on in the old working copy (the commit failed).
    // When no working copy can be made the system is left, as when it cannot be opened.
    bool reopenWorkingCopy(bool keepOld);
    std::optional<std::string> askSaveAsName();

    frmSSEdit& w_;
    SystemLifecycle& lifecycle_;
};

}  // namespace orr::ui
