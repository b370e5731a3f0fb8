#pragma once
// The README's pictures, taken by the editor of its own windows (hidden command-line options
// --screenshot and --screenshot-messages): the main window with the pointer resting on the
// second planet, and the message editor on the second planet showing the responses of group
// "Treaty" with the first being edited. Each saves its picture once the layout has settled and
// ends the program.

#include <QString>

namespace orr::ui {
class frmSSEdit;
}

namespace orr::app {

void screenshotMainWindow(ui::frmSSEdit& window, const QString& file);
// False (after saying why) when the open system has no such planet or group.
bool screenshotMessageEditor(ui::frmSSEdit& window, const QString& file);
// Ends a picture run that could not be taken, leaving no working copy behind.
void closeWithoutSaving(ui::frmSSEdit& window);

}  // namespace orr::app
