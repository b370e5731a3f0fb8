#pragma once
// "Test Options": prepares a test of one planet and starts it. The designer marks the flags the
// planet starts with (a grid of flag labels, or the list of the flags chosen, switched by "List
// Flag Names"), says how long ago the ship last visited, sets the two test options and the
// upgrade levels, and presses "Begin", which opens the ship console. While the console runs,
// this window mirrors the planet's flags and the ship's retrofits.
//
// The rules are TestOptions' (core). The test plays on this window's copy of the planet's
// record, never on the open system. Beyond the game's own window: "Start at group" (empty: the
// last visit decides) and "Seed" (empty: the clock), with the seed in use shown after Begin so a
// run can be replayed.
//
// Controls by object name: lblFlag0..lblFlag36, lblUpgrade0..lblUpgrade4 with the shapes UpEn,
// UpSh, UpPt, UpSn, UpTb.

#include <QDialog>
#include <array>
#include <memory>
#include <vector>

#include "testmode/ShipConsole.h"
#include "testmode/TestOptions.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QScrollBar;
class QStackedWidget;

namespace orr::ui {

class UpgradeShape;
class frmSSControl;

class frmSSOptions : public QDialog, private TestEvents {
    Q_OBJECT
  public:
    // Prepares a test of `planet` (its copy) with the run's ship; `flagItems` are the planet's
    // flag descriptions as the flag chooser lists them.
    frmSSOptions(ShipState& ship, RandomSource& random, TestPlanet planet,
                 std::vector<std::string> flagItems, QWidget* parent = nullptr);
    ~frmSSOptions() override;

    const TestOptions& options() const { return *options_; }
    TestPlanet& planet() { return planet_; }
    // The console of the last Begin (made by it); null before.
    frmSSControl* console() const { return console_.get(); }

    // Begin: the choices go to the planet and the ship, and the console runs.
    void begin();
    // What the console's flag timer calls: the flag labels, the list and the retrofits follow
    // the planet and the ship.
    void mirrorState();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // TestEvents: only upgrades and their messages reach this window.
    void messageShown(const MessagePanel&) override {}
    void messageHidden() override {}
    void boxShown(const std::string& text) override;
    bool questionAsked(const std::string&, bool) override { return false; }
    int responseChosen(const std::vector<OfferedResponse>&) override { return 0; }
    float numberChosen(const NumberRequest& request) override { return request.min - 1; }
    void buttonsChanged(const ConsoleButtons&) override {}
    void orbitChanged(const std::string&) override {}
    void messageTimerChanged(bool) override {}
    // The levels are reset before the controls exist: the constructor shows them afterwards.
    void upgradesChanged() override {
        if (upgradeShapes_.back()) showUpgrades();
    }
    void consoleClosed() override {}

    void buildControls();
    QWidget* buildFlags();
    QWidget* buildUpgrades();
    void connectControls();
    void showFlags();
    void showUpgrades();
    bool setupFromFields(ConsoleSetup& setup);

    ShipState& ship_;
    RandomSource& random_;
    TestPlanet planet_;
    TestModule module_;
    std::unique_ptr<TestOptions> options_;
    std::unique_ptr<frmSSControl> console_;

    QStackedWidget* stkFlags;
    std::array<QGroupBox*, 2> fraFlags{};
    std::array<QLabel*, kLabelledFlags> lblFlag{};
    QListWidget* lstFlags;
    QCheckBox* chkList;
    QPushButton* cmdClear;
    QScrollBar* hsbLast;
    QLabel* lblLast;
    QCheckBox* chkUpgrades;
    QCheckBox* chkBadGuy;
    std::array<QLabel*, kUpgradeKinds> lblUpgrade{};
    std::array<UpgradeShape*, kUpgradeKinds> upgradeShapes_{};
    QLabel* lblRetrofit;
    QLineEdit* txtStartGroup;
    QLineEdit* txtSeed;
    QLabel* lblSeed;
    QPushButton* cmdBegin;
};

}  // namespace orr::ui
