#pragma once
// The life of the open system in the main window: the list of systems, opening one (with the
// revert, save and backup questions), new, and exit. A system is always edited in its working
// copy; these commands decide when that copy is committed over the saved descriptor and when it
// is thrown away. Save, Save As, Delete and Clear Planets are in SystemSaveCommands.

#include <QObject>
#include <string>

#include "platform/Prompts.h"

namespace orr {
class EditSession;
}

namespace orr::ui {

class SystemListBox;

class SystemLifecycle : public QObject {
    Q_OBJECT
  public:
    SystemLifecycle(QWidget& window, EditSession& session, SystemListBox& list);

    // Lists the saved descriptors of the game folder.
    void fillSystemList();
    // The list index of the open system, -1 when none is open.
    int openIndex() const { return openIndex_; }

    // The user chose an entry of the list (possibly the open one again).
    void systemChosen(int index);
    // Opens the system with this name as if chosen; false when there is none or it failed.
    bool openNamed(const std::string& name);
    void newSystem();
    // Asks what to do with a modified system; true when the program may end.
    bool confirmExit();

    // Before another system is opened: asks `question` when the open system is modified and
    // commits or discards its working copy. False when the user cancelled or the save failed.
    bool leaveOpenSystem(const MessagePrompt& question);
    // The open system as the list shows it, after a rename (Save As) or a delete.
    void showAsOpen(int index);
    // The list follows the session when it has no system open any more.
    void followSession();

  signals:
    void statusMessage(const QString& text);

  private:
    void openEntry(int index);
    MessagePrompt saveQuestion(const std::string& newName) const;

    QWidget& window_;
    EditSession& session_;
    SystemListBox& list_;
    int openIndex_ = -1;
};

}  // namespace orr::ui
