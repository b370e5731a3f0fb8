// The planet message commands of orrerion-cli: the groups and lines of a planet of a saved
// system, and the translation between a stored line and the message editor's view of it (as
// JSON), so scripts can read and write lines exactly as the editor does. Nothing here changes a
// file.

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cmath>
#include <iostream>
#include <iterator>

#include "CliSupport.h"
#include "Command.h"
#include "messages/MessageCodec.h"
#include "messages/MessageEditRules.h"
#include "messages/MessageGroups.h"
#include "messages/MessageList.h"
#include "messages/PlanetMessageStore.h"
#include "messages/SpecialCodeFile.h"
#include "text/Cp1252.h"
#include "text/Text.h"

namespace orr::cli {

namespace {

constexpr const char* kStandard = "standard";
constexpr const char* kBox = "box";

Direction directionArgument(const QString& argument) {
    const std::string word = bytesOf(argument);
    if (word == "message") return Direction::Message;
    if (word == "response") return Direction::Response;
    throw CliError("The list must be 'message' or 'response', not " + inQuotes(word) + ".");
}

// The editor's rule for group names; the empty name is INIT's stored name.
std::string groupArgument(const QString& argument) {
    const std::string group = storableBytesOf(argument, "The group name");
    if (group.empty()) return group;
    if (const std::string problem = groupNameProblem(group); !problem.empty())
        throw CliError(problem);
    return group;
}

// The saved system, opened for reading only: its descriptor is never written.
SystemStore openSaved(const CliContext& context, const QString& name) {
    SystemStore store(context.folder);
    const std::string found = existingSystem(store, name);
    store.record().Name = found;
    store.LoadSystem(found);
    return store;
}

int planetArgument(const SystemStore& store, const QString& argument) {
    const int planet = numberArgument(argument, 1, kMaxPlanets, "A planet number");
    const int count = store.record().PlanetCount;
    if (planet > count) {
        throw CliError("There is no planet " + std::to_string(planet) + " in " +
                       inQuotes(store.record().Name) + ": it has " + std::to_string(count) +
                       (count == 1 ? " planet." : " planets."));
    }
    return planet;
}

std::filesystem::path programFolder() {
    if (QCoreApplication::instance())
        return std::filesystem::path(QCoreApplication::applicationDirPath().toStdString());
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

SpecialCodeList specialCodes(const CliContext& context) {
    SpecialCodeLoad load = loadSpecialCodes(context.folder, programFolder() / kSpecialListFile);
    if (!load.list.codesAvailable()) throw CliError(load.problem);
    return std::move(load.list);
}

// --- reading a planet

void groupsCommand(CliContext& context, const QStringList& args) {
    SystemStore store = openSaved(context, args[0]);
    PlanetMessageStore planet(store, planetArgument(store, args[1]));
    MessageGroups groups;
    groups.LoadGroupLists(planet);
    for (const GroupEntry& entry : groups.entries()) {
        const bool messages = entry.uses & kUsedForMessages;
        const bool responses = entry.uses & kUsedForResponses;
        context.out << entry.name << '\t'
                    << (messages && responses ? "both"
                        : messages            ? "messages"
                                              : "responses")
                    << '\n';
    }
}

void linesCommand(CliContext& context, const QStringList& args) {
    SystemStore store = openSaved(context, args[0]);
    PlanetMessageStore planet(store, planetArgument(store, args[1]));
    const MessageList list(planet, groupArgument(args[2]), directionArgument(args[3]));
    const std::vector<std::string> lines = list.lines();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        // A missing item keeps its place as an empty line (line n of the output stays item n);
        // the note says which key is missing, so "ERR" is never taken for a stored text.
        if (lines[i] == kMissingValue) {
            context.out.flush();
            std::cerr << "orrerion-cli: note: " << list.keys().itemKey(static_cast<int>(i) + 1)
                      << " is missing\n";
            context.out << '\n';
        } else {
            context.out << lines[i] << '\n';
        }
    }
}

// --- the editor's view of a line

QJsonObject lineToJson(const MessageLine& line) {
    QJsonObject json;
    json["wait"] = line.wait;
    json["percent"] = line.percent;
    if (line.display == DisplayMode::Standard) {
        json["display"] = kStandard;
    } else if (line.display == DisplayMode::Box) {
        json["display"] = kBox;
    } else {
        json["display"] = textOf(line.title);
        // A custom title that reads like a display mode is marked, so composing keeps it.
        if (line.title == kStandard || line.title == kBox) json["custom"] = true;
    }
    json["text"] = textOf(line.text);
    json["answerGroup"] = textOf(line.answerGroup);
    QJsonArray codes;
    for (const SpecialEntry& entry : line.specials) codes.append(textOf(entry.storedCode()));
    json["codes"] = codes;
    if (!line.droppedCodes.empty()) {
        QJsonArray dropped;
        for (const std::string& code : line.droppedCodes) dropped.append(textOf(code));
        json["dropped"] = dropped;
    }
    return json;
}

void decodeCommand(CliContext& context, const QStringList& args) {
    const Direction direction = directionArgument(args[0]);
    const std::string group = groupArgument(args[1]);
    const std::string stored = bytesOf(args[2]);
    requireSingleLine(stored, "A message line");
    const MessageLine line = DecodeMessage(stored, direction, group, specialCodes(context));
    context.out << QJsonDocument(lineToJson(line)).toJson(QJsonDocument::Indented).toStdString();
}

std::string bytesOfText(const QJsonValue& value, const std::string& what) {
    if (!value.isString()) throw CliError(what + " must be a text.");
    const std::string bytes = storableBytes(value.toString().toStdString(), what);
    requireSingleLine(bytes, what);
    return bytes;
}

int numberField(const QJsonObject& json, const char* key, int fallback, int max) {
    if (!json.contains(key)) return fallback;
    const QJsonValue value = json[key];
    const double number = value.toDouble(-1);
    if (!value.isDouble() || number != std::floor(number) || number < 0 || number > max) {
        throw CliError(std::string("'") + key + "' must be a whole number from 0 to " +
                       std::to_string(max) + ".");
    }
    return static_cast<int>(number);
}

// decode lists the codes it could not read under "dropped"; composing without them would lose
// them from the line for good, so such a line is refused rather than quietly shortened.
void refuseDroppedCodes(const QJsonObject& json) {
    const QJsonValue dropped = json["dropped"];
    if (dropped.isUndefined()) return;
    if (!dropped.isArray()) throw CliError("'dropped' must be a list of texts.");
    std::string named;
    for (const QJsonValue& value : dropped.toArray()) {
        if (!named.empty()) named += ", ";
        named += inQuotes(bytesOfText(value, "Each dropped code"));
    }
    if (named.empty()) return;
    throw CliError("The line held codes that are not in the special-code list: " + named +
                   ". Composing it would lose them.");
}

MessageLine lineFromJson(const QJsonObject& json, const std::string& group,
                         const SpecialCodeList& codes) {
    refuseDroppedCodes(json);
    MessageLine line;
    line.wait = numberField(json, "wait", 0, kMaxWait);
    line.percent = numberField(json, "percent", kMaxPercent, kMaxPercent);
    const std::string display =
        json.contains("display") ? bytesOfText(json["display"], "'display'") : kStandard;
    const bool custom = json["custom"].toBool(false);
    if (!custom && display == kStandard) {
        line.display = DisplayMode::Standard;
    } else if (!custom && display == kBox) {
        line.display = DisplayMode::Box;
    } else {
        if (display.find('$') != std::string::npos)
            throw CliError("A custom title cannot hold '$'.");
        line.display = DisplayMode::Custom;
        line.title = display;
    }
    line.text = json.contains("text") ? bytesOfText(json["text"], "'text'") : "";
    if (line.text.find_first_of("*^") != std::string::npos)
        throw CliError("The text cannot hold '*' or '^': they begin codes.");
    if (line.display == DisplayMode::Standard && line.text.starts_with('%'))
        throw CliError(
            "A text that begins with '%' is read as codes: put an insert code after "
            "the first character.");
    line.answerGroup =
        json.contains("answerGroup") ? bytesOfText(json["answerGroup"], "'answerGroup'") : "";
    if (line.answerGroup.empty()) line.answerGroup = shownGroupName(storedGroupName(group));
    if (line.answerGroup.find('*') != std::string::npos)
        throw CliError("The answer group cannot hold '*'.");

    const QJsonValue list = json["codes"];
    if (!list.isUndefined() && !list.isArray()) throw CliError("'codes' must be a list of texts.");
    for (const QJsonValue& value : list.toArray()) {
        const std::string code = bytesOfText(value, "Each code");
        if ((code.starts_with("*R") || code.starts_with("*M")) && !IsSystemCondition(code))
            throw CliError(inQuotes(code) + " is an answer tag: give it as 'answerGroup'.");
        if (code.size() == 3 && (code.starts_with("%0") || code.starts_with("%W")))
            throw CliError(inQuotes(code) + " is given as 'percent' or 'wait'.");
        auto entry = codes.entryForToken(code);
        if (!entry) {
            throw CliError("The code " + inQuotes(code) + " is not in the special-code list (" +
                           codes.source().string() + ").");
        }
        // The editor attaches only restrictions to responses, but a response read from the
        // file keeps whatever codes it holds, so they are accepted here as well.
        if (entry->place() == CodePlace::None)
            throw CliError(inQuotes(code) + " is not a code of a stored line.");
        // Without an argument the entry's example would be written, which nobody asked for.
        const SpecialEntry* listed = codes.findEntry(code);
        if (code.size() == listed->code().size() && listed->canEditArgument()) {
            throw CliError(inQuotes(code) + " needs its argument written after it, as in " +
                           inQuotes(listed->storedCode()) + ".");
        }
        // The same rules as the editor's "Add".
        if (const AttachConflict conflict = SpecialCodeList::checkAttach(line.specials, *entry);
            conflict != AttachConflict::None)
            throw CliError(attachConflictMessage(conflict));
        line.specials.push_back(std::move(*entry));
    }
    return line;
}

std::vector<std::string> sortedCodes(const MessageLine& line) {
    std::vector<std::string> result;
    for (const SpecialEntry& entry : line.specials) result.push_back(entry.storedCode());
    std::sort(result.begin(), result.end());
    return result;
}

// The composed line must read back as what was asked for (prefix codes may change their order,
// which the game does not mind); anything else would be lost the next time the line is read.
void requireReadsBack(const MessageLine& wanted, const MessageLine& read) {
    std::string part;
    if (read.text != wanted.text && text::trim(read.text) != text::trim(wanted.text))
        part = "the text would read back as " + inQuotes(read.text);
    else if (read.display != wanted.display ||
             (wanted.display == DisplayMode::Custom && read.title != wanted.title))
        part = "the display would read back differently";
    else if (read.answerGroup != wanted.answerGroup)
        part = "the answer group would read back as " + inQuotes(read.answerGroup);
    else if (read.wait != wanted.wait || read.percent != wanted.percent ||
             sortedCodes(read) != sortedCodes(wanted))
        part = "the codes would read back differently";
    if (!part.empty()) throw CliError("This line cannot be stored as given: " + part + ".");
}

void composeCommand(CliContext& context, const QStringList& args) {
    const Direction direction = directionArgument(args[0]);
    const std::string group = groupArgument(args[1]);
    const std::string input{std::istreambuf_iterator<char>(context.in),
                            std::istreambuf_iterator<char>()};
    QJsonParseError error;
    const QJsonDocument document =
        QJsonDocument::fromJson(QByteArray::fromStdString(input), &error);
    if (error.error != QJsonParseError::NoError) {
        throw CliError(
            "The standard input is not valid JSON: " + error.errorString().toStdString() +
            " at offset " + std::to_string(error.offset) + ".");
    }
    if (!document.isObject()) throw CliError("The standard input must hold one JSON object.");

    const SpecialCodeList codes = specialCodes(context);
    const MessageLine line = lineFromJson(document.object(), group, codes);
    const std::string stored = ComposeMessage(line, direction, group);
    requireReadsBack(line, DecodeMessage(stored, direction, group, codes));
    if (ExceedsLengthLimit(stored)) {
        std::cerr << "orrerion-cli: warning: the line is " << stored.size()
                  << " characters long; the game reads at most " << kMaxLineLength << ".\n";
    }
    context.out << stored << '\n';
}

}  // namespace

std::vector<CommandSpec> messageCommands() {
    return {
        {"groups", "groups NAME PLANET", 2, 2, groupsCommand},
        {"lines", "lines NAME PLANET GROUP message|response", 4, 4, linesCommand},
        {"decode", "decode message|response GROUP LINE", 3, 3, decodeCommand},
        {"compose", "compose message|response GROUP   (JSON on standard input)", 2, 2,
         composeCommand},
    };
}

}  // namespace orr::cli
