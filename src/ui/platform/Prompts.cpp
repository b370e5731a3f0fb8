#include "platform/Prompts.h"

#include "platform/QtPrompts.h"

namespace orr::ui {

namespace {

Prompts* replacement = nullptr;

}  // namespace

void Prompts::inform(QWidget* parent, const QString& text, const QString& caption) {
    MessagePrompt prompt;
    prompt.text = text;
    prompt.caption = caption;
    message(parent, prompt);
}

Prompts& prompts() {
    static QtPrompts real;
    return replacement ? *replacement : real;
}

void setPrompts(Prompts* prompts) {
    replacement = prompts;
}

}  // namespace orr::ui
