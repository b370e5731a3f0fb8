#pragma once
// The main window on a game folder of its own, with every question answered from a script and
// the context menus and dialogs driven by the test instead of a person.
//
//     MainWindowHarness h;
//     h.game.writeDescriptor(TempGameFolder::systemRecord("Nova", 3));
//     QVERIFY(h.start());
//     h.choose("Nova");
//     h.pickPlanetMenu(2, "mnuDelete");
//     QCOMPARE(h.record().PlanetCount, 2);

#include <QEvent>
#include <QMap>
#include <functional>
#include <memory>
#include <string>

#include "TempGameFolder.h"
#include "editor/frmSSEdit.h"
#include "platform/Modal.h"
#include "platform/ScriptedPrompts.h"
#include "store/OrbitGeometry.h"

class QAction;
class QDialog;
class QMenu;

namespace orr::test {

class MainWindowHarness {
  public:
    MainWindowHarness();
    ~MainWindowHarness();
    MainWindowHarness(const MainWindowHarness&) = delete;
    MainWindowHarness& operator=(const MainWindowHarness&) = delete;

    TempGameFolder game;
    ui::ScriptedPrompts prompts;

    // A custom system with planets on the orbits 400, 700, 1000 ... (far enough apart to be
    // told apart on the canvas), classes A, sizes 2.
    static SystemRecord spacedSystem(const std::string& name, int planets);

    // Makes, starts and shows the window; false when start-up refused.
    bool start();
    ui::frmSSEdit& window() { return *window_; }
    EditSession& session() { return window_->session(); }
    const SystemStore& store() { return window_->session().store(); }
    const SystemRecord& record() { return window_->session().record(); }

    // A control of the window by its object name (null when there is none).
    template <typename T>
    T* find(const char* name) const {
        return window_->findChild<T*>(QString::fromLatin1(name));
    }

    // Chooses the entry as the user does in the list.
    void choose(const std::string& name);
    int indexOf(const std::string& name) const;
    QString selected() const;

    QAction* action(const char* name) const;

    // Right-clicks planet `planet` and picks the context menu entry `entry` (for the class
    // and star type entries, the one whose data is `data`); nullptr picks nothing.
    void pickPlanetMenu(int planet, const char* entry, int data = -1);
    void pickStarMenu(const char* entry, int data = -1);
    // Whether a context menu entry was enabled (or checked) while the last menu was open.
    bool wasEnabled(const char* entry) const { return enabledAtPopup_.value(entry, false); }
    bool wasChecked(const char* entry, int data = -1) const;

    // Modal dialogs: `fill` gets the dialog instead of the user; it should press a button.
    void onDialog(std::function<void(QDialog&)> fill);
    int dialogsRun() const { return dialogsRun_; }

    // A mouse event on the canvas at a point given in canvas units.
    void mouse(QEvent::Type type, OrbitGeometry::Point units,
               Qt::MouseButton button = Qt::NoButton);
    OrbitGeometry::Point planetCentre(int planet);

    // The open system's file with the given extension.
    std::string descriptor(const std::string& name, const std::string& extension = ".edt");

  private:
    void recordMenu(QMenu* menu);

    std::unique_ptr<ui::frmSSEdit> window_;
    ui::DialogRunner previousDialogs_;
    ui::MenuRunner previousMenus_;
    QMap<QString, bool> enabledAtPopup_;
    QMap<QString, bool> checkedAtPopup_;
    std::function<void(QDialog&)> fill_;
    int dialogsRun_ = 0;
};

}  // namespace orr::test
