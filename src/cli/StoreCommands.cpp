// The system commands of orrerion-cli: listing, showing and reading systems, and the changes the
// main window and the canvas make (new, planets, names, flags, keys, rename, delete), each made
// the way the editor makes it, in a working copy that is committed only when every step worked.

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <system_error>

#include "CliSupport.h"
#include "Command.h"
#include "session/PlanetEdits.h"
#include "session/SystemEdits.h"
#include "session/SystemFiles.h"
#include "store/SystemList.h"
#include "store/SystemName.h"
#include "text/Text.h"

namespace orr::cli {

namespace {

SystemStore openStore(const CliContext& context) {
    SystemStore store(context.folder);
    store.InitTables();  // without aliens.txt the alien names stay empty; nothing here needs them
    return store;
}

// The reason for an add or insert that added nothing, as the canvas reports it.
void requireAdded(AddPlanetResult result, const SystemChange& change) {
    if (result == AddPlanetResult::Full) throw CliError(kMaxPlanetsMessage);
    change.require(result == AddPlanetResult::Added,
                   "No planet could be added to " + inQuotes(change.record().Name) + ".");
}

// --- reading commands

void listOffered(CliContext& context, const QStringList&) {
    for (const std::string& key : OfferedSystems(context.folder)) context.out << key << '\n';
}

void listCustom(CliContext& context, const QStringList&) {
    std::vector<std::string> names = context.folder.systemNames();
    std::sort(names.begin(), names.end());
    for (const std::string& name : names) context.out << name << '\n';
}

void showSystem(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    const std::string name = existingSystem(store, args[0]);
    store.record().Name = name;
    const LoadResult loaded = store.LoadSystem(name);
    const SystemRecord& record = store.record();

    QJsonObject system;
    system["name"] = textOf(record.Name);
    system["displayName"] = textOf(record.DisplayName);
    system["starType"] = record.StarType;
    const std::string description = store.GetName(0, record.DisplayName);
    system["starDescription"] =
        description == kNotUsed ? QJsonValue(QJsonValue::Null) : QJsonValue(textOf(description));
    QJsonArray planets;
    for (int n = 1; n <= record.PlanetCount; ++n) {
        const PlanetRecord& planet = record.planet(n);
        QJsonObject entry;
        entry["position"] = planet.Position;
        entry["size"] = planet.Size;
        entry["moons"] = planet.Moons;
        entry["attributes"] = planet.Attributes;
        entry["planetClass"] = planet.PlanetClass;
        entry["lastVisit"] = planet.LastVisit;
        entry["name"] = textOf(planetName(store, n));
        // The same readings as the planet properties dialog's two check boxes.
        entry["customPictures"] = store.HasCustomPictures(n);
        entry["customMessages"] = store.GetGeneralFlag(kMessagesFlag, n) == 1;
        planets.append(entry);
    }
    system["planets"] = planets;
    if (!loaded.warning.empty()) system["warning"] = textOf(loaded.warning);
    context.out << QJsonDocument(system).toJson(QJsonDocument::Indented).toStdString();
}

void getKey(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    const std::string name = existingSystem(store, args[0]);
    const std::string section = bytesOf(args[1]);
    const std::string key = bytesOf(args[2]);
    requireSingleLine(section, "A section name");
    requireSingleLine(key, "A key");
    store.record().Name = name;
    context.out << store.ReadKey(section, key) << '\n';
}

void encodeStar(CliContext& context, const QStringList& args) {
    const std::string key = bytesOf(args[0]);
    if (const std::optional<std::string> problem = StarArgumentProblem(key))
        throw CliError(*problem);
    const std::string encoded = EncodeStarArgument(key);
    for (std::size_t i = 0; i < encoded.size(); ++i)
        context.out << (i ? " " : "")
                    << static_cast<unsigned>(static_cast<unsigned char>(encoded[i]));
    context.out << '\n';
}

// --- changes of one system

void newSystem(CliContext& context, const QStringList& args) {
    const std::string name = bytesOf(args[0]);
    SystemStore store = openStore(context);
    if (!canCreateSystem(context.folder, name)) requireNoWorkingCopy(store, name);
    std::string error;
    if (!createSystem(context.folder, name, NewSystemAnswer::ListedKey, &error))
        throw CliError(error);
}

void setKey(CliContext& context, const QStringList& args) {
    SystemChange change(context.folder, args[0]);
    change.require(writeKey(change.session(), bytesOf(args[1]), bytesOf(args[2]), bytesOf(args[3])),
                   "The key could not be written.");
    change.commit();
}

void deleteKeyCommand(CliContext& context, const QStringList& args) {
    SystemChange change(context.folder, args[0]);
    change.require(deleteKey(change.session(), bytesOf(args[1]), bytesOf(args[2])),
                   "The key could not be deleted.");
    change.commit();
}

void addPlanetCommand(CliContext& context, const QStringList& args) {
    SystemChange change(context.folder, args[0]);
    requireAdded(addPlanet(change.session()), change);
    change.commit();
}

void insertPlanetCommand(CliContext& context, const QStringList& args) {
    SystemChange change(context.folder, args[0]);
    const int n = change.planetArgument(args[1], 1);
    requireAdded(insertPlanet(change.session(), n), change);
    change.commit();
}

void deletePlanetCommand(CliContext& context, const QStringList& args) {
    SystemChange change(context.folder, args[0]);
    const int n = change.planetArgument(args[1], 1);
    change.require(deletePlanet(change.session(), n),
                   "Planet " + std::to_string(n) + " could not be deleted.");
    change.commit();
}

void swapPlanetsCommand(CliContext& context, const QStringList& args) {
    SystemChange change(context.folder, args[0]);
    const int a = change.planetArgument(args[1], 1);
    const int b = change.planetArgument(args[2], 1);
    change.require(
        swapPlanets(change.session(), a, b),
        "Planets " + std::to_string(a) + " and " + std::to_string(b) + " could not be exchanged.");
    change.commit();
}

void setNameCommand(CliContext& context, const QStringList& args) {
    SystemChange change(context.folder, args[0]);
    const int n = change.planetArgument(args[1], 0);
    change.require(setPlanetName(change.session(), n, bytesOf(args[2])),
                   "The name could not be written.");
    change.commit();
}

void setFlagCommand(CliContext& context, const QStringList& args) {
    const std::string key = bytesOf(args[1]);
    std::string flag;
    if (text::equalsIgnoreCase(key, kPlanetPics)) {
        flag = kPlanetPics;
    } else if (text::equalsIgnoreCase(key, kMessagesFlag)) {
        flag = kMessagesFlag;
    } else {
        throw CliError("Unknown flag key " + inQuotes(key) + ": use PlanetPics or Messages.");
    }
    const std::string answer = bytesOf(args[3]);
    const bool yes = text::equalsIgnoreCase(answer, "yes");
    if (!yes && !text::equalsIgnoreCase(answer, "no"))
        throw CliError("The flag value must be yes or no, not " + inQuotes(answer) + ".");
    SystemChange change(context.folder, args[0]);
    const int n = change.planetArgument(args[2], 1);
    change.require(setPlanetFlag(change.session(), flag, n, yes), "The flag could not be written.");
    change.commit();
}

void clearPlanetsCommand(CliContext& context, const QStringList& args) {
    SystemChange change(context.folder, args[0]);
    change.require(clearPlanets(change.session()), "The planets could not be cleared.");
    change.commit();
}

void renameCommand(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    const std::string oldName = existingSystem(store, args[0]);
    const std::string newName = bytesOf(args[1]);
    // A new spelling of the same name renames the system itself (on Windows the two names are
    // one file); any other name must be free: the same refusals as for a new system.
    const bool respelling = newName != oldName && text::equalsIgnoreCase(newName, oldName);
    if (respelling) {
        if (const auto reason = CheckSystemName(newName)) throw CliError(*reason);
    } else {
        if (const auto reason = canCreateSystem(context.folder, newName)) throw CliError(*reason);
        requireNoWorkingCopy(store, newName);
    }
    // Save As: the system is saved under the new name with its pictures; the old one stays.
    SystemChange change(context.folder, args[0]);
    change.require(change.session().saveAs(newName),
                   "The system could not be saved as " + inQuotes(newName) + ".");
    const std::string warning = change.session().lastWarning();
    change.require(change.session().discard(), "The working copy could not be deleted.");
    if (!warning.empty())
        throw CliError("The system was saved as " + inQuotes(newName) + ". " + warning);
}

void deleteSystemCommand(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    const std::string name = existingSystem(store, args[0]);
    requireNoWorkingCopy(store, name);
    EditSession session(context.folder);
    if (!deleteSystem(session, name)) throw CliError(session.lastError());
}

}  // namespace

std::vector<CommandSpec> storeCommands() {
    return {
        {"offered", "offered", 0, 0, listOffered},
        {"list", "list", 0, 0, listCustom},
        {"show", "show NAME", 1, 1, showSystem},
        {"get", "get NAME SECTION KEY", 3, 3, getKey},
        {"encode-star", "encode-star KEY", 1, 1, encodeStar},
        {"new", "new NAME", 1, 1, newSystem},
        {"set", "set NAME SECTION KEY VALUE", 4, 4, setKey},
        {"delete-key", "delete-key NAME SECTION KEY", 3, 3, deleteKeyCommand},
        {"add-planet", "add-planet NAME", 1, 1, addPlanetCommand},
        {"insert-planet", "insert-planet NAME N", 2, 2, insertPlanetCommand},
        {"delete-planet", "delete-planet NAME N", 2, 2, deletePlanetCommand},
        {"swap-planets", "swap-planets NAME A B", 3, 3, swapPlanetsCommand},
        {"set-name", "set-name NAME N TEXT", 3, 3, setNameCommand},
        {"set-flag", "set-flag NAME PlanetPics|Messages N yes|no", 4, 4, setFlagCommand},
        {"clear-planets", "clear-planets NAME", 1, 1, clearPlanetsCommand},
        {"rename", "rename NAME NEW", 2, 2, renameCommand},
        {"delete", "delete NAME", 1, 1, deleteSystemCommand},
    };
}

}  // namespace orr::cli
