#pragma once
// Opening the message editor the way the main window's planet menu and the planet dialog's
// "Edit" button do. Each parent window gets one editor window, made on first use and reused,
// so that the editor remembers which planet's groups it read last.
//
//     mainWindow.setMessageEditorOpener([&](int planet) {
//         openMessageEditor(&mainWindow, mainWindow.session(), planet);
//     });
//     connect(&mainWindow, &frmSSEdit::systemOpened,
//             &messageEditorFor(&mainWindow, mainWindow.session()), &frmMessages::markForReload);

#include "session/EditSession.h"

class QWidget;

namespace orr::ui {

class frmMessages;

// The editor window of `parent` (a top-level window of its own when parent is null).
frmMessages& messageEditorFor(QWidget* parent, EditSession& session);

// Opens the editor modally on `planet` of the open system, titled with the planet's name, with
// "Use Custom Messages" showing the planet's switch. Returns the box's value once it closed.
bool openMessageEditor(QWidget* parent, EditSession& session, int planet);
// The same with the box's starting value given by the caller.
bool openMessageEditor(QWidget* parent, EditSession& session, int planet, bool customMessages);

}  // namespace orr::ui
