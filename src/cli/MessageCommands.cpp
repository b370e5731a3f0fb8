// The planet message commands of orrerion-cli: the groups and lines of a planet of a saved
// system, and the translation between a stored line and the message editor's view of it (as
// JSON), so scripts can read and write lines exactly as the editor does. Nothing here changes a
// file.

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
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
    SystemStore store = openSavedSystem(context.folder, args[0]);
    PlanetMessageStore planet(store, savedPlanetArgument(store, args[1]));
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
    SystemStore store = openSavedSystem(context.folder, args[0]);
    PlanetMessageStore planet(store, savedPlanetArgument(store, args[1]));
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

QJsonArray jsonTexts(const std::vector<std::string>& texts) {
    QJsonArray array;
    for (const std::string& text : texts) array.append(textOf(text));
    return array;
}

// Besides what the editor shows, the JSON carries what the stored line held that the editor
// cannot show ("dropped", "storedTags", "answerCondition"), so that compose refuses exactly what
// the editor's Save would ask about.
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
    if (!line.droppedCodes.empty()) json["dropped"] = jsonTexts(line.droppedCodes);
    if (!line.storedTags.empty()) json["storedTags"] = jsonTexts(line.storedTags);
    if (!line.answerCondition.empty()) json["answerCondition"] = textOf(line.answerCondition);
    return json;
}

// What the editor's Save would refuse or ask about, one sentence each.
std::vector<std::string> saveProblems(const MessageLine& line, Direction direction,
                                      const std::string& group, const SpecialCodeList& codes) {
    SaveCheck check = checkLineForSave(line, direction, group, codes);
    if (!check.refusal.empty()) check.warnings.insert(check.warnings.begin(), check.refusal);
    return check.warnings;
}

void decodeCommand(CliContext& context, const QStringList& args) {
    const Direction direction = directionArgument(args[0]);
    const std::string group = groupArgument(args[1]);
    const std::string stored = storableBytesOf(args[2], "The message line");
    requireSingleLine(stored, "A message line");
    const SpecialCodeList codes = specialCodes(context);
    const MessageLine line = DecodeMessage(stored, direction, group, codes);
    context.out << QJsonDocument(lineToJson(line)).toJson(QJsonDocument::Indented).toStdString();
    // What the view cannot show, in the editor's words: composing it back would be refused.
    context.out.flush();
    for (const std::string& problem : saveProblems(line, direction, group, codes))
        std::cerr << "orrerion-cli: warning: " << problem << '\n';
}

std::string bytesOfText(const QJsonValue& value, const std::string& what) {
    if (!value.isString()) throw CliError(what + " must be a text.");
    const std::string bytes = storableBytes(value.toString().toStdString(), what);
    requireSingleLine(bytes, what);
    return bytes;
}

std::vector<std::string> textsField(const QJsonObject& json, const char* key) {
    const QJsonValue value = json[key];
    if (value.isUndefined()) return {};
    const std::string what = std::string("'") + key + "'";
    if (!value.isArray()) throw CliError(what + " must be a list of texts.");
    std::vector<std::string> texts;
    for (const QJsonValue& item : value.toArray()) texts.push_back(bytesOfText(item, what));
    return texts;
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

// What decode reported beyond the editor's view, given back so that the save check sees it.
void readStoredForm(const QJsonObject& json, MessageLine& line) {
    line.droppedCodes = textsField(json, "dropped");
    line.storedTags = textsField(json, "storedTags");
    for (const std::string& tag : line.storedTags) {
        if (!tag.starts_with("*R") && !tag.starts_with("*M"))
            throw CliError(inQuotes(tag) + " in 'storedTags' is not an answer tag.");
    }
    if (json.contains("answerCondition")) {
        line.answerCondition = bytesOfText(json["answerCondition"], "'answerCondition'");
        if (!IsSystemCondition(line.answerCondition))
            throw CliError(inQuotes(line.answerCondition) + " is not a ship-system condition.");
    }
}

MessageLine lineFromJson(const QJsonObject& json, const std::string& group,
                         const SpecialCodeList& codes) {
    MessageLine line;
    readStoredForm(json, line);
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
        line.display = DisplayMode::Custom;
        line.title = display;
    }
    line.text = json.contains("text") ? bytesOfText(json["text"], "'text'") : "";
    line.answerGroup =
        json.contains("answerGroup") ? bytesOfText(json["answerGroup"], "'answerGroup'") : "";
    if (line.answerGroup.empty()) line.answerGroup = shownGroupName(storedGroupName(group));

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
    // Where the editor would ask before saving, the tool refuses, in the editor's words.
    std::string problems;
    for (const std::string& problem : saveProblems(line, direction, group, codes))
        problems += (problems.empty() ? "" : " ") + problem;
    if (!problems.empty()) throw CliError(problems);
    const std::string stored = ComposeMessage(line, direction, group);
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
