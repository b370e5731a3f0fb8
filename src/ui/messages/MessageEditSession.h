#pragma once
// The message editor's working state and its rules: which planet, direction and group are
// shown, which groups exist (found by following the answer tags), whether a line is being
// edited, and every command on the list. Lines are read and written key by key through the
// planet's MessageStore as each command runs; nothing is kept back for later.
//
// States: browsing (the list and its buttons), editing a message or response (the text box, the
// edit buttons, the option frames), editing the information text (always, while "Information"
// is chosen).

#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "messages/MessageGroups.h"
#include "messages/MessageKeys.h"
#include "messages/MessageList.h"
#include "messages/PlanetMessageStore.h"
#include "messages/SpecialCodeList.h"
#include "session/EditSession.h"
#include "session/MessageEdits.h"

namespace orr::ui {

class MessageLineForm;
class frmMessages;

class MessageEditSession {
  public:
    static inline const QString kLoadingGroups = QStringLiteral("Loading Groups");
    static inline const QString kRemoveQuestion =
        QStringLiteral("Are you sure you want to remove this message?");
    static inline const QString kClearQuestion =
        QStringLiteral("Are you sure you want to clear all messages in this group?");

    MessageEditSession(frmMessages& window, EditSession& session, MessageLineForm& form,
                       const SpecialCodeList& codes);

    void setPlanet(int planet);
    int planet() const { return planet_; }
    MessageStore& messages();

    // Activation: a skip mark makes the next activation do nothing (set while one of the
    // editor's own dialogs is open); otherwise the groups are read again when the planet or the
    // system's display name changed, or the reload mark is set. Returns whether it reloaded.
    void setSkipMark() { skipMark_ = true; }
    bool activated();
    void markForReload() { reloadMark_ = true; }
    bool reloadMarked() const { return reloadMark_; }
    // Shows the current direction and group again from the file, without looking for groups.
    void refresh();

    Direction direction() const { return direction_; }
    const std::string& group() const { return group_; }
    bool isEditing() const { return editing_; }
    int scanCount() const { return scanCount_; }  // how often the groups were looked for

    // Commands, as the controls run them.
    void chooseDirection(Direction direction);
    void groupChosen(int index);
    void groupTextEdited(const QString& text);
    void addGroup();
    // The group box lost the focus: a name typed there is taken up (see adoptTypedGroup).
    void groupBoxLeft();
    void lineSelected(int row);
    void newLine();
    void editLine();
    void editRow(int row);
    void save();
    void cancel();
    void deleteEdited();
    void removeLine();
    void clearAll();
    void swapLine(int which);  // 0 up, 1 down
    void goToAnswer();
    void textEdited();     // the text box changed
    void optionsEdited();  // an option, the answer group or the codes changed
    void insertCode(int label);
    void customSwitchClicked(bool on);
    void close();

  private:
    // Marks the controls as being filled by the session, so that their change signals are not
    // taken for the designer's.
    class Loading {
      public:
        explicit Loading(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
        ~Loading() { flag_ = before_; }
        Loading(const Loading&) = delete;
        Loading& operator=(const Loading&) = delete;

      private:
        bool& flag_;
        bool before_;
    };

    MessageList list();
    MessageListRef listRef() const { return {planet_, group_, direction_}; }
    void reload();
    // Switches to `direction` and shows `wanted` (or the fallbacks); `create` makes the group
    // when it is not listed, as Go to Answer does.
    void switchDirection(Direction direction, const std::string& wanted, bool create);
    void showInformation();
    void loadGroupLists();
    void restoreGroup(const std::string& wanted, bool create);
    void showGroup(const std::string& group);
    // A name typed into the group box and never added would stay on show while lines went to
    // the group shown before it. New, Edit and leaving the box therefore add it as "A&dd Group"
    // does (or choose it, when listed); an empty box shows the current group again. False when
    // the name was refused: the box then shows the current group again as well.
    bool adoptTypedGroup();
    void showCurrentGroupName();
    bool listsGroup(const std::string& group) const;
    void registerGroup(const std::string& group, Direction direction);
    void fillMessageList();
    void startEditing(int index);
    void endEditing();
    // Ends an edit without saving; the information text is edited again at once when asked.
    void cancelEditing(bool restartInformation);
    void showEditButtons(bool editing);
    void updateListButtons();
    void selectRow(int row);
    void removeRow(int row);
    std::string editedText() const;
    // Everything typed for the line being edited (text, custom caption, answer group), for the
    // check that the game can store it.
    QString typedForLine() const;
    // True when `typed` holds only characters the game can store; otherwise says which ones
    // cannot be stored and returns false, so the caller writes nothing.
    bool storableOrRefused(const QString& typed);
    void updateLength();
    bool report(bool ok);
    bool confirm(const QString& question);

    frmMessages& w_;
    EditSession& session_;
    MessageLineForm& form_;
    const SpecialCodeList& codes_;
    int planet_ = 0;
    std::unique_ptr<PlanetMessageStore> messages_;

    MessageGroups groups_;  // the known groups (the hidden list of group names and uses)
    int loadedPlanet_ = 0;
    std::string loadedName_;
    bool reloadMark_ = false;
    bool skipMark_ = false;
    int scanCount_ = 0;

    Direction direction_ = Direction::Message;
    std::string group_;      // shown form; "Info" while the information text is shown
    std::string lastGroup_;  // the group shown before "Information" was chosen
    bool editing_ = false;
    int editIndex_ = -1;                     // 0-based line being edited; -1 for a new line
    std::vector<std::string> droppedCodes_;  // codes of the edited line the list did not know
    std::vector<std::string> storedTags_;    // the edited line's answer tags as stored
    std::string answerCondition_;            // the condition that chose its answer, if any
    bool loading_ = false;                   // controls are being filled, not used
};

}  // namespace orr::ui
