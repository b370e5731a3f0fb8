#pragma once
// "Planet Messages": one planet's messages, responses and information text. Every save,
// removal and move is a command of the edit session, written to the planet's section of the
// working copy at once; the window holds no copy of the messages, so closing it in any state
// loses nothing that was saved. What it shows follows the session: an undo or redo, from here
// (Ctrl+Z, Ctrl+Shift+Z, Ctrl+Y while the focus is not in a text box) or from the main window,
// is shown at once.
//
// The rules of moving between lists and groups are MessageEditorState's (core); the option
// frames are MessageLineForm; this window holds the other controls and connects them. Controls
// are found by object name; control arrays have one name per index: optDir0..optDir2 (Message,
// Information, Response), lblInsert0..lblInsert4, cmdSwap0 (up) and cmdSwap1 (down).
//
// The code is split by topic: frmMessages.cpp (opening, the session, dialogs, keys),
// frmMessagesLists.cpp (directions, groups, the list), frmMessagesLines.cpp (editing and the
// list commands), frmMessagesLayout.cpp (the controls).

#include <QDialog>
#include <QString>
#include <array>
#include <filesystem>
#include <memory>
#include <string>

#include "messages/MessageEditorState.h"
#include "messages/MessageList.h"
#include "messages/PlanetMessageStore.h"
#include "messages/SpecialCodeList.h"
#include "platform/ScopedFlag.h"
#include "session/EditSession.h"
#include "session/MessageEdits.h"

class QAction;
class QCheckBox;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QListWidget;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;

namespace orr::ui {

class DirectionPicture;
class LongEntryToolTip;
class frmEditRoom;
class MessageLineForm;
class frmFlag;
class frmSystem;

class frmMessages : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaptionPrefix = QStringLiteral("Planet Messages - ");
    static inline const QString kRemoveQuestion =
        QStringLiteral("Are you sure you want to remove this message?");
    static inline const QString kClearQuestion =
        QStringLiteral("Are you sure you want to clear all messages in this group?");
    // The insert labels and the codes they put into the text at the cursor.
    static inline const std::array<QString, 5> kInsertCaptions = {
        QStringLiteral("Name"), QStringLiteral("Rank"), QStringLiteral("Alien Name"),
        QStringLiteral("BadGuy"), QStringLiteral("Vorlak")};
    static inline const std::array<QString, 5> kInsertCodes = {
        QStringLiteral("%NM"), QStringLiteral("%RK"), QStringLiteral("%AN"), QStringLiteral("%BG"),
        QStringLiteral("%VK")};

    explicit frmMessages(EditSession& session, QWidget* parent = nullptr);
    ~frmMessages() override;

    // The program's own SPECIAL.LST, used when the game folder has none. Defaults to the file
    // beside the executable; must be set before the window is first opened.
    void setProgramSpecialList(std::filesystem::path path);

    // Opens the window modally (platform runDialog) for a planet, titled with its name, with
    // "Use Custom Messages" set to `customMessages`; returns the box's value once it closed.
    bool openForPlanet(int planet, const QString& planetName, bool customMessages);
    // The first part of openForPlanet: everything but running the window.
    void prepareForPlanet(int planet, const QString& planetName, bool customMessages);
    bool customMessages() const;
    int planet() const { return state_.planet(); }
    const MessageEditorState& state() const { return state_; }
    bool isEditing() const { return editing_; }
    const SpecialCodeList& specialCodes() const { return codes_; }

    // Another system was opened: the next opening reads the groups again.
    void markForReload();
    // The window becomes active again after another window (room editor, wizard) closed.
    void windowActivated();

    // The flag chooser on this planet, opened on `current` (empty: "A"); returns the chosen
    // flag's character, or `current` when the chooser was closed with its close box.
    QString GetFlagChar(const QString& current);
    // The ship-system chooser opened on `index`; returns the chosen index.
    int chooseSystem(int index);
    frmFlag& flagChooser();
    frmSystem& systemChooser();
    // The room editor of this window, made on first use and kept (hidden) for the next.
    frmEditRoom& roomEditor();

    // The restriction prefixes of the standard away-team actions ("BeamFlag", "SearchFlag",
    // "TriFlag"): empty or one "%F"/"%f" code.
    QString BeamFlags();
    QString SearchFlags();
    QString TricorderFlags();
    bool setBeamFlags(const QString& code);
    bool setSearchFlags(const QString& code);
    bool setTricorderFlags(const QString& code);

  public slots:
    // Closing, by cmdClose, the close box or the keyboard: cancels an edit in progress, stops
    // the animation and hides the window.
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    using Busy = ScopedFlag;

    // frmMessagesLayout.cpp
    void buildControls();
    QWidget* buildListArea();
    QWidget* buildEditButtons();
    void buildShortcuts();

    // frmMessages.cpp
    void connectControls();
    void connectListControls();
    void loadSpecialCodes();
    void showListMenu(const QPoint& pos);
    bool putPlanetKey(const char* key, const QString& value);
    void sessionChanged(const ChangeNotice& notice);
    void undoOrRedo(bool redo);
    void customSwitchClicked(bool on);
    // Runs a chooser of this window: coming back from it reads nothing again, and what it
    // writes is not an edit made underneath.
    void runChooser(QDialog& chooser);
    // "&Test": the test options, then the ship console, on this planet.
    void testPlanet();

    // frmMessagesRooms.cpp
    void connectRoomButtons();
    // "Edit R&oom": the room editor on the group shown (its room, for a search, tricorder or
    // lock group); afterwards the room it showed last is the group shown.
    void editRoom();
    // "Adventure &Wizard"; afterwards the groups are looked for again.
    void startWizard();
    // The flag chooser for the room windows, shown over `over`.
    QString chooseFlagOver(QWidget* over, const QString& current);

    // frmMessagesLists.cpp
    MessageStore& messages();
    MessageList list();
    MessageListRef listRef() const;
    void activate();
    void chooseDirection(Direction direction);
    // Shows `direction` with `wanted` (or the fallbacks); `create` makes the group when it is not
    // listed, as Go to Answer does.
    void switchDirection(Direction direction, const std::string& wanted, bool create);
    void showInformation();
    void showGroupLists();
    void showGroup();
    void groupChosen(int index);
    void groupTextEdited(const QString& text);
    void addGroup();
    // A name typed into the group box and never added would stay on show while lines went to
    // the group shown before it. New, Edit and leaving the box therefore take it up as
    // "A&dd Group" does (or choose it, when listed); an empty box shows the current group again.
    // False when the name was refused: the box then shows the current group again as well.
    bool adoptTypedGroup();
    bool takeGroup(const QString& typed);
    void showCurrentGroupName();
    void fillMessageList();
    void updateListButtons();
    void lineSelected(int row);
    void selectRow(int row);
    // The planet's keys changed underneath (an undo, a redo): shows them again. An edit whose
    // line changed is cancelled; any other edit goes on and the list is shown again after it.
    void showFromFile();
    bool editedLineChanged();
    void showPendingChanges();

    // frmMessagesLines.cpp
    void newLine();
    void editLine();
    void editRow(int row);
    void startEditing(int index);
    void endEditing();
    // Ends an edit without saving; the information text is edited again at once when asked.
    void cancelEditing(bool restartInformation);
    void save();
    bool saveLine(const std::string& text);
    void cancel();
    void deleteEdited();
    void removeLine();
    void removeRow(int row);
    void clearAll();
    void swapLine(int which);  // 0 up, 1 down
    void goToAnswer();
    void textEdited();
    void optionsEdited();
    void insertCode(int label);
    void showEditButtons(bool editing);
    // "Length: " + n of the line being edited (or of `text` with the options shown): red with
    // "(Length Limit Exceeded)" from 255 characters, and for a response red with "(Response Text
    // Width Limit Exceeded)" once its text is too wide.
    void updateLength();
    void showLength(const std::string& text);
    void hideLengthError();
    void resetForm();  // the options of an empty line, "Length: 0"
    std::string editedText() const;
    // True when `typed` holds only characters the game can store; otherwise says which ones
    // cannot be stored and returns false, so the caller writes nothing.
    bool storableOrRefused(const QString& typed);
    void warn(const QString& text);
    bool confirm(const QString& question);
    bool report(bool ok);

    EditSession& session_;
    int listener_ = 0;
    std::weak_ptr<const void> sessionLifetime_;
    std::filesystem::path programSpecialList_;
    SpecialCodeList codes_;
    bool codesLoaded_ = false;
    std::unique_ptr<PlanetMessageStore> reader_;
    MessageEditorState state_;
    frmFlag* flagChooser_ = nullptr;
    frmSystem* systemChooser_ = nullptr;
    frmEditRoom* roomEditor_ = nullptr;

    bool editing_ = false;
    int editIndex_ = -1;                     // 0-based line being edited; -1 for a new line
    std::string editedStored_;               // the edited line as stored when the edit began
    std::vector<std::string> droppedCodes_;  // codes of the edited line the list did not know
    std::vector<std::string> storedTags_;    // the edited line's answer tags as stored
    std::string answerCondition_;            // the condition that chose its answer, if any
    bool loading_ = false;                   // controls are being filled, not used
    bool ownChange_ = false;                 // a command of this window runs
    bool changesPending_ = false;            // the keys changed during an edit

    // Controls.
    QGroupBox* fraDirection;
    std::array<QRadioButton*, 3> optDir{};
    DirectionPicture* picDirection;
    QGroupBox* fraMessages;
    QLabel* lblGroup;
    QComboBox* cboGroup;
    QPushButton* cmdAddGroup;
    QStackedWidget* stkLines;  // holds lstMessages and txtMessage, one shown at a time
    QListWidget* lstMessages;
    QPlainTextEdit* txtMessage;
    std::array<QLabel*, 5> lblInsert{};
    QLabel* lblLength;
    QLabel* lblError;
    QPushButton* cmdNew;
    QPushButton* cmdEdit;
    QPushButton* cmdRemove;
    QPushButton* cmdClearAll;
    std::array<QPushButton*, 2> cmdSwap{};
    QPushButton* cmdTest;
    QPushButton* cmdSave;
    QPushButton* cmdCancel;
    QPushButton* cmdDelete;
    MessageLineForm* form_;
    QFrame* pnlInfo;
    QLabel* lblM1Title;
    QLabel* lblM1Text;
    QPushButton* cmdGo;
    QPushButton* cmdEditRoom;
    QPushButton* cmdWizard;
    QCheckBox* chkCustom;
    QPushButton* cmdClose;
    LongEntryToolTip* picTooltip;
    QMenu* mnuPopup;
    QAction* mnuEdit;
    QAction* mnuRemove;
    QAction* mnuGo;
    QAction* actUndo;
    QAction* actRedo;
};

}  // namespace orr::ui
