#include "editor/MainMenus.h"

#include <QAction>
#include <QActionGroup>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "platform/QtText.h"
#include "store/Tables.h"

namespace orr::ui {
namespace {

QAction* addAction(QMenu* menu, const char* name, const QString& caption) {
    auto* action = menu->addAction(caption);
    action->setObjectName(QString::fromLatin1(name));
    return action;
}

QMenu* addMenu(QWidget* parent, const char* name, const QString& caption) {
    auto* menu = new QMenu(caption, parent);
    menu->setObjectName(QString::fromLatin1(name));
    return menu;
}

}  // namespace

void MainMenus::build(QMainWindow& window) {
    buildSystemMenu(window);
    buildEditMenu(window);
    buildPlanetMenu(window);
    mnuHelp = addMenu(&window, "mnuHelp", QStringLiteral("&Help"));
    mnuHAbout = addAction(mnuHelp, "mnuHAbout", QStringLiteral("&About"));
    window.menuBar()->addMenu(mnuHelp);
    buildPlanetPopup(window);
    buildStarPopup(window);
}

void MainMenus::buildSystemMenu(QMainWindow& window) {
    mnuFile = addMenu(&window, "mnuFile", QStringLiteral("&System"));
    mnuFNew = addAction(mnuFile, "mnuFNew", QStringLiteral("&New"));
    mnuFNew->setShortcut(QKeySequence::New);
    mnuFile->addSeparator();
    mnuFSave = addAction(mnuFile, "mnuFSave", QStringLiteral("&Save"));
    mnuFSave->setShortcut(QKeySequence::Save);
    mnuFSaveAs = addAction(mnuFile, "mnuFSaveAs", QStringLiteral("Save &As..."));
    mnuFTest = addAction(mnuFile, "mnuFTest", QStringLiteral("&Test in Voidrunner"));
    mnuFile->addSeparator();
    mnuFClear = addAction(mnuFile, "mnuFClear", QStringLiteral("&Clear Planets"));
    mnuFDelete = addAction(mnuFile, "mnuFDelete", QStringLiteral("&Delete"));
    mnuFile->addSeparator();
    mnuFPackage = addAction(mnuFile, "mnuFPackage", QStringLiteral("&Make Package"));
    mnuFile->addSeparator();
    mnuFExit = addAction(mnuFile, "mnuFExit", QStringLiteral("E&xit"));
    mnuFExit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    window.menuBar()->addMenu(mnuFile);
}

void MainMenus::buildEditMenu(QMainWindow& window) {
    mnuEdit = addMenu(&window, "mnuEdit", QStringLiteral("&Edit"));
    mnuEUndo = addAction(mnuEdit, "mnuEUndo", QStringLiteral("&Undo"));
    mnuEUndo->setShortcuts(QKeySequence::Undo);
    mnuERedo = addAction(mnuEdit, "mnuERedo", QStringLiteral("&Redo"));
    // The platform's redo keys, and both of the usual ones wherever the platform has only one.
    QList<QKeySequence> redo = QKeySequence::keyBindings(QKeySequence::Redo);
    for (const QKeySequence& usual :
         {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)})
        if (!redo.contains(usual)) redo.append(usual);
    mnuERedo->setShortcuts(redo);
    window.menuBar()->addMenu(mnuEdit);
    showHistory({}, {});
}

void MainMenus::showHistory(const QString& undoName, const QString& redoName) {
    mnuEUndo->setText(undoName.isEmpty() ? QStringLiteral("&Undo")
                                         : QStringLiteral("&Undo ") + undoName);
    mnuEUndo->setEnabled(!undoName.isEmpty());
    mnuERedo->setText(redoName.isEmpty() ? QStringLiteral("&Redo")
                                         : QStringLiteral("&Redo ") + redoName);
    mnuERedo->setEnabled(!redoName.isEmpty());
}

void MainMenus::buildPlanetMenu(QMainWindow& window) {
    mnuPlanet = addMenu(&window, "mnuPlanet", QStringLiteral("&Planet"));
    mnuPAdd = addAction(mnuPlanet, "mnuPAdd", QStringLiteral("&Add"));
    mnuPOrder = addAction(mnuPlanet, "mnuPOrder", QStringLiteral("&Set Order"));
    mnuPPics = addAction(mnuPlanet, "mnuPPics", QStringLiteral("&Pictures"));
    mnuPlanet->addSeparator();
    mnuPDetail = addAction(mnuPlanet, "mnuPDetail", QStringLiteral("&Display Asteroids"));
    mnuPDetail->setCheckable(true);
    window.menuBar()->addMenu(mnuPlanet);
}

void MainMenus::buildPlanetPopup(QMainWindow& window) {
    // Context menus are never part of the menu bar.
    mnuPopup = addMenu(&window, "mnuPopup", QStringLiteral("Popup"));
    mnuMessages = addAction(mnuPopup, "mnuMessages", QStringLiteral("&Messages"));
    mnuDescription = addAction(mnuPopup, "mnuDescription", QStringLiteral("&Name"));
    mnuPicture = addAction(mnuPopup, "mnuPicture", QStringLiteral("&Picture"));
    mnuClass = addMenu(mnuPopup, "mnuClass", QStringLiteral("&Class"));
    mnuPopup->addMenu(mnuClass);
    auto* classes = new QActionGroup(mnuClass);
    for (int c = 0; c < static_cast<int>(mnuPClass.size()); ++c) {
        auto* entry = addAction(mnuClass, "mnuPClass",
                                toQString(Tables::ClassCaptions[static_cast<std::size_t>(c)]));
        entry->setData(c);
        entry->setCheckable(true);
        classes->addAction(entry);
        mnuPClass[static_cast<std::size_t>(c)] = entry;
    }
    mnuPopup->addSeparator();
    mnuInsert = addAction(mnuPopup, "mnuInsert", QStringLiteral("&Insert"));
    mnuDelete = addAction(mnuPopup, "mnuDelete", QStringLiteral("&Delete"));
    mnuPopup->addSeparator();
    mnuProperties = addAction(mnuPopup, "mnuProperties", QStringLiteral("P&roperties"));
}

void MainMenus::buildStarPopup(QMainWindow& window) {
    mnuPopupStar = addMenu(&window, "mnuPopupStar", QStringLiteral("PopupStar"));
    mnuStarDesc = addAction(mnuPopupStar, "mnuStarDesc", QStringLiteral("&Description"));
    mnuStarPic = addAction(mnuPopupStar, "mnuStarPic", QStringLiteral("&Picture"));
    mnuStarPic->setCheckable(true);
    mnuType = addMenu(mnuPopupStar, "mnuType", QStringLiteral("&Type"));
    mnuPopupStar->addMenu(mnuType);
    auto* types = new QActionGroup(mnuType);
    for (int t = 0; t < static_cast<int>(mnuStarType.size()); ++t) {
        auto* entry =
            addAction(mnuType, "mnuStarType",
                      toQString(Tables::StarTypeMenuCaptions[static_cast<std::size_t>(t)]));
        entry->setData(t);
        entry->setCheckable(true);
        types->addAction(entry);
        mnuStarType[static_cast<std::size_t>(t)] = entry;
    }
}

}  // namespace orr::ui
