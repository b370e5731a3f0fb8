#pragma once
// "Edit Room": walks a planet's away-team rooms the way the away team would and edits each in
// place: its description, the seven standard actions (doors, beam up, search, tricorder), further
// actions, their destinations, direction markers and effects, and locks and requirements through
// frmLock and frmAdvancedRoom. Every keystroke and click is a command of the edit session
// (session/RoomEdits.h), written at once; the window shows the stored room and keeps no copy of
// its own, so an undo or redo made anywhere (Ctrl+Z, Ctrl+Shift+Z, Ctrl+Y here outside the text
// boxes) is shown at once. The rules are the core's (rooms/, session/RoomEdits.h).
//
// Controls are found by object name; arrays have one name per index: chkAct0..chkAct6,
// lblDoor0..lblDoor3 (inside pnlRoom), mnuPDir0..mnuPDir5. The code is split by topic:
// frmEditRoom.cpp (rooms, the session, the dialogs), frmEditRoomActions.cpp (the boxes, the list
// and the Action frame), frmEditRoomLayout.cpp (the controls).

#include <QDialog>
#include <QString>
#include <array>
#include <functional>
#include <memory>
#include <optional>

#include "platform/ScopedFlag.h"
#include "rooms/FlagChooser.h"
#include "rooms/Room.h"
#include "session/EditSession.h"
#include "session/RoomEdits.h"

class QAction;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QTimer;
class QTreeWidget;
class QTreeWidgetItem;

namespace orr::ui {

class RoomPicture;

class frmEditRoom : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaption = QStringLiteral("Edit Room");
    static inline const QString kRemoveCustomQuestion =
        QStringLiteral("Are you sure you want to remove your custom message for this command?");
    static inline const QString kRemoveQuestion =
        QStringLiteral("Are you sure you want to remove this action?");
    static inline const QString kDestinationPrompt =
        QStringLiteral("Please enter the destination room (A default room cannot be determined):");
    static inline const QString kEffectWarning = QStringLiteral(
        "The destination of this action appears to be a room. Are you sure you want to add an "
        "effect? Doing so may prevent access to this room under certain conditions.");
    static constexpr int kHighlightMs = 500;

    frmEditRoom(EditSession& session, FlagChooser chooseFlag, QWidget* parent = nullptr);
    ~frmEditRoom() override;

    // Another planet: the room shown and the Back target belong to the planet before.
    void setPlanet(int planet);
    int planet() const { return planet_; }
    // Shows `room` (asking where it turns out to be an effect); false when nothing new is shown:
    // "None", a name that is no room, or Cancel; the room shown before then stays.
    bool LoadRoom(const QString& room);
    // The room shown last (empty before the first); the message editor selects it afterwards.
    QString shownRoom() const;
    QString backTarget() const { return back_; }

  public slots:
    // "&Close" and the close box hide the window; it keeps its room for the next opening.
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    // What the Action frame shows: a stored action by number, or a standard action not stored
    // yet (its default line); nothing when neither.
    struct Shown {
        int number = 0;
        int standard = -1;
        bool any() const { return number > 0 || standard >= 0; }
        ActionRef ref() const { return {number, standard}; }
    };
    using Busy = ScopedFlag;

    // frmEditRoomLayout.cpp
    void buildControls();
    QWidget* buildActionFrame();
    void connectControls();

    // frmEditRoom.cpp
    RoomRef ref() const { return {planet_, room_}; }
    void sessionChanged(const ChangeNotice& notice);
    // Reads the shown room again and shows it as stored (after every change and undo).
    void refresh();
    void showRoom(const RoomView& view);
    void showDescription();
    void backClicked();
    void lockClicked();
    void advancedClicked();
    void effectClicked();
    void undoOrRedo(bool redo);
    // Runs one of the window's commands: reports a refusal (beside the boxes while `typing`,
    // else in a message box), then shows the room as stored.
    bool run(const std::function<bool()>& command, bool typing = false);
    std::optional<QString> ask(const QString& caption, const QString& prompt,
                               const QString& defaultText);
    // A Yes/No question; `destructive` ones carry the exclamation icon, others the question mark.
    bool confirm(const QString& question, bool destructive);
    void warn(const QString& text);
    // The bytes of a typed text; nullopt (and the reason shown beside the box) when the game
    // cannot store one of its characters.
    std::optional<std::string> storable(const QString& typed);
    void showProblem(const QString& problem);

    // frmEditRoomActions.cpp
    void boxClicked(int i);
    void tick(int i);
    void untick(int i);
    void showBoxes();
    void showList();
    void highlight(int box);  // -1: none
    void hovered(int box);
    void listClicked(QTreeWidgetItem* item);
    void listDoubleClicked(QTreeWidgetItem* item);
    void doorClicked(int d);
    // ShowAction: fills the Action frame from what `shown` names, or clears and hides it.
    void showAction(Shown shown);
    void showActionFields();
    const SplitLine* shownLine() const;
    QString shownDestination() const;
    void responseEdited(const QString& text);
    void destinationEdited(const QString& text);
    using ActionSetter = bool (*)(EditSession&, const RoomRef&, const ActionRef&,
                                  const std::string&, int*);
    void actionEdited(const QString& text, ActionSetter setter);
    void descriptionEdited();
    void directionChosen(int choice);
    void openDirectionMenu();
    void addClicked();
    void removeClicked();
    // An action was removed: the shown one goes when it was that one, or moves up a number.
    void actionRemoved(int n);

    EditSession& session_;
    FlagChooser chooseFlag_;
    int listener_ = 0;
    std::weak_ptr<const void> sessionLifetime_;
    int planet_ = 1;
    std::string room_;  // the room shown; empty before the first
    QString back_;      // the previous room (one level)
    std::optional<RoomView> view_;
    Shown shown_;
    int highlighted_ = -1;
    bool loading_ = false;    // the controls are being filled, not used
    bool ownChange_ = false;  // a command of this window runs; it shows the room itself

    // Controls.
    RoomPicture* pnlRoom;
    std::array<QCheckBox*, kStandardActionCount> chkAct{};
    QLabel* lblRoomDesc;
    QPlainTextEdit* txtMessage;
    QGroupBox* fraTools;
    QPushButton* cmdLock;
    QPushButton* cmdAdd;
    QPushButton* cmdAdvanced;
    QTreeWidget* lvwActions;
    QGroupBox* fraAction;
    QLineEdit* txtResponse;
    QLabel* lblDest;
    QLineEdit* txtDest;
    QPushButton* chkDir;
    QPushButton* cmdEffect;
    QPushButton* cmdRemove;
    QLabel* lblProblem;
    QPushButton* cmdBack;
    QPushButton* cmdClose;
    QMenu* mnuPopup;
    std::array<QAction*, kDirectionChoiceCount> mnuPDir{};
    QTimer* tmrDisableHighlight;
    QAction* actUndo;
    QAction* actRedo;
};

}  // namespace orr::ui
