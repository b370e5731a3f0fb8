#pragma once
// The editor's main window: the list of the game folder's custom systems, the canvas with the
// open system, and the commands that create, open, save, rename, clear and delete systems and
// edit their planets and star. It lives for the whole run and owns the edit session.
//
// The window holds widgets and wiring: the life of systems is in SystemLifecycle and
// SystemSaveCommands, the planet and star commands in PlanetCommands, the pictures, the package
// and the game's start in ExternalCommands, the menus in MainMenus,
// and every rule in the core. Whatever changes the system, the window shows it again when the
// session reports the change.

#include <QMainWindow>
#include <functional>
#include <memory>
#include <string>

#include "editor/MainMenus.h"
#include "pictures/QtPictureCodec.h"
#include "session/EditSession.h"

class QLabel;
class QPushButton;

namespace orr::ui {

class DisplayNameBox;
class ExternalCommands;
class InfoPanel;
class PlanetCommands;
class StarStrip;
class StarView;
class SystemCanvas;
class SystemLifecycle;
class SystemListBox;
class SystemSaveCommands;

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

    EditSession& session() { return session_; }

    // Opens the message editor for a planet with its "Use Custom Messages" box set as given and
    // returns the box's value when the editor closes. Without it "Messages" stays off.
    using MessageEditorOpener = std::function<bool(int planet, bool customMessages)>;
    void setMessageEditorOpener(MessageEditorOpener opener);

    // The planet the canvas highlights (0 for none), as if the pointer rested on it.
    void highlightPlanet(int planet);

    // An end that asks nothing (the session ending): the working copy stays as a backup.
    void endWithoutQuestions();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildControls();
    void connectCommands();
    void connectPlanetMenus();
    // Shows what `notice` says has changed.
    void refresh(const ChangeNotice& notice);
    void applyEnablingRules();
    void updateInfo();
    void showStarPicture();
    void runPlanetMenu(int planet, const QPoint& globalPos);
    void runStarMenu(const QPoint& globalPos);
    void undoOrRedo(bool redo);

    EditSession session_;
    QtPictureCodec codec_;

    // Controls.
    QLabel* lblSS;
    SystemListBox* cboSystems;
    QPushButton* cmdAdd;
    QPushButton* cmdDelete;
    QPushButton* cmdSave;
    SystemCanvas* picSolarSystem;
    StarView* picStar;
    StarStrip* clpStars;
    DisplayNameBox* nameBox_;  // lblName with its editor txtName
    InfoPanel* picInfo;
    MainMenus menus_;

    std::unique_ptr<SystemLifecycle> lifecycle_;
    std::unique_ptr<SystemSaveCommands> saving_;
    std::unique_ptr<PlanetCommands> planets_;
    std::unique_ptr<ExternalCommands> external_;
    int dragId_ = 0;
    bool endingQuietly_ = false;
    bool exitConfirmed_ = false;
};

}  // namespace orr::ui
