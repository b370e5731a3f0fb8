#include "editor/MainMenuBuilder.h"

#include <QAction>
#include <QActionGroup>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include "editor/frmSSEdit.h"
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

void MainMenuBuilder::build(frmSSEdit& window) {
    buildSystemMenu(window);
    buildPlanetMenu(window);
    buildHelpMenu(window);
    buildPlanetPopup(window);
    buildStarPopup(window);
}

void MainMenuBuilder::buildSystemMenu(frmSSEdit& w) {
    w.mnuFile = addMenu(&w, "mnuFile", QStringLiteral("&System"));
    w.mnuFNew = addAction(w.mnuFile, "mnuFNew", QStringLiteral("&New"));
    w.mnuFNew->setShortcut(QKeySequence::New);
    w.mnuFile->addSeparator();
    w.mnuFSave = addAction(w.mnuFile, "mnuFSave", QStringLiteral("&Save"));
    w.mnuFSave->setShortcut(QKeySequence::Save);
    w.mnuFSaveAs = addAction(w.mnuFile, "mnuFSaveAs", QStringLiteral("Save &As..."));
    w.mnuFTest = addAction(w.mnuFile, "mnuFTest", QStringLiteral("&Test in Voidrunner"));
    w.mnuFile->addSeparator();
    w.mnuFClear = addAction(w.mnuFile, "mnuFClear", QStringLiteral("&Clear Planets"));
    w.mnuFDelete = addAction(w.mnuFile, "mnuFDelete", QStringLiteral("&Delete"));
    w.mnuFile->addSeparator();
    w.mnuFPackage = addAction(w.mnuFile, "mnuFPackage", QStringLiteral("&Make Package"));
    w.mnuFile->addSeparator();
    w.mnuFExit = addAction(w.mnuFile, "mnuFExit", QStringLiteral("E&xit"));
    w.mnuFExit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    w.menuBar()->addMenu(w.mnuFile);
}

void MainMenuBuilder::buildPlanetMenu(frmSSEdit& w) {
    w.mnuPlanet = addMenu(&w, "mnuPlanet", QStringLiteral("&Planet"));
    w.mnuPAdd = addAction(w.mnuPlanet, "mnuPAdd", QStringLiteral("&Add"));
    w.mnuPOrder = addAction(w.mnuPlanet, "mnuPOrder", QStringLiteral("&Set Order"));
    w.mnuPPics = addAction(w.mnuPlanet, "mnuPPics", QStringLiteral("&Pictures"));
    w.mnuPlanet->addSeparator();
    w.mnuPDetail = addAction(w.mnuPlanet, "mnuPDetail", QStringLiteral("&Display Asteroids"));
    w.mnuPDetail->setCheckable(true);
    w.menuBar()->addMenu(w.mnuPlanet);
}

void MainMenuBuilder::buildHelpMenu(frmSSEdit& w) {
    w.mnuHelp = addMenu(&w, "mnuHelp", QStringLiteral("&Help"));
    w.mnuHAbout = addAction(w.mnuHelp, "mnuHAbout", QStringLiteral("&About"));
    w.menuBar()->addMenu(w.mnuHelp);
}

void MainMenuBuilder::buildPlanetPopup(frmSSEdit& w) {
    // Context menus are never part of the menu bar.
    w.mnuPopup = addMenu(&w, "mnuPopup", QStringLiteral("Popup"));
    w.mnuMessages = addAction(w.mnuPopup, "mnuMessages", QStringLiteral("&Messages"));
    w.mnuDescription = addAction(w.mnuPopup, "mnuDescription", QStringLiteral("&Name"));
    w.mnuPicture = addAction(w.mnuPopup, "mnuPicture", QStringLiteral("&Picture"));
    w.mnuClass = addMenu(w.mnuPopup, "mnuClass", QStringLiteral("&Class"));
    w.mnuPopup->addMenu(w.mnuClass);
    auto* classes = new QActionGroup(w.mnuClass);
    for (int c = 0; c < static_cast<int>(w.mnuPClass.size()); ++c) {
        auto* entry = addAction(w.mnuClass, "mnuPClass",
                                toQString(Tables::ClassCaptions[static_cast<std::size_t>(c)]));
        entry->setData(c);
        entry->setCheckable(true);
        classes->addAction(entry);
        w.mnuPClass[static_cast<std::size_t>(c)] = entry;
    }
    w.mnuPopup->addSeparator();
    w.mnuInsert = addAction(w.mnuPopup, "mnuInsert", QStringLiteral("&Insert"));
    w.mnuDelete = addAction(w.mnuPopup, "mnuDelete", QStringLiteral("&Delete"));
    w.mnuPopup->addSeparator();
    w.mnuProperties = addAction(w.mnuPopup, "mnuProperties", QStringLiteral("P&roperties"));
}

void MainMenuBuilder::buildStarPopup(frmSSEdit& w) {
    w.mnuPopupStar = addMenu(&w, "mnuPopupStar", QStringLiteral("PopupStar"));
    w.mnuStarDesc = addAction(w.mnuPopupStar, "mnuStarDesc", QStringLiteral("&Description"));
    w.mnuStarPic = addAction(w.mnuPopupStar, "mnuStarPic", QStringLiteral("&Picture"));
    w.mnuStarPic->setCheckable(true);
    w.mnuType = addMenu(w.mnuPopupStar, "mnuType", QStringLiteral("&Type"));
    w.mnuPopupStar->addMenu(w.mnuType);
    auto* types = new QActionGroup(w.mnuType);
    for (int t = 0; t < static_cast<int>(w.mnuStarType.size()); ++t) {
        auto* entry =
            addAction(w.mnuType, "mnuStarType",
                      toQString(Tables::StarTypeMenuCaptions[static_cast<std::size_t>(t)]));
        entry->setData(t);
        entry->setCheckable(true);
        types->addAction(entry);
        w.mnuStarType[static_cast<std::size_t>(t)] = entry;
    }
}

}  // namespace orr::ui
