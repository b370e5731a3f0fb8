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
#include "store/SystemList.h"
#include "store/SystemName.h"
#include "store/SystemOperations.h"
#include "text/Text.h"

namespace orr::cli {

namespace {

SystemStore openStore(const CliContext& context) {
    SystemStore store(context.folder);
    store.InitTables();  // without aliens.txt the alien names stay empty; nothing here needs them
    return store;
}

void requireSection(const std::string& section) {
    requireSingleLine(section, "A section name");
    if (section.empty() || section.find(']') != std::string::npos)
        throw CliError("A section name cannot be empty or hold ']'.");
}

void requireKey(const std::string& key) {
    requireSingleLine(key, "A key");
    const std::string trimmed = text::trim(key);
    if (trimmed.empty() || key.find('=') != std::string::npos || trimmed.front() == '[' ||
        trimmed.front() == ';')
        throw CliError("A key cannot be empty, hold '=' or begin with '[' or ';'.");
}

// The reason for an add or insert that added nothing, as the canvas reports it.
void requireAdded(AddPlanetResult result, const EditSession& session, const std::string& name) {
    switch (result) {
        case AddPlanetResult::Added:
            return;
        case AddPlanetResult::Full:
            throw CliError(kMaxPlanetsMessage);
        case AddPlanetResult::NoRoom:
            throw CliError("The orbits of " + inQuotes(name) +
                           " are too crowded for another planet: move the outer planets inward "
                           "first.");
        case AddPlanetResult::Failed:
            break;
    }
    session.fail("No planet could be added to " + inQuotes(name) + ".");
}

// --- reading commands

void listOffered(CliContext& context, const QStringList&) {
    for (const std::string& key : OfferedSystems(context.folder)) context.out << key << '\n';
}

void listCustom(CliContext& context, const QStringList&) {
    const fs::path folder = context.folder.descriptorFolder();
    std::error_code error;
    if (!fs::is_directory(folder, error)) return;
    std::vector<std::string> names;
    for (const std::string& file : GameFolder::filesWithExtension(folder, ".orb"))
        names.push_back(file.substr(0, file.size() - 4));
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
    const std::string encoded = EncodeStarArgument(key);
    // The game takes 21 characters. A longer key cannot reach it, whether the encoding cuts it
    // or not: a cut key encodes the same as the key less its last character.
    const bool cut = !key.empty() && key.back() != ' ' &&
                     encoded == EncodeStarArgument(key.substr(0, key.size() - 1));
    if (encoded.size() != 21 || cut) {
        throw CliError("The key " + inQuotes(key) +
                       " is too long for the game's start argument of 21 characters.");
    }
    for (std::size_t i = 0; i < encoded.size(); ++i)
        context.out << (i ? " " : "")
                    << static_cast<unsigned>(static_cast<unsigned char>(encoded[i]));
    context.out << '\n';
}

// --- changes of one system

void newSystem(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    const std::string name = bytesOf(args[0]);
    if (const auto reason = CheckSystemName(name)) throw CliError(*reason);
    store.ListDescriptors();
    if (const auto reason = canCreateSystem(store, name)) throw CliError(*reason);
    requireNoWorkingCopy(store, name);
    if (!createSystem(store, name)) {
        throw CliError(store.lastError().empty()
                           ? "The system " + inQuotes(name) + " could not be written."
                           : store.lastError());
    }
}

void setKey(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    const std::string section = bytesOf(args[1]);
    const std::string key = bytesOf(args[2]);
    const std::string value = bytesOf(args[3]);
    requireSection(section);
    requireKey(key);
    requireSingleLine(value, "A value");
    EditSession session(store, existingSystem(store, args[0]));
    if (!store.WriteKey(section, key, value)) session.fail("The key could not be written.");
    session.commit();
}

void deleteKey(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    const std::string section = bytesOf(args[1]);
    const std::string key = bytesOf(args[2]);
    requireSection(section);
    requireKey(key);
    EditSession session(store, existingSystem(store, args[0]));
    if (!store.DeleteKey(section, key)) session.fail("The key could not be deleted.");
    session.commit();
}

void addPlanetCommand(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    EditSession session(store, existingSystem(store, args[0]));
    session.requireBlock();
    if (session.record().PlanetCount >= kMaxPlanets) throw CliError(kMaxPlanetsMessage);
    requireAdded(addPlanet(store), session, session.record().Name);
    session.commit();
}

void insertPlanetCommand(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    EditSession session(store, existingSystem(store, args[0]));
    session.requireBlock();
    const int n = session.planetArgument(args[1], 1);
    if (session.record().PlanetCount >= kMaxPlanets) throw CliError(kMaxPlanetsMessage);
    requireAdded(insertPlanet(store, n), session, session.record().Name);
    session.commit();
}

void deletePlanetCommand(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    EditSession session(store, existingSystem(store, args[0]));
    session.requireBlock();
    const int n = session.planetArgument(args[1], 1);
    if (!canDeletePlanet(store, n) || !deletePlanet(store, n))
        session.fail("Planet " + std::to_string(n) + " could not be deleted.");
    session.commit();
}

void swapPlanetsCommand(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    EditSession session(store, existingSystem(store, args[0]));
    session.requireBlock();
    const int a = session.planetArgument(args[1], 1);
    const int b = session.planetArgument(args[2], 1);
    if (a == b) return;  // nothing to exchange; the working copy is discarded unchanged
    if (!canSwapPlanets(store, a, b) || !swapPlanets(store, a, b))
        session.fail("Planets " + std::to_string(a) + " and " + std::to_string(b) +
                     " could not be exchanged.");
    session.commit();
}

void setNameCommand(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    const std::string name = bytesOf(args[2]);
    requireSingleLine(name, "A name");
    EditSession session(store, existingSystem(store, args[0]));
    const int n = session.planetArgument(args[1], 0);
    if (!setPlanetName(store, n, name)) session.fail("The name could not be written.");
    session.commit();
}

void setFlagCommand(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
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
    EditSession session(store, existingSystem(store, args[0]));
    const int n = session.planetArgument(args[2], 1);
    if (!setPlanetFlag(store, flag, n, yes)) session.fail("The flag could not be written.");
    session.commit();
}

void clearPlanetsCommand(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    EditSession session(store, existingSystem(store, args[0]));
    session.requireBlock();
    if (!clearPlanets(store)) session.fail("The planets could not be cleared.");
    session.commit();
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
        if (const auto reason = canCreateSystem(store, newName)) throw CliError(*reason);
        requireNoWorkingCopy(store, newName);
    }
    {
        EditSession session(store, oldName);
        if (!store.RenameSystem(newName))
            session.fail("The working copy could not be renamed to " + inQuotes(newName) + ".");
        session.commit();
    }
    // Save As keeps the old system; the new one also gets the old one's pictures under its own
    // name, as the editor's Save As does.
    std::string reason;
    if (!replaceSystemPictures(store.folder(), oldName, newName, &reason)) {
        throw CliError("The system was saved as " + inQuotes(newName) +
                       ", but not all of its pictures could be carried over. " + reason);
    }
}

void deleteSystem(CliContext& context, const QStringList& args) {
    SystemStore store = openStore(context);
    const std::string name = existingSystem(store, args[0]);
    requireNoWorkingCopy(store, name);
    // The descriptor goes first and alone: when it cannot be deleted, the system stays whole
    // instead of losing its pictures.
    std::error_code error;
    if (!fs::remove(store.descriptorPath(name, ".orb"), error) || error) {
        throw CliError("The system " + inQuotes(name) + " could not be deleted: " +
                       (error ? error.message() : "its descriptor has gone") + ".");
    }
    if (!deleteSystemFiles(store, name)) {
        throw CliError(store.lastError().empty()
                           ? "The system " + inQuotes(name) + " could not be deleted."
                           : store.lastError());
    }
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
        {"delete-key", "delete-key NAME SECTION KEY", 3, 3, deleteKey},
        {"add-planet", "add-planet NAME", 1, 1, addPlanetCommand},
        {"insert-planet", "insert-planet NAME N", 2, 2, insertPlanetCommand},
        {"delete-planet", "delete-planet NAME N", 2, 2, deletePlanetCommand},
        {"swap-planets", "swap-planets NAME A B", 3, 3, swapPlanetsCommand},
        {"set-name", "set-name NAME N TEXT", 3, 3, setNameCommand},
        {"set-flag", "set-flag NAME PlanetPics|Messages N yes|no", 4, 4, setFlagCommand},
        {"clear-planets", "clear-planets NAME", 1, 1, clearPlanetsCommand},
        {"rename", "rename NAME NEW", 2, 2, renameCommand},
        {"delete", "delete NAME", 1, 1, deleteSystem},
    };
}

}  // namespace orr::cli
