#pragma once
// A prompt service for tests: answers are queued before the window asks, every question asked
// is recorded, and nothing ever blocks. Constructing one installs it as the program's service;
// destroying it puts the previous service back.
//
//     ScriptedPrompts prompts;
//     prompts.answerMessage(PromptAnswer::Yes);   // the next message box answers Yes
//     prompts.answerInput("Nova");                // the next input box answers "Nova"
//     ... drive the window ...
//     QCOMPARE(prompts.asked().front().text, "Are you sure ...");
//     QCOMPARE(prompts.unexpectedCount(), 0);
//
// A question with no queued answer of its kind is recorded as unexpected and answered as the
// user's Escape would: Cancel (No for Yes/No boxes, Ok for a box with only OK), nullopt for an
// input box, an empty path for the file and folder dialogs.

#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "platform/Prompts.h"

namespace orr::ui {

class ScriptedPrompts : public Prompts {
  public:
    enum class Kind { Message, Input, OpenFile, SaveFile, ChooseFolder };

    // One question as the window asked it.
    struct Asked {
        Kind kind = Kind::Message;
        QString text;     // message or input text; file dialog or folder chooser title
        QString caption;  // message and input boxes
        PromptButtons buttons = PromptButtons::Ok;
        PromptIcon icon = PromptIcon::None;
        std::optional<PromptAnswer> defaultButton;
        QString defaultText;  // input boxes
        QString filter;       // file dialogs, in the classic form the window gave
        QString folder;       // file dialogs
        bool unexpected = false;
    };

    ScriptedPrompts();
    ~ScriptedPrompts() override;
    ScriptedPrompts(const ScriptedPrompts&) = delete;
    ScriptedPrompts& operator=(const ScriptedPrompts&) = delete;

    // Queue answers, each kind in its own queue, used in order.
    void answerMessage(PromptAnswer answer);
    // Decides when asked, for tests that check the window's state at that moment.
    void answerMessageWith(std::function<PromptAnswer(const MessagePrompt&)> answer);
    void answerInput(std::optional<QString> answer);
    void answerFile(const QString& path);  // open and save dialogs alike
    void answerFolder(const QString& path);

    const std::vector<Asked>& asked() const { return asked_; }
    // The texts of the message boxes shown, in order.
    QStringList messageTexts() const;
    int unexpectedCount() const;
    // Answers queued but never asked for.
    int unusedAnswerCount() const;
    void clear();  // forgets questions and queued answers

    PromptAnswer message(QWidget* parent, const MessagePrompt& prompt) override;
    std::optional<QString> input(QWidget* parent, const InputPrompt& prompt) override;
    QString openFile(QWidget* parent, const FilePrompt& prompt) override;
    QString saveFile(QWidget* parent, const FilePrompt& prompt) override;
    QString chooseFolder(QWidget* parent, const QString& title) override;

  private:
    QString file(Kind kind, const FilePrompt& prompt);

    Prompts* previous_;
    std::deque<std::function<PromptAnswer(const MessagePrompt&)>> messageAnswers_;
    std::deque<std::optional<QString>> inputAnswers_;
    std::deque<QString> fileAnswers_;
    std::deque<QString> folderAnswers_;
    std::vector<Asked> asked_;
};

}  // namespace orr::ui
