#pragma once
// The editor's main window: the list of the game folder's custom systems, the canvas with the
// open system, and the commands that create, open, save, rename, clear and delete systems and
// edit their planets and star. It lives for the whole run and owns the open system.
//
// The lifecycle commands live in SystemLifecycle, the planet and star commands in
// PlanetCommands, the menus are built by MainMenuBuilder; this class holds the controls and the
// state they share.

#include <QMainWindow>
#include <array>
#include <functional>
#include <memory>
#include <string>

#include "pictures/PictureStrip.h"
#include "store/SystemStore.h"

class QAction;
class QComboBox;
class QDialog;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QStackedWidget;

namespace orr::ui {

class InfoPanel;
class PlanetCommands;
class StarStrip;
class StarView;
class SystemCanvas;
class SystemLifecycle;

class frmSSEdit : public QMainWindow {
    Q_OBJECT
  public:
    static inline const QString kCaption = QStringLiteral("Orrerion");

    explicit frmSSEdit(GameFolder folder, QWidget* parent = nullptr);
    ~frmSSEdit() override;

    // Checks the game folder and fills the list; false (after telling the user) when the
    // program cannot run here and must end.
    bool startUp();
    // Shows the about window when the user has not turned it off.
    void showAboutIfWanted();
    // Opens a system (its name as the game folder's bytes) as if the user had chosen it in the
    // list, backup question included. False, after telling the user, when there is no such
    // system or it could not be opened.
    bool openSystemNamed(const std::string& name);

    SystemStore& store() { return store_; }
    PictureStrip& pictures() { return pictures_; }
    SystemLifecycle& lifecycle() { return *lifecycle_; }
    PlanetCommands& planetCommands() { return *planetCommands_; }

    // Redraws the canvas when something it shows changed (always when forced) and brings the
    // info panel, the system's name and the star's tip up to date.
    void DrawSystem(bool force = false);
    static QString FitName(const QLabel* label, const QString& text);

    // The commands that need an open system, enabled only while one is open.
    void applyEnablingRules();
    bool hasOpenSystem() const;
    // Shows the star's own picture when the pictures folder has one, else its strip cell.
    void showStarPicture();
    bool starHasOwnPicture() const;

    // Shows the store's last error when `ok` is false; returns `ok`.
    bool report(bool ok);

    // Context menus are run through this, so tests can pick an entry instead of a person.
    using PopupRunner = std::function<void(QMenu* menu, const QPoint& globalPos)>;
    void setPopupRunner(PopupRunner runner);
    void runPopup(QMenu* menu, const QPoint& globalPos);

    // Modal dialogs are run through this (exec() by default), so tests can fill them in.
    using DialogRunner = std::function<void(QDialog& dialog)>;
    void setDialogRunner(DialogRunner runner);
    void runDialog(QDialog& dialog);

    // Opens the message editor for a planet with its "Use Custom Messages" box set as given and
    // returns the box's value when the editor closes. Used by the planet's context menu and the
    // planet properties dialog; without it "Messages" and the dialog's "Edit" stay off.
    using MessageEditorOpener = std::function<bool(int planet, bool customMessages)>;
    void setMessageEditorOpener(MessageEditorOpener opener);
    const MessageEditorOpener& messageEditorOpener() const { return messageEditorOpener_; }

    // An end that asks nothing (the session ending): the working copy stays as a backup.
    void endWithoutQuestions();

    // Controls.
    QLabel* lblSS;
    QComboBox* cboSystems;
    QPushButton* cmdAdd;
    QPushButton* cmdDelete;
    QPushButton* cmdSave;
    SystemCanvas* picSolarSystem;
    StarView* picStar;
    StarStrip* clpStars;
    QLabel* lblName;
    QLineEdit* txtName;
    InfoPanel* picInfo;

    // Menu bar.
    QMenu* mnuFile;
    QAction* mnuFNew;
    QAction* mnuFSave;
    QAction* mnuFSaveAs;
    QAction* mnuFTest;
    QAction* mnuFClear;
    QAction* mnuFDelete;
    QAction* mnuFPackage;
    QAction* mnuFExit;
    QMenu* mnuPlanet;
    QAction* mnuPAdd;
    QAction* mnuPOrder;
    QAction* mnuPPics;
    QAction* mnuPDetail;
    QMenu* mnuHelp;
    QAction* mnuHAbout;

    // The planet's context menu.
    QMenu* mnuPopup;
    QAction* mnuMessages;
    QAction* mnuDescription;
    QAction* mnuPicture;
    QMenu* mnuClass;
    std::array<QAction*, 15> mnuPClass{};
    QAction* mnuInsert;
    QAction* mnuDelete;
    QAction* mnuProperties;

    // The star's context menu.
    QMenu* mnuPopupStar;
    QAction* mnuStarDesc;
    QAction* mnuStarPic;
    QMenu* mnuType;
    std::array<QAction*, 8> mnuStarType{};

  signals:
    // Another system was opened (or none is): windows that cache the system reload.
    void systemOpened();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildControls();
    void connectCommands();
    void updateInfo();
    void beginNameEdit();
    void finishNameEdit(bool keep);

    SystemStore store_;
    PictureStrip pictures_;
    std::unique_ptr<SystemLifecycle> lifecycle_;
    std::unique_ptr<PlanetCommands> planetCommands_;
    QStackedWidget* nameStack_ = nullptr;
    PopupRunner popupRunner_;
    DialogRunner dialogRunner_;
    MessageEditorOpener messageEditorOpener_;
    bool endingQuietly_ = false;
    bool exitConfirmed_ = false;
    bool refusingName_ = false;  // the display name box shows why it cannot take a text
};

}  // namespace orr::ui
