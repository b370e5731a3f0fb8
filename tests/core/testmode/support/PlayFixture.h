#pragma once
// A test of one planet without a game folder: the planet's keys in a map, a scripted random
// source, and events recorded as lines ("box: text", "message: title | text", ...). Questions,
// the respond dialog and the number dialog are answered from queues set in advance.

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "testmode/ShipConsole.h"

namespace orr::test {

// Plays back the numbers it was given, then 0.
class ScriptedRandom : public RandomSource {
  public:
    double next() override;
    void seed(std::uint32_t) override {}
    std::deque<double> script;
};

class RecordingEvents : public TestEvents {
  public:
    void messageShown(const MessagePanel& panel) override;
    void titleChanged(const std::string& title) override { lines.push_back("title: " + title); }
    void messageHidden() override { lines.push_back("hidden"); }
    void boxShown(const std::string& text) override {
        lines.push_back("box: " + text);
        if (duringBox) duringBox();  // what the front does while the box is open
    }
    bool questionAsked(const std::string& text, bool exclamation) override;
    int responseChosen(const std::vector<OfferedResponse>& offered) override;
    float numberChosen(const NumberRequest& request) override;
    void buttonsChanged(const ConsoleButtons&) override {}
    void orbitChanged(const std::string&) override {}
    void messageTimerChanged(bool) override {}
    void consoleClosed() override { lines.push_back("closed"); }

    std::vector<std::string> lines;
    std::deque<bool> answers;          // questions; yes when empty
    std::deque<int> responses;         // the K-th offered response (1-based); 0 sends nothing
    std::deque<float> numbers;         // number dialog; cancel when empty
    std::vector<std::string> offered;  // captions of the last respond dialog
    NumberRequest lastRequest;
    std::function<void()> duringBox;
};

// A planet of class 10 with the given keys, and a console on it.
class PlayTest : public ::testing::Test {
  protected:
    PlayTest();
    // Replaces the planet's keys ("Messages=2" lines) and opens the console.
    void play(std::initializer_list<std::string> keys, int lastVisit = 0);
    // Events recorded since the last call.
    std::vector<std::string> take();

    std::map<std::string, std::string> keys;
    ShipState ship;
    TestPlanet planet;
    ScriptedRandom random;
    RecordingEvents events;
    ShipConsole console{ship, planet, random, events};
    MessageInterpreter& interpreter() { return console.interpreter(); }
};

}  // namespace orr::test
