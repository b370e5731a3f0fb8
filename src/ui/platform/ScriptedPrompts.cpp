#include "platform/ScriptedPrompts.h"

#include <QStringList>
#include <algorithm>

#include "platform/QtPrompts.h"

namespace orr::ui {

ScriptedPrompts::ScriptedPrompts() : previous_(&prompts()) {
    setPrompts(this);
}

ScriptedPrompts::~ScriptedPrompts() {
    // The real service is restored as "no replacement", so a later test starts clean.
    setPrompts(dynamic_cast<QtPrompts*>(previous_) ? nullptr : previous_);
}

void ScriptedPrompts::answerMessage(PromptAnswer answer) {
    messageAnswers_.push_back([answer](const MessagePrompt&) { return answer; });
}

void ScriptedPrompts::answerMessageWith(std::function<PromptAnswer(const MessagePrompt&)> answer) {
    messageAnswers_.push_back(std::move(answer));
}

void ScriptedPrompts::answerInput(std::optional<QString> answer) {
    inputAnswers_.push_back(std::move(answer));
}

void ScriptedPrompts::answerFile(const QString& path) {
    fileAnswers_.push_back(path);
}

void ScriptedPrompts::answerFolder(const QString& path) {
    folderAnswers_.push_back(path);
}

QStringList ScriptedPrompts::messageTexts() const {
    QStringList texts;
    for (const Asked& a : asked_) {
        if (a.kind == Kind::Message) texts << a.text;
    }
    return texts;
}

int ScriptedPrompts::unexpectedCount() const {
    return static_cast<int>(
        std::count_if(asked_.begin(), asked_.end(), [](const Asked& a) { return a.unexpected; }));
}

int ScriptedPrompts::unusedAnswerCount() const {
    return static_cast<int>(messageAnswers_.size() + inputAnswers_.size() + fileAnswers_.size() +
                            folderAnswers_.size());
}

void ScriptedPrompts::clear() {
    messageAnswers_.clear();
    inputAnswers_.clear();
    fileAnswers_.clear();
    folderAnswers_.clear();
    asked_.clear();
}

PromptAnswer ScriptedPrompts::message(QWidget*, const MessagePrompt& prompt) {
    Asked a;
    a.kind = Kind::Message;
    a.text = prompt.text;
    a.caption = prompt.caption;
    a.buttons = prompt.buttons;
    a.icon = prompt.icon;
    a.defaultButton = prompt.defaultButton;
    a.unexpected = messageAnswers_.empty();
    asked_.push_back(a);
    if (messageAnswers_.empty()) return QtPrompts::escapeAnswer(prompt.buttons);
    auto answer = std::move(messageAnswers_.front());
    messageAnswers_.pop_front();
    return answer(prompt);
}

std::optional<QString> ScriptedPrompts::input(QWidget*, const InputPrompt& prompt) {
    Asked a;
    a.kind = Kind::Input;
    a.text = prompt.text;
    a.caption = prompt.caption;
    a.defaultText = prompt.defaultText;
    a.unexpected = inputAnswers_.empty();
    asked_.push_back(a);
    if (inputAnswers_.empty()) return std::nullopt;
    const bool confirmed = inputAnswers_.front().has_value();
    const QString text = inputAnswers_.front().value_or(QString());
    inputAnswers_.pop_front();
    if (!confirmed) return std::nullopt;
    return text;
}

QString ScriptedPrompts::openFile(QWidget*, const FilePrompt& prompt) {
    return file(Kind::OpenFile, prompt);
}

QString ScriptedPrompts::saveFile(QWidget*, const FilePrompt& prompt) {
    return file(Kind::SaveFile, prompt);
}

QString ScriptedPrompts::file(Kind kind, const FilePrompt& prompt) {
    Asked a;
    a.kind = kind;
    a.text = prompt.title;
    a.filter = prompt.filter;
    a.folder = prompt.folder;
    a.unexpected = fileAnswers_.empty();
    asked_.push_back(a);
    if (fileAnswers_.empty()) return {};
    QString answer = fileAnswers_.front();
    fileAnswers_.pop_front();
    return answer;
}

QString ScriptedPrompts::chooseFolder(QWidget*, const QString& title) {
    Asked a;
    a.kind = Kind::ChooseFolder;
    a.text = title;
    a.unexpected = folderAnswers_.empty();
    asked_.push_back(a);
    if (folderAnswers_.empty()) return {};
    QString answer = folderAnswers_.front();
    folderAnswers_.pop_front();
    return answer;
}

}  // namespace orr::ui
