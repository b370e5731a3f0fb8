#pragma once
// "Planet Messages": one planet's messages, responses and information text. Every save,
// removal and move is written to the planet's section of the working copy at once; the window
// holds no copy of the messages, so closing it in any state loses nothing that was saved.
//
// Control arrays are single members holding one control per index, each with the object name
// of the array plus the index: optDir[0..2] is "optDir0".."optDir2" (Message, Information,
// Response), lblInsert[0..4] "lblInsert0".."lblInsert4", cmdSwap[0] "cmdSwap0" (up) and
// cmdSwap[1] "cmdSwap1" (down), optDisplay[0..2] "optDisplay0".."optDisplay2".
//
// The editing rules live in MessageEditSession, the mapping between a line and the option
// controls in MessageLineForm, the attached codes in SpecialCodesPanel (fraActions); this class
// builds the controls and connects them.

#include <QDialog>
#include <QString>
#include <array>
#include <filesystem>
#include <functional>
#include <memory>

#include "messages/SpecialCodeList.h"
#include "session/EditSession.h"

class QAction;
class QCheckBox;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QStackedWidget;
class QTimer;

namespace orr::ui {

class DirectionPicture;
class LongEntryToolTip;
class MessageEditSession;
class MessageLineForm;
class SpecialCodesPanel;
class frmFlag;
class frmSystem;

class frmMessages : public QDialog {
    Q_OBJECT
  public:
    static inline const QString kCaptionPrefix = QStringLiteral("Planet Messages - ");
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

    // Opens the window modally for a planet, titled with its name, with "Use Custom Messages"
    // set to `customMessages`; returns the box's value when the window has closed.
    bool openForPlanet(int planet, const QString& planetName, bool customMessages);
    // The first part of openForPlanet: everything but running the window. For callers that show
    // the window their own way (and tests).
    void prepareForPlanet(int planet, const QString& planetName, bool customMessages);
    bool customMessages() const;
    int planet() const;

    // Another system was opened: the next opening reads the groups again.
    void markForReload();

    // The window becomes active again after one of its own dialogs closed.
    void windowActivated();

    // The flag chooser on this planet, opened on `current` (empty: "A"); returns the chosen
    // flag's character, or `current` when the chooser was closed with its close box.
    QString GetFlagChar(const QString& current);
    // The ship-system chooser opened on `index`; returns the chosen index.
    int chooseSystem(int index);

    // The restriction prefixes of the standard away-team actions ("BeamFlag", "SearchFlag",
    // "TriFlag"): empty or one "%F"/"%f" code.
    QString BeamFlags();
    QString SearchFlags();
    QString TricorderFlags();
    bool setBeamFlags(const QString& code);
    bool setSearchFlags(const QString& code);
    bool setTricorderFlags(const QString& code);

    // Modal windows (this one, the flag and system choosers) are run through this; exec() by
    // default. Tests answer the choosers here instead of a person.
    using DialogRunner = std::function<void(QDialog& dialog)>;
    void setDialogRunner(DialogRunner runner);
    void runDialog(QDialog& dialog);

    // The list's context menu is run through this (exec at the point by default).
    using PopupRunner = std::function<void(QMenu* menu, const QPoint& globalPos)>;
    void setPopupRunner(PopupRunner runner);

    const SpecialCodeList& specialCodes() const { return codes_; }
    MessageEditSession& session() { return *session_; }
    MessageLineForm& form() { return *form_; }
    frmFlag& flagChooser();
    frmSystem& systemChooser();

    // Controls.
    QGroupBox* fraDirection;
    std::array<QRadioButton*, 3> optDir{};
    DirectionPicture* picDirection;
    QTimer* tmrAnim;
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
    QGroupBox* fraOptions;
    QLabel* lblWaitFor;
    QLabel* lblWait;
    QScrollBar* vsbWait;
    QLabel* lblIncluded;
    QLabel* lblPercent;
    QScrollBar* vsbPercent;
    QLabel* lblAnswer;
    QComboBox* cboAnswerGroup;
    SpecialCodesPanel* fraActions;
    QGroupBox* fraDisplay;
    std::array<QRadioButton*, 3> optDisplay{};
    QLineEdit* txtDisplay;
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

  public slots:
    // Closing, by cmdClose, the close box or the keyboard: cancels an edit in progress, stops
    // the animation and hides the window.
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void buildControls();
    QWidget* buildListArea();
    QWidget* buildEditButtons();
    QWidget* buildOptionFrames();
    void connectControls();
    void connectListControls();
    void loadSpecialCodes();
    void showListMenu(const QPoint& pos);
    bool putPlanetKey(const char* key, const QString& value);

    EditSession& editSession_;
    int listener_ = 0;
    std::filesystem::path programSpecialList_;
    SpecialCodeList codes_;
    bool codesLoaded_ = false;
    std::unique_ptr<MessageLineForm> form_;
    std::unique_ptr<MessageEditSession> session_;
    frmFlag* flagChooser_ = nullptr;
    frmSystem* systemChooser_ = nullptr;
    DialogRunner dialogRunner_;
    PopupRunner popupRunner_;
};

}  // namespace orr::ui
