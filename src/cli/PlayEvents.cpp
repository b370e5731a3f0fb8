#include "PlayEvents.h"

#include <QJsonArray>
#include <QJsonDocument>

#include "CliSupport.h"
#include "testmode/NumberEntry.h"
#include "testmode/StateRows.h"

namespace orr::cli {

namespace {

// A single-precision number as the dialog shows it (2.51, not 2.5099999904).
double shown(float value) {
    return QString::number(static_cast<double>(value), 'g', 7).toDouble();
}

template <typename Values>
QJsonArray numbers(const Values& values) {
    QJsonArray array;
    for (const auto value : values) array.append(shown(static_cast<float>(value)));
    return array;
}

}  // namespace

void PlayEvents::answer(std::optional<int> response, bool yes, std::optional<std::string> number) {
    response_ = response;
    yes_ = yes;
    number_ = std::move(number);
}

void PlayEvents::print(const JsonLine& event) {
    out_ << event.text() << '\n';
    out_.flush();
}

void PlayEvents::messageShown(const MessagePanel& panel) {
    print(JsonLine()
              .add("event", "message")
              .add("title", textOf(panel.title))
              .add("text", textOf(panel.text)));
}

void PlayEvents::boxShown(const std::string& text) {
    print(JsonLine().add("event", "box").add("text", textOf(text)));
}

bool PlayEvents::questionAsked(const std::string& text, bool) {
    print(JsonLine()
              .add("event", "question")
              .add("text", textOf(text))
              .add("answer", yes_ ? "yes" : "no"));
    return yes_;
}

int PlayEvents::responseChosen(const std::vector<OfferedResponse>& offered) {
    QJsonArray items;
    for (const OfferedResponse& response : offered) items.append(textOf(response.caption));
    print(JsonLine().add("event", "responses").add("items", items));
    const int k = response_.value_or(0);
    response_.reset();
    return k >= 1 && k <= static_cast<int>(offered.size())
               ? offered[static_cast<std::size_t>(k) - 1].number
               : 0;
}

float PlayEvents::numberChosen(const NumberRequest& request) {
    NumberEntry entry(request);
    print(JsonLine()
              .add("event", "number")
              .add("prompt", textOf(request.prompt))
              .add("unit", textOf(request.unit))
              .add("min", shown(request.min))
              .add("max", shown(request.max))
              .add("value", shown(entry.number())));
    if (!number_) return entry.result(false);
    entry.typed(*number_);
    number_.reset();
    return entry.result(true);
}

void PlayEvents::consoleClosed() {
    closed_ = true;
    print(JsonLine().add("event", "closed"));
}

JsonLine shipJson(const ShipState& ship) {
    JsonLine upgrades;
    for (int i = 1; i <= kUpgradeKinds; ++i) upgrades.add(UpgradeCode(i), ship.UpgradeLevel[i]);
    return JsonLine()
        .add("energy", ship.ShipEnergy)
        .add("energyMax", ship.ShipEnergyMax)
        .add("shields", ship.Shields)
        .add("torpedoes", ship.Class1Torpedoes)
        .add("extraBay", ship.ExtraBay)
        .add("po", ship.PoValue)
        .add("damage", numbers(ship.SystemDamage))
        .add("upgrades", upgrades)
        .add("retrofits", numbers(ship.Retrofits));
}

void readShip(const QJsonObject& json, ShipState& ship) {
    auto read = [&json](const char* key, auto& field) {
        if (json.contains(key))
            field = static_cast<std::remove_reference_t<decltype(field)>>(json[key].toDouble());
    };
    read("energy", ship.ShipEnergy);
    read("energyMax", ship.ShipEnergyMax);
    read("shields", ship.Shields);
    read("torpedoes", ship.Class1Torpedoes);
    read("extraBay", ship.ExtraBay);
    read("po", ship.PoValue);
    const QJsonArray damage = json["damage"].toArray();
    for (qsizetype i = 0; i < damage.size() && i < kShipSystems; ++i)
        ship.SystemDamage[static_cast<std::size_t>(i)] = static_cast<float>(damage[i].toDouble());
    const QJsonObject upgrades = json["upgrades"].toObject();
    for (int i = 1; i <= kUpgradeKinds; ++i)
        if (upgrades.contains(UpgradeCode(i)))
            ship.UpgradeLevel[i] = static_cast<std::int16_t>(upgrades[UpgradeCode(i)].toInt());
    const QJsonArray retrofits = json["retrofits"].toArray();
    for (qsizetype i = 0; i < retrofits.size() && i < kRetrofitCounters; ++i)
        ship.Retrofits[static_cast<std::size_t>(i)] =
            static_cast<std::int16_t>(retrofits[i].toInt());
}

JsonLine stateEvent(const ShipConsole& console, const ShipState& ship) {
    const ConsoleState& state = console.state();
    const PlanetRecord& planet = console.planet();
    QJsonArray flags;
    for (int n = 0; n <= kHighestTestFlag; ++n)
        if (GetFlag(planet, n)) flags.append(n);
    return JsonLine()
        .add("event", "state")
        .add("messageLevel", textOf(state.MessageLevel))
        .add("responseLevel", textOf(state.ResponseLevel))
        .merge(shipJson(ship))
        .add("flags", flags)
        .add("energyAllowance", state.EnergyAllowance)
        .add("enabled", JsonLine()
                            .add("hail", state.buttons.hail)
                            .add("beam", state.buttons.beam)
                            .add("energy", state.buttons.energy)
                            .add("photon", state.buttons.photon))
        .add("planet", JsonLine()
                           .add("position", planet.Position)
                           .add("size", planet.Size)
                           .add("moons", planet.Moons)
                           .add("attributes", planet.Attributes)
                           .add("planetClass", planet.PlanetClass)
                           .add("lastVisit", planet.LastVisit));
}

}  // namespace orr::cli
