#pragma once
// The real prompt service: Qt's message boxes, input boxes, file and folder dialogs.

#include "platform/Prompts.h"

namespace orr::ui {

class QtPrompts : public Prompts {
  public:
    PromptAnswer message(QWidget* parent, const MessagePrompt& prompt) override;
    std::optional<QString> input(QWidget* parent, const InputPrompt& prompt) override;
    QString openFile(QWidget* parent, const FilePrompt& prompt) override;
    QString saveFile(QWidget* parent, const FilePrompt& prompt) override;
    QString chooseFolder(QWidget* parent, const QString& title) override;

    // The classic "Name|*.A;*.B|Name|*.C" filter in Qt's "Name (*.A *.B);;Name (*.C)" form. A
    // name that already lists its patterns in brackets is not given them twice; "*.*" becomes
    // "*", since on this platform a file need not have an extension. An unpaired last name is
    // taken as a pattern list of its own.
    static QString qtFileFilter(const QString& classic);

    // What a box answers when the user closes it without choosing: Cancel, No for a Yes/No box,
    // Ok for a box with only OK.
    static PromptAnswer escapeAnswer(PromptButtons buttons);
};

}  // namespace orr::ui
