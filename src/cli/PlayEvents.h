#pragma once
// What `orrerion-cli play` shows: every event of the test as one JSON object a line, in the
// order the game would show them, and the answers to the dialogs taken from the command being
// played (hail 2, photon no, energy 1.5). Also the ship's state as JSON, and the state file
// that carries the ship from one run to the next.

#include <QJsonObject>
#include <optional>
#include <ostream>
#include <string>

#include "JsonLine.h"
#include "testmode/ShipConsole.h"

namespace orr::cli {

class PlayEvents : public TestEvents {
  public:
    explicit PlayEvents(std::ostream& out) : out_(out) {}

    // Answers for the command about to run: the K-th offered response (none: the dialog is
    // closed), the answer to a question, the days typed into the number dialog (none: Cancel).
    void answer(std::optional<int> response, bool yes, std::optional<std::string> number);
    bool closed() const { return closed_; }
    void print(const JsonLine& event);

    void messageShown(const MessagePanel& panel) override;
    void messageHidden() override {}
    void boxShown(const std::string& text) override;
    bool questionAsked(const std::string& text, bool exclamation) override;
    int responseChosen(const std::vector<OfferedResponse>& offered) override;
    float numberChosen(const NumberRequest& request) override;
    void buttonsChanged(const ConsoleButtons&) override {}
    void orbitChanged(const std::string&) override {}
    void messageTimerChanged(bool) override {}
    void consoleClosed() override;

  private:
    std::ostream& out_;
    std::optional<int> response_;
    bool yes_ = true;
    std::optional<std::string> number_;
    bool closed_ = false;
};

// {"event":"state", ...}: the levels, the ship, the set flags, the allowance, which commands
// can be used and the planet's record as the test has it now.
JsonLine stateEvent(const ShipConsole& console, const ShipState& ship);
// The ship as the state file keeps it, and back (missing values stay as they are).
JsonLine shipJson(const ShipState& ship);
void readShip(const QJsonObject& json, ShipState& ship);

}  // namespace orr::cli
