#include "platform/Modal.h"

#include <QDialog>
#include <QMenu>

#include "platform/Prompts.h"
#include "platform/QtText.h"

namespace orr::ui {

namespace {

DialogRunner& dialogRunner() {
    static DialogRunner runner;
    return runner;
}

MenuRunner& menuRunner() {
    static MenuRunner runner;
    return runner;
}

}  // namespace

void runDialog(QDialog& dialog) {
    if (dialogRunner())
        dialogRunner()(dialog);
    else
        dialog.exec();
}

void runMenu(QMenu& menu, const QPoint& globalPos) {
    if (menuRunner())
        menuRunner()(menu, globalPos);
    else
        menu.exec(globalPos);
}

DialogRunner setDialogRunner(DialogRunner runner) {
    std::swap(dialogRunner(), runner);
    return runner;
}

MenuRunner setMenuRunner(MenuRunner runner) {
    std::swap(menuRunner(), runner);
    return runner;
}

bool report(QWidget* parent, bool ok, const std::string& reason, const char* fallback) {
    if (ok) return true;
    MessagePrompt prompt;
    prompt.text = reason.empty() ? QString::fromLatin1(fallback) : toQString(reason);
    prompt.icon = PromptIcon::Exclamation;
    prompts().message(parent, prompt);
    return false;
}

}  // namespace orr::ui
