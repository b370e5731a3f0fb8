#pragma once
// The main window's menu bar and the two context menus of the canvas (the planet's and the
// star's), with the captions and access keys the game's modders know. The window builds them
// once and wires each entry to its command.

#include <QString>
#include <array>

class QAction;
class QMainWindow;
class QMenu;

namespace orr::ui {

struct MainMenus {
    // The system menu.
    QMenu* mnuFile = nullptr;
    QAction* mnuFNew = nullptr;
    QAction* mnuFSave = nullptr;
    QAction* mnuFSaveAs = nullptr;
    QAction* mnuFTest = nullptr;
    QAction* mnuFClear = nullptr;
    QAction* mnuFDelete = nullptr;
    QAction* mnuFPackage = nullptr;
    QAction* mnuFExit = nullptr;
    // The edit menu: undo and redo of every edit of the open system.
    QMenu* mnuEdit = nullptr;
    QAction* mnuEUndo = nullptr;
    QAction* mnuERedo = nullptr;
    // The planet menu.
    QMenu* mnuPlanet = nullptr;
    QAction* mnuPAdd = nullptr;
    QAction* mnuPOrder = nullptr;
    QAction* mnuPPics = nullptr;
    QAction* mnuPDetail = nullptr;
    QMenu* mnuHelp = nullptr;
    QAction* mnuHAbout = nullptr;

    // The planet's context menu.
    QMenu* mnuPopup = nullptr;
    QAction* mnuMessages = nullptr;
    QAction* mnuDescription = nullptr;
    QAction* mnuPicture = nullptr;
    QMenu* mnuClass = nullptr;
    std::array<QAction*, 15> mnuPClass{};
    QAction* mnuInsert = nullptr;
    QAction* mnuDelete = nullptr;
    QAction* mnuProperties = nullptr;

    // The star's context menu.
    QMenu* mnuPopupStar = nullptr;
    QAction* mnuStarDesc = nullptr;
    QAction* mnuStarPic = nullptr;
    QMenu* mnuType = nullptr;
    std::array<QAction*, 8> mnuStarType{};

    void build(QMainWindow& window);

    // The undo and redo entries name the step they would take back ("&Undo Move Planet 3").
    void showHistory(const QString& undoName, const QString& redoName);

  private:
    void buildSystemMenu(QMainWindow& window);
    void buildEditMenu(QMainWindow& window);
    void buildPlanetMenu(QMainWindow& window);
    void buildPlanetPopup(QMainWindow& window);
    void buildStarPopup(QMainWindow& window);
};

}  // namespace orr::ui
