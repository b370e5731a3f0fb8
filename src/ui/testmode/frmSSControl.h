#pragma once
// "Solar System Control Panel": the ship console of a test, in orbit around the planet under
// test. The console's rules are ShipConsole's (core); this window shows what it reports and
// forwards the commands. Two timers drive it while it runs: tmrMessage (1000 ms) plays the timed
// messages, tmrFlags (200 ms) keeps the level button, the options window and the ship-state
// panel up to date.
//
// Beyond the game's own console, and hidden until asked for: a ship-state panel ("Ship State")
// and a transcript of everything shown, chosen and changed ("Transcript", with Copy and Save As).

#include <QDialog>
#include <QStringList>
#include <functional>
#include <vector>

#include "testmode/ShipConsole.h"

class QCheckBox;
class QFrame;
class QGroupBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTimer;

namespace orr::ui {

class frmGetNumber;
class frmRespond;

class frmSSControl : public QDialog, private TestEvents {
    Q_OBJECT
  public:
    frmSSControl(ShipState& ship, TestPlanet& planet, RandomSource& random,
                 QWidget* parent = nullptr);

    // Called by the flag timer, after upgrades and when the console closes: the options window
    // mirrors the ship and the planet's flags.
    void setMirror(std::function<void()> mirror) { mirror_ = std::move(mirror); }
    // Opens the console on the planet and runs the window modally until the console closes.
    void run(const ConsoleSetup& setup = {});
    // The first part of run: the window shown and the console opened; false when it closed at
    // once (no planets).
    bool start(const ConsoleSetup& setup = {});

    ShipConsole& console() { return console_; }
    frmRespond& respondDialog();
    frmGetNumber& numberDialog();
    QStringList transcript() const { return transcript_; }

  public slots:
    // The timers' steps (connected to tmrMessage and tmrFlags).
    void messageTick();
    void flagTick();
    // The close box and Escape leave orbit as Exit does.
    void reject() override;

  private:
    // TestEvents
    void messageShown(const MessagePanel& panel) override;
    void titleChanged(const std::string& title) override;
    void messageHidden() override;
    void boxShown(const std::string& text) override;
    bool questionAsked(const std::string& text, bool exclamation) override;
    int responseChosen(const std::vector<OfferedResponse>& offered) override;
    float numberChosen(const NumberRequest& request) override;
    void buttonsChanged(const ConsoleButtons& buttons) override;
    void orbitChanged(const std::string& caption) override;
    void messageTimerChanged(bool running) override;
    void upgradesChanged() override;
    void stateChanged(const std::vector<std::string>& changes) override;
    void consoleClosed() override;

    void buildControls();
    QWidget* buildShipState();
    QWidget* buildTranscript();
    void connectControls();
    void note(const QString& line);
    void copyTranscript();
    void saveTranscript();

    ShipConsole console_;
    std::function<void()> mirror_;
    frmRespond* respond_ = nullptr;
    frmGetNumber* number_ = nullptr;
    QStringList transcript_;
    MessagePanel shown_;  // what the transcript last took from the message panel

    QGroupBox* pnlCommands;
    QPushButton* cmdHail;
    QPushButton* cmdBeam;
    QPushButton* cmdEnergy;
    QPushButton* cmdPhaser;
    QPushButton* cmdPhoton;
    QPushButton* cmdShields;
    QPushButton* cmdLeaveOrbit;
    QPushButton* cmdEnterOrbit;
    QPushButton* cmdExit;
    QFrame* pnlMessage;
    QLabel* lblMessage;
    QLabel* Message;
    QPushButton* cmdRespond;
    QPushButton* cmdIgnore;
    QPushButton* cmdNotes;
    QLabel* pnlOrbiting;
    QPushButton* cmdGoat;
    QTimer* tmrMessage;
    QTimer* tmrFlags;
    QCheckBox* chkShipState;
    QCheckBox* chkTranscript;
    QGroupBox* fraShipState;
    std::vector<QLabel*> stateValues_;
    QGroupBox* fraTranscript;
    QPlainTextEdit* txtTranscript;
    QPushButton* cmdCopy;
    QPushButton* cmdSaveAs;
};

}  // namespace orr::ui
