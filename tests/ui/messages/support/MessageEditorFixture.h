#pragma once
// The message editor on a game folder of its own: a fresh temporary folder with the game's
// executable, the shipped SPECIAL.LST and the system "Nova" (three planets) opened for editing
// as the main window opens it. Every question is answered from a script and the choosers are
// answered by the test through `onDialog`.

#include <QStringList>
#include <QTemporaryDir>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "messages/frmMessages.h"
#include "platform/ScriptedPrompts.h"
#include "support/GameFixture.h"
#include "session/EditSession.h"

class QAbstractButton;
class QComboBox;
class QDialog;
class QListWidget;

namespace orr::test {

class MessageEditorFixture {
  public:
    enum class SpecialList { InGameFolder, Missing };

    // `sections` (CR LF lines) follows the system block of Nova.orb, e.g. planet sections.
    explicit MessageEditorFixture(std::string_view sections = {},
                                  SpecialList special = SpecialList::InGameFolder);
    ~MessageEditorFixture();
    MessageEditorFixture(const MessageEditorFixture&) = delete;
    MessageEditorFixture& operator=(const MessageEditorFixture&) = delete;

    TempGameFolder game{TempGameFolder::Contents::Bare};
    bool ok = false;  // the system could be opened
    EditSession session;
    ui::ScriptedPrompts prompts;

    // The window, made on first use.
    ui::frmMessages& window();
    // Opens the editor on a planet as the main window does (without running it modally) and
    // shows it.
    ui::frmMessages& open(int planet, bool customMessages = false);

    // The planet's key as stored in the working copy ("ERR" when absent).
    std::string key(int planet, const std::string& key);
    // The working copy's bytes.
    std::string descriptor() const;
    std::filesystem::path root() const;

    // Controls by object name; a test fails (and returns null) when one is missing.
    template <typename T>
    T* find(const char* name) {
        return window().findChild<T*>(QString::fromLatin1(name));
    }
    void click(const char* name);
    bool enabled(const char* name);
    bool visible(const char* name);

    void chooseDirection(int index);      // clicks optDir<index>
    void typeGroup(const QString& text);  // types into cboGroup's text
    void select(int row);                 // clicks an entry of lstMessages
    QStringList entries();                // lstMessages' texts
    QStringList items(const char* comboName);
    void type(const QString& text);  // replaces the text box's text
    // Picks the cboSpecial entry whose line begins with `code` + " - " and clicks "Add".
    void attach(const QString& code);
    QStringList attached();  // lstSpecial's texts

    // The next modal dialog the editor runs (a chooser) is given to `answer` instead of a
    // person; it should press a button or close the dialog.
    void onDialog(std::function<void(QDialog&)> answer);
    int dialogsRun() const { return dialogsRun_; }

  private:
    std::unique_ptr<ui::frmMessages> window_;
    std::deque<std::function<void(QDialog&)>> answers_;
    int dialogsRun_ = 0;
};

// A planet section: "[n]" then the lines, each ended by CR LF.
std::string section(int planet, std::initializer_list<std::string_view> lines);

}  // namespace orr::test
