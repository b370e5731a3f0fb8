// `orrerion-cli play`: plays a planet of a saved system the way the editor's test mode does, with
// the console's commands read one a line from standard input and what the game would show
// written as JSON lines. The descriptor is only read.

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <filesystem>
#include <iostream>
#include <sstream>

#include "CliSupport.h"
#include "Command.h"
#include "PlayEvents.h"
#include "messages/MessageKeys.h"
#include "store/FileIo.h"
#include "testmode/PlanetUnderTest.h"
#include "testmode/PlayNumbers.h"
#include "testmode/TestOptions.h"
#include "text/Text.h"

namespace orr::cli {

namespace {

constexpr const char* kPlayUsage =
    "play NAME PLANET [--seed N] [--last-visit V] [--flags CHARS] [--treaty] [--upgrades] "
    "[--badguy] [--level GROUP] [--state FILE]";

struct PlayOptions {
    std::optional<std::uint32_t> seed;
    std::optional<std::int32_t> lastVisit;
    std::string flags;
    bool treaty = false;
    bool upgrades = false;
    bool badGuy = false;
    std::optional<std::string> level;
    std::optional<std::filesystem::path> stateFile;
};

PlayOptions parseOptions(const QStringList& args) {
    PlayOptions options;
    for (qsizetype i = 2; i < args.size(); ++i) {
        const QString option = args[i];
        auto value = [&]() -> QString {
            if (i + 1 >= args.size()) throw CliError(bytesOf(option) + " needs a value.");
            return args[++i];
        };
        if (option == "--seed") {
            bool ok = false;
            const QString text = value();
            options.seed = text.toUInt(&ok);
            if (!ok) throw CliError("The seed must be a whole number from 0 to 4294967295.");
        } else if (option == "--last-visit") {
            options.lastVisit = numberArgument(value(), -2147483647, 2147483647, "The last visit");
        } else if (option == "--flags") {
            options.flags = bytesOf(value());
            for (const char c : options.flags)
                if (TestFlagChar(TestFlagNumber(std::string(1, c), 0)) != std::string(1, c))
                    throw CliError("--flags takes flag characters A to Z and 0 to 9, not " +
                                   inQuotes(std::string(1, c)) + ".");
        } else if (option == "--treaty") {
            options.treaty = true;
        } else if (option == "--upgrades") {
            options.upgrades = true;
        } else if (option == "--badguy") {
            options.badGuy = true;
        } else if (option == "--level") {
            options.level = storedGroupName(storableBytesOf(value(), "The level"));
        } else if (option == "--state") {
            options.stateFile = std::filesystem::path(value().toStdU16String());
        } else {
            throw CliError("unknown option " + bytesOf(option) + " (usage: orrerion-cli " +
                           kPlayUsage + ").");
        }
    }
    return options;
}

void loadState(const PlayOptions& options, ShipState& ship) {
    if (!options.stateFile || !std::filesystem::exists(*options.stateFile)) return;
    std::string error;
    const std::optional<std::string> bytes = readWholeFile(*options.stateFile, &error);
    if (!bytes) throw CliError("The state file could not be read: " + error);
    QJsonParseError parse;
    const QJsonDocument document =
        QJsonDocument::fromJson(QByteArray::fromStdString(*bytes), &parse);
    if (!document.isObject())
        throw CliError("The state file is not a JSON object: " + parse.errorString().toStdString() +
                       ".");
    readShip(document.object(), ship);
}

// One line of standard input: the command word and its arguments.
struct Command {
    std::string word;
    std::vector<std::string> args;
};

Command parseCommand(const std::string& line) {
    std::istringstream words(line);
    Command command;
    words >> command.word;
    for (std::string arg; words >> arg;) command.args.push_back(arg);
    return command;
}

// A whole number in [min, max], or nullopt.
std::optional<long long> integer(const std::string& text, long long min, long long max) {
    long long value = 0;
    if (!text::parseInteger(text, min, max, value)) return std::nullopt;
    return value;
}

class Player {
  public:
    Player(ShipState& ship, TestPlanet& planet, RandomSource& random, std::ostream& out)
        : ship_(ship), events_(out), console_(ship, planet, random, events_) {}

    ShipConsole& console() { return console_; }
    PlayEvents& events() { return events_; }

    // Plays one line; false (with the reason in *error) when it could not be played.
    bool play(const Command& c, std::string* error);

  private:
    bool ran(bool ok, const char* name, std::string* error) {
        if (!ok) *error = std::string(name) + " cannot be used now.";
        return ok;
    }
    bool tick(const Command& c, std::string* error);
    bool set(const Command& c, std::string* error);

    ShipState& ship_;
    PlayEvents events_;
    ShipConsole console_;
};

bool Player::play(const Command& c, std::string* error) {
    const std::string first = c.args.empty() ? std::string() : c.args[0];
    const auto k = integer(first, 1, 1000000);
    if (c.args.size() > (c.word == "set" ? 2U : 1U)) {
        *error = "too many arguments for " + c.word + ".";
        return false;
    }
    if (c.word == "tick") return tick(c, error);
    if (c.word == "hail" || c.word == "respond") {
        if (!first.empty() && !k) {
            *error = c.word + " takes the number of an offered response, not " + first + ".";
            return false;
        }
        events_.answer(k ? std::optional<int>(static_cast<int>(*k)) : std::nullopt, true, {});
        return ran(c.word == "hail" ? console_.hail() : console_.respond(),
                   c.word == "hail" ? "Hail" : "Respond", error);
    }
    if (c.word == "phaser" || c.word == "photon") {
        if (!first.empty() && first != "no") {
            *error = c.word + " takes no argument but \"no\".";
            return false;
        }
        events_.answer({}, first != "no", {});
        return ran(c.word == "phaser" ? console_.phaser() : console_.photon(),
                   c.word == "phaser" ? "Phaser" : "Photon", error);
    }
    if (c.word == "energy") {
        events_.answer({}, true, first.empty() ? std::nullopt : std::optional<std::string>(first));
        return ran(console_.energy(), "Energy", error);
    }
    if (c.word == "beam") return ran(console_.beam(), "Beam", error);
    if (c.word == "ignore") return ran(console_.ignore(), "Ignore", error);
    if (c.word == "notes") {
        console_.notes();
    } else if (c.word == "leave") {
        console_.leave();
    } else if (c.word == "exit") {
        console_.exit();
    } else if (c.word == "state") {
        events_.print(stateEvent(console_, ship_));
    } else if (c.word == "set") {
        return set(c, error);
    } else if (c.word == "upgrade") {
        if (UpgradeIndex(first) == 0) {
            *error = "upgrade takes EN, SH, PT, SN or TB.";
            return false;
        }
        console_.module().ApplyUpgrade(first);
    } else {
        *error = "unknown command " + c.word + ".";
        return false;
    }
    return true;
}

bool Player::tick(const Command& c, std::string* error) {
    long long count = 1;
    if (!c.args.empty()) {
        const auto n = integer(c.args[0], 0, 1000000000);
        if (!n) {
            *error = "tick takes a number of ticks, not " + c.args[0] + ".";
            return false;
        }
        count = *n;
    }
    // A stopped timer stays stopped until a command starts it: no need to count on.
    for (long long i = 0; i < count && console_.state().messageTimer; ++i) console_.tick();
    return true;
}

bool Player::set(const Command& c, std::string* error) {
    if (c.args.size() != 2) {
        *error = "set takes a field and a value.";
        return false;
    }
    const std::string& field = c.args[0];
    const std::string& text = c.args[1];
    const auto small = integer(text, -32768, 32767);
    auto as16 = [&](std::int16_t& target) {
        if (small) target = static_cast<std::int16_t>(*small);
        return small.has_value();
    };
    bool ok = false;
    if (field == "energy") {
        const auto value = integer(text, -2147483647 - 1LL, 2147483647);
        if (value) ship_.ShipEnergy = static_cast<std::int32_t>(*value);
        ok = value.has_value();
    } else if (field == "energyMax") {
        ok = as16(ship_.ShipEnergyMax);
    } else if (field == "shields") {
        ok = as16(ship_.Shields);
    } else if (field == "torpedoes") {
        ok = as16(ship_.Class1Torpedoes);
    } else if (field == "extraBay") {
        ok = as16(ship_.ExtraBay);
    } else if (field == "po") {
        ok = as16(ship_.PoValue);
    } else if (field.starts_with("damage.")) {
        const auto n = integer(field.substr(7), 0, kShipSystems - 1);
        double value = 0;
        std::istringstream in(text);
        ok = n && (in >> value) && in.eof();
        if (ok) ship_.SystemDamage[static_cast<std::size_t>(*n)] = static_cast<float>(value);
    } else if (field.starts_with("upgrade.")) {
        const int index = UpgradeIndex(field.substr(8));
        ok = index != 0 && as16(ship_.UpgradeLevel[static_cast<std::size_t>(index)]);
    } else if (field.starts_with("retrofit.")) {
        const auto n = integer(field.substr(9), 0, kRetrofitCounters - 1);
        ok = n && as16(ship_.Retrofits[static_cast<std::size_t>(*n)]);
    } else {
        *error = "unknown field " + field + ".";
        return false;
    }
    if (!ok) *error = "cannot set " + field + " to " + text + ".";
    return ok;
}

void runPlay(CliContext& context, const QStringList& args) {
    const PlayOptions options = parseOptions(args);
    SystemStore store(context.folder);
    const std::string name = existingSystem(store, args[0]);
    store.record().Name = name;
    store.LoadSystem(name);
    store.InitTables();
    const int number = numberArgument(args[1], 1, kMaxPlanets, "A planet number");
    const int count = store.record().PlanetCount;
    if (count > 0 && number > count) {
        throw CliError("There is no planet " + std::to_string(number) + " in " + inQuotes(name) +
                       ": it has " + std::to_string(count) +
                       (count == 1 ? " planet." : " planets."));
    }

    ShipState ship;
    loadState(options, ship);
    SeededRandom random;
    TestPlanet planet = PlanetUnderTest(store, number);
    Player player(ship, planet, random, context.out);
    // The options window's part: the upgrades reset, the options and the flags taken.
    TestOptions prepare(player.console().module(), planet, PlanetFlagItems(store, number));
    prepare.setUpgradesOption(options.upgrades);
    const std::int32_t lastVisit = options.lastVisit.value_or(planet.record.LastVisit);
    prepare.begin(options.badGuy, 0);
    planet.record.LastVisit = lastVisit;
    for (std::size_t i = 0; i < options.flags.size(); ++i)
        SetFlag(planet.record, TestFlagNumber(options.flags.substr(i, 1), 0), true);
    if (options.treaty) SetFlag(planet.record, kTreatyFlag, true);

    player.console().open({options.level, options.seed});
    std::string line;
    while (!player.events().closed() && std::getline(context.in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const Command command = parseCommand(line);
        if (command.word.empty() || command.word.starts_with('#')) continue;
        std::string error;
        if (!player.play(command, &error)) {
            std::cerr << "orrerion-cli: " << error << '\n';
            std::cerr.flush();
        }
    }
    if (options.stateFile) {
        std::string error;
        if (!writeFileAtomically(*options.stateFile, shipJson(ship).text() + "\n", &error))
            throw CliError("The state file could not be written: " + error);
    }
}

}  // namespace

std::vector<CommandSpec> playCommands() {
    return {{"play", kPlayUsage, 2, -1, runPlay}};
}

}  // namespace orr::cli
