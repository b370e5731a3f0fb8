#pragma once
// Every message box, input box and file or folder dialog of the program goes through a Prompts
// object, so the windows never call QMessageBox or QFileDialog themselves and tests answer the
// questions in advance (ScriptedPrompts).

#include <QString>
#include <optional>

class QWidget;

namespace orr::ui {

enum class PromptButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class PromptIcon { None, Information, Question, Exclamation, Critical };
enum class PromptAnswer { Ok, Cancel, Yes, No };

struct MessagePrompt {
    QString text;
    QString caption = QStringLiteral("Orrerion");
    PromptButtons buttons = PromptButtons::Ok;
    PromptIcon icon = PromptIcon::None;
    std::optional<PromptAnswer> defaultButton;  // the platform's default when unset

    static MessagePrompt question(const QString& text, const QString& caption,
                                  PromptButtons buttons, PromptIcon icon) {
        MessagePrompt prompt;
        prompt.text = text;
        prompt.caption = caption;
        prompt.buttons = buttons;
        prompt.icon = icon;
        return prompt;
    }
};

struct InputPrompt {
    QString text;
    QString caption = QStringLiteral("Orrerion");
    QString defaultText;
};

struct FilePrompt {
    QString title;
    QString filter;  // in the classic "Name|*.A;*.B|Name|*.C" form
    QString folder;
};

class Prompts {
  public:
    virtual ~Prompts() = default;
    virtual PromptAnswer message(QWidget* parent, const MessagePrompt& prompt) = 0;
    // nullopt when cancelled; an empty string when the user confirmed an empty text.
    virtual std::optional<QString> input(QWidget* parent, const InputPrompt& prompt) = 0;
    // Empty when cancelled.
    virtual QString openFile(QWidget* parent, const FilePrompt& prompt) = 0;
    // The file to write (it may exist: the dialog asked before replacing it); empty when
    // cancelled.
    virtual QString saveFile(QWidget* parent, const FilePrompt& prompt) = 0;
    virtual QString chooseFolder(QWidget* parent, const QString& title) = 0;

    // Shorthands.
    void inform(QWidget* parent, const QString& text, const QString& caption = "Orrerion");
};

// The service the program uses; the real dialogs unless a test installed its own.
Prompts& prompts();
void setPrompts(Prompts* replacement);  // nullptr restores the real dialogs

}  // namespace orr::ui
