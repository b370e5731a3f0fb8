#pragma once
// Modal dialogs and context menus are run through here, so that a test can fill in a dialog or
// pick a menu entry instead of a person; the program runs them with exec(). Like the prompt
// service, a test installs its own runners and removes them when it ends.

#include <QPoint>
#include <functional>
#include <string>

class QDialog;
class QMenu;
class QWidget;

namespace orr::ui {

using DialogRunner = std::function<void(QDialog& dialog)>;
using MenuRunner = std::function<void(QMenu& menu, const QPoint& globalPos)>;

void runDialog(QDialog& dialog);
void runMenu(QMenu& menu, const QPoint& globalPos);

// Installs runners (an empty function restores exec()); returns the previous one.
DialogRunner setDialogRunner(DialogRunner runner);
MenuRunner setMenuRunner(MenuRunner runner);

// Shows `reason` (or `fallback` when it is empty) as a warning when `ok` is false; returns `ok`.
// The one way windows report a change that could not be made.
bool report(QWidget* parent, bool ok, const std::string& reason,
            const char* fallback = "The change could not be written to the system's file.");

}  // namespace orr::ui
