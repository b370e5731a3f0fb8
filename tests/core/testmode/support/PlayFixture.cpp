#include "core/testmode/support/PlayFixture.h"

namespace orr::test {

double ScriptedRandom::next() {
    if (script.empty()) return 0;
    const double value = script.front();
    script.pop_front();
    return value;
}

void RecordingEvents::messageShown(const MessagePanel& panel) {
    lines.push_back("message: " + panel.title + " | " + panel.text);
}

bool RecordingEvents::questionAsked(const std::string& text, bool exclamation) {
    const bool yes = answers.empty() || answers.front();
    if (!answers.empty()) answers.pop_front();
    lines.push_back(std::string(exclamation ? "warning: " : "question: ") + text);
    return yes;
}

int RecordingEvents::responseChosen(const std::vector<OfferedResponse>& list) {
    offered.clear();
    for (const OfferedResponse& response : list) offered.push_back(response.caption);
    const int k = responses.empty() ? 0 : responses.front();
    if (!responses.empty()) responses.pop_front();
    return k >= 1 && k <= static_cast<int>(list.size()) ? list[k - 1].number : 0;
}

float RecordingEvents::numberChosen(const NumberRequest& request) {
    lastRequest = request;
    const float value = numbers.empty() ? request.min - 1 : numbers.front();
    if (!numbers.empty()) numbers.pop_front();
    return value;
}

PlayTest::PlayTest() {
    planet.record.PlanetClass = 10;
    planet.record.Size = 3;
    planet.name = "Halcyon";
    planet.alienNames[4] = "Kelvari";
    planet.record.Attributes = PlanetAttributes{0, 0, 0, 0, 4}.pack();
    planet.keys = [this](const std::string& key) {
        const auto found = keys.find(key);
        return found == keys.end() ? std::string() : found->second;
    };
    ship.ShipEnergyMax = 5000;
    ship.UpgradeLevel = {0, 1, 1, 1, 1, 1};
    ship.RankName = "Captain";
    ship.PlayerName = "<Player>";
}

void PlayTest::play(std::initializer_list<std::string> lines, int lastVisit) {
    keys.clear();
    for (const std::string& line : lines) {
        const std::size_t eq = line.find('=');
        keys[line.substr(0, eq)] = line.substr(eq + 1);
    }
    planet.record.LastVisit = lastVisit;
    console.open();
    events.lines.clear();
}

std::vector<std::string> PlayTest::take() {
    std::vector<std::string> taken;
    taken.swap(events.lines);
    return taken;
}

}  // namespace orr::test
