#pragma once
// The main window on a game folder of its own, with every question answered from a script and
// the context menus and dialogs driven by the test instead of a person. A question nobody
// queued an answer for, or an answer never asked for, fails the test when the harness ends.
//
//     MainWindowHarness h;
//     h.game.writeDescriptor(MainWindowHarness::spacedSystem("Nova", 3));
//     QVERIFY(h.start());
//     h.choose("Nova");
//     h.pickPlanetMenu(2, "mnuDelete");
//     QCOMPARE(h.undoText(), QStringLiteral("&Undo Delete Planet 2"));

// The widgets every test of the main window reaches into.
#include <QtWidgets>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "editor/SystemCanvas.h"
#include "editor/frmSSEdit.h"
#include "platform/Modal.h"
#include "platform/ScriptedPrompts.h"
#include "store/OrbitGeometry.h"
#include "support/GameFixture.h"

class QDialog;
class QMenu;

namespace orr::test {

class MainWindowHarness {
  public:
    MainWindowHarness() = default;
    ~MainWindowHarness();
    MainWindowHarness(const MainWindowHarness&) = delete;
    MainWindowHarness& operator=(const MainWindowHarness&) = delete;

    TempGameFolder game;
    ui::ScriptedPrompts prompts;

    // A custom system with planets on the orbits 400, 700, 1000 ... (far enough apart to be
    // told apart on the canvas), classes A, sizes 2.
    static SystemRecord spacedSystem(const std::string& name, int planets);

    // Makes, starts, shows and activates the window; false when start-up refused.
    bool start();
    // Writes the system's descriptor (`sections` follow its block), starts and opens it.
    bool open(const SystemRecord& record, std::string_view sections = {});
    ui::frmSSEdit& window() { return *window_; }
    EditSession& session() { return window_->session(); }
    const SystemRecord& record() { return window_->session().record(); }

    // A control or menu entry of the window by its object name (null when there is none).
    template <typename T>
    T* find(const char* name) const {
        return window_->findChild<T*>(QString::fromLatin1(name));
    }
    QAction* action(const char* name) const { return find<QAction>(name); }
    ui::SystemCanvas* canvas() const { return find<ui::SystemCanvas>("picSolarSystem"); }
    // The text of Edit > Undo.
    QString undoText() const { return action("mnuEUndo")->text(); }
    // The texts of a combo box's or list's entries.
    static QStringList texts(const QWidget* box);

    // The last question asked, as "Caption: text [buttons icon]" with the names of Prompts.h
    // (", default No" when the box has that default), or "Caption: text [default answer]" for
    // an input box.
    QString lastQuestion() const;

    // Chooses the entry as the user does in the list.
    void choose(const std::string& name);
    QString selected() const { return find<QComboBox>("cboSystems")->currentText(); }
    // Presses keys where the focus is, as a person would (shortcuts included).
    void press(const QKeySequence& keys);

    // Right-clicks planet `planet` and picks the context menu entry `entry` (for the class
    // and star type entries, the one whose data is `data`); nullptr picks nothing.
    void pickPlanetMenu(int planet, const char* entry, int data = -1);
    void pickStarMenu(const char* entry, int data = -1);
    // Runs while the next context menu is open, before the entry is picked.
    void whileMenuOpen(std::function<void()> run) { whileMenuOpen_ = std::move(run); }
    // Whether a context menu entry was enabled (or checked) while the last menu was open.
    bool wasEnabled(const char* entry) const { return enabledAtPopup_.value(entry, false); }
    bool wasChecked(const char* entry, int data = -1) const {
        return checkedAtPopup_.value(QString::fromLatin1(entry) + QString::number(data), false);
    }

    // Modal dialogs: `fill` gets the dialog instead of the user; it should press a button.
    void onDialog(std::function<void(QDialog&)> fill) { fill_ = std::move(fill); }
    int dialogsRun() const { return dialogsRun_; }

    // A mouse event on the canvas at a point given in canvas units.
    void mouse(QEvent::Type type, OrbitGeometry::Point units,
               Qt::MouseButton button = Qt::NoButton);
    OrbitGeometry::Point planetCentre(int planet) {
        return OrbitGeometry::planetCentre(record(), planet);
    }

    // The open system's file with the given extension.
    std::string descriptor(const std::string& name, const std::string& extension = ".edt") {
        return game.read("ORBDescriptor/" + name + extension);
    }

  private:
    void recordMenu(QMenu* menu);
    void arm(const char* menu, const char* entry, int data);

    std::unique_ptr<ui::frmSSEdit> window_;
    ui::DialogRunner previousDialogs_;
    ui::MenuRunner previousMenus_;
    QMap<QString, bool> enabledAtPopup_;
    QMap<QString, bool> checkedAtPopup_;
    std::function<void()> whileMenuOpen_;
    std::function<void(QDialog&)> fill_;
    int dialogsRun_ = 0;
};

}  // namespace orr::test
