#pragma once
// What a test shows, reported by the core to its front (the console window, orrerion-cli play,
// a test): one call per kind of thing the game would show. Calls that stand for a modal dialog
// return the user's answer. The core never shows anything itself.

#include <string>
#include <vector>

namespace orr {

// The console's message panel: its title label and its text.
struct MessagePanel {
    std::string title;
    std::string text;
    bool operator==(const MessagePanel&) const = default;
};

// A response the respond dialog offers: its caption and its number in the console's list of
// responses (1-based), which is what choosing it sends back.
struct OfferedResponse {
    int number = 0;
    std::string caption;
    bool operator==(const OfferedResponse&) const = default;
};

// The number dialog's question (GetNumber).
struct NumberRequest {
    std::string prompt;
    std::string title;
    std::string unit;
    float value = 0;
    float min = 0;
    float max = 0;
    float scale = 1;
};

// Which console commands can be used now.
struct ConsoleButtons {
    bool hail = false;
    bool beam = false;
    bool energy = false;
    bool phaser = false;
    bool photon = false;
    bool enterOrbit = true;
    bool operator==(const ConsoleButtons&) const = default;
};

class TestEvents {
  public:
    virtual ~TestEvents() = default;
    // The message panel is shown with this title and text (again after its text grew).
    virtual void messageShown(const MessagePanel& panel) = 0;
    // The panel's title label changed while its text stayed (a boxed message gives it back the
    // standard title).
    virtual void titleChanged(const std::string& title) { (void)title; }
    // The message panel was reset and hidden.
    virtual void messageHidden() = 0;
    // A modal message box captioned with the program's title.
    virtual void boxShown(const std::string& text) = 0;
    // A yes/no question; `exclamation` for the destructive ones. True for yes.
    virtual bool questionAsked(const std::string& text, bool exclamation) = 0;
    // The respond dialog with these responses; returns the number of the one sent, or 0 when
    // nothing was sent.
    virtual int responseChosen(const std::vector<OfferedResponse>& offered) = 0;
    // The number dialog; returns the number chosen, or request.min - 1 when cancelled.
    virtual float numberChosen(const NumberRequest& request) = 0;
    virtual void buttonsChanged(const ConsoleButtons& buttons) = 0;
    // "Orbiting " + the planet's name; empty when no planet is orbited.
    virtual void orbitChanged(const std::string& caption) = 0;
    // The message timer was started or stopped.
    virtual void messageTimerChanged(bool running) = 0;
    // An upgrade level changed (the options window redraws its indicator).
    virtual void upgradesChanged() {}
    // The ship, the planet's flags or the console's levels changed: one line per value, e.g.
    // "Energy: 4000 -> 4500" (for a transcript; the game itself shows none of it).
    virtual void stateChanged(const std::vector<std::string>& changes) { (void)changes; }
    // The console closed.
    virtual void consoleClosed() = 0;
};

}  // namespace orr
