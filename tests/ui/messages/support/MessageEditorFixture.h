#pragma once
// The message editor on a game folder of its own (TempGameFolder) with the shipped SPECIAL.LST
// and the system "Nova" (three planets) open as the main window opens it. Questions are answered
// from a script (prompts), dialogs and menus by the test (answerNext); a question, dialog or menu
// nobody expected, or an answer never used, fails the test when the fixture ends.

// The widgets every test of the editor reaches into.
#include <QtWidgets>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "messages/frmMessages.h"
#include "platform/Modal.h"
#include "platform/ScriptedPrompts.h"
#include "support/GameFixture.h"

namespace orr::test {

class MessageEditorFixture {
  public:
    // `sections` (CR LF lines) follows the system block of Nova.orb, e.g. planet sections.
    explicit MessageEditorFixture(std::string_view sections = {});
    ~MessageEditorFixture();
    MessageEditorFixture(const MessageEditorFixture&) = delete;
    MessageEditorFixture& operator=(const MessageEditorFixture&) = delete;

    TempGameFolder game{TempGameFolder::Contents::Bare};
    EditSession session;
    ui::ScriptedPrompts prompts;

    ui::frmMessages& window();  // made on first use
    // Opens the editor on a planet as the main window does, without a modal loop of its own, and
    // makes it the active window.
    ui::frmMessages& open(int planet, bool customMessages = false);
    std::string key(int planet, const std::string& key);  // as stored ("ERR" when absent)

    // The next dialog (QDialog or a chooser) or menu (QMenu) the editor runs goes to `answer`.
    template <typename T>
    void answerNext(std::function<void(T&)> answer) {
        answers_.push_back([answer](QWidget& widget) { answer(dynamic_cast<T&>(widget)); });
    }

    // Controls by object name.
    template <typename T>
    T* find(const char* name) {
        return window().findChild<T*>(QString::fromLatin1(name));
    }
    void click(const char* name);
    bool enabled(const char* name) { return find<QWidget>(name)->isEnabled(); }
    bool visible(const char* name) { return find<QWidget>(name)->isVisible(); }
    // The text of a label, line edit, text box or combo box, or a frame's title.
    QString text(const char* name);
    QStringList items(const char* name);  // a combo box's items or a list's entries
    QStringList entries() { return items("lstMessages"); }

    void chooseDirection(int index) { click(qPrintable(QStringLiteral("optDir%1").arg(index))); }
    void typeGroup(const QString& text);  // types into cboGroup's text
    void select(int row);                 // clicks an entry of lstMessages
    void edit(int row) {                  // selects an entry and clicks "Edit"
        select(row);
        click("cmdEdit");
    }
    void type(const QString& text) {  // replaces the text box's text
        find<QPlainTextEdit>("txtMessage")->setPlainText(text);
    }
    // The cboSpecial entry whose line begins with `code` + " - "; attach picks it and clicks
    // "Add".
    int specialIndex(const QString& code);
    void attach(const QString& code);
    void selectAttached(int row) { find<QListWidget>("lstSpecial")->setCurrentRow(row); }

  private:
    bool answer(QWidget& widget);

    std::unique_ptr<ui::frmMessages> window_;
    std::deque<std::function<void(QWidget&)>> answers_;
    int unexpectedRuns_ = 0;
    ui::DialogRunner previousDialogs_;
    ui::MenuRunner previousMenus_;
};

// A planet section: "[n]" then the lines, each ended by CR LF.
std::string section(int planet, std::initializer_list<std::string_view> lines);

}  // namespace orr::test
