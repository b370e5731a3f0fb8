#include "messages/MessageEditRules.h"

#include <algorithm>

#include "messages/MessageCodec.h"
#include "text/Text.h"

namespace orr {

namespace {

std::string joined(const std::vector<std::string>& parts, std::string_view separator) {
    std::string result;
    for (const std::string& part : parts) {
        if (!result.empty()) result += separator;
        result += part;
    }
    return result;
}

// The answer group as it is written: the current group when none is given, INIT as "INIT".
std::string effectiveAnswerGroup(std::string_view answerGroup, std::string_view group) {
    return shownGroupName(storedGroupName(answerGroup.empty() ? group : answerGroup));
}

// The attached entries as a sorted list: reading a line back gives the prefix codes in reverse
// and the suffix codes after the actions, so only the set of entries can be compared.
std::vector<std::string> entrySet(const std::vector<SpecialEntry>& entries) {
    std::vector<std::string> lines;
    for (const SpecialEntry& entry : entries) lines.push_back(entry.line() + entry.storedCode());
    std::sort(lines.begin(), lines.end());
    return lines;
}

std::string inDoubleQuotes(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

// What the editor would do to the answer tags the line was read with: it writes a single tag
// with the direction's own letter ("*R" in a message, "*M" in a response) and INIT as the empty
// name. The game reads a message's "*M" as a change of the messages that follow and a
// response's "*R" as a change of the responses offered, and "*RINIT" names a group called
// INIT, so each such change alters what the line does.
void addTagWarnings(const MessageLine& line, Direction direction, std::string_view group,
                    std::vector<std::string>& warnings) {
    if (line.storedTags.empty()) return;
    const char letter = direction == Direction::Response ? 'M' : 'R';
    const std::string written =
        AnswerTag(effectiveAnswerGroup(line.answerGroup, group), direction, group);
    const std::string outcome =
        written.empty() ? " It will be left out, as the line answers with its own group."
                        : " It will be saved as " + inDoubleQuotes(written) + ".";
    if (line.storedTags.size() > 1) {
        std::vector<std::string> tags;
        for (const std::string& tag : line.storedTags) tags.push_back(inDoubleQuotes(tag));
        warnings.push_back("The line holds several answer tags (" + joined(tags, ", ") +
                           ") and only one is kept." + outcome);
    }
    for (const std::string& tag : line.storedTags) {
        if (tag[1] != letter) {
            warnings.push_back("The tag " + inDoubleQuotes(tag) + " is not " +
                               (direction == Direction::Response ? "a response's" : "a message's") +
                               " answer tag, and the game reads it differently." + outcome);
        } else if (tag.substr(2) == kInitGroup) {
            warnings.push_back("The tag " + inDoubleQuotes(tag) +
                               " names a group called \"INIT\", not the first group, which is "
                               "stored without a name." +
                               outcome);
        }
    }
}

// A message whose last "R" code was a ship-system condition led to the group the condition
// names; saved, its answer tag follows the conditions and decides instead. A condition the
// designer removed is the designer's change, not the editor's.
void addConditionWarning(const MessageLine& line, Direction direction, std::string_view group,
                         std::vector<std::string>& warnings) {
    const std::string& condition = line.answerCondition;
    if (direction != Direction::Message || condition.empty()) return;
    // Without a tag to write, the condition still decides.
    if (AnswerTag(effectiveAnswerGroup(line.answerGroup, group), direction, group).empty()) return;
    if (std::none_of(line.specials.begin(), line.specials.end(),
                     [&](const SpecialEntry& entry) { return entry.storedCode() == condition; }))
        return;
    warnings.push_back("The game takes the ship-system condition " + inDoubleQuotes(condition) +
                       " for the line's answer, as it is the last \"R\" code, and offers the "
                       "group " +
                       inDoubleQuotes(condition.substr(2)) +
                       ". Saved, the condition will stand before the answer tag and the line "
                       "will lead to " +
                       inDoubleQuotes(effectiveAnswerGroup(line.answerGroup, group)) + ".");
}

}  // namespace

std::string groupNameProblem(std::string_view name) {
    const std::string trimmed = text::trim(name);
    if (trimmed.empty()) return "Please enter a name for the group.";
    // The file layer trims key names, so "Trade " would share its count key with "Trade".
    if (trimmed.size() != name.size()) return "A group name cannot begin or end with a blank.";
    if (name.find_first_of("*=") != std::string_view::npos)
        return "A group name cannot contain \"*\" or \"=\".";
    if (std::any_of(name.begin(), name.end(),
                    [](char c) { return static_cast<unsigned char>(c) < 0x20; }))
        return "A group name cannot contain control characters.";
    return {};
}

std::string answerGroupProblem(std::string_view answerGroup, Direction direction) {
    if (answerGroup.empty() || direction == Direction::Information) return {};
    if (std::string problem = groupNameProblem(answerGroup); !problem.empty()) return problem;
    const std::string tag = "*R" + std::string(answerGroup);
    if (direction == Direction::Message && IsSystemCondition(tag)) {
        return "A message cannot lead to the group " + inDoubleQuotes(answerGroup) +
               ": the game reads " + inDoubleQuotes(tag) + " as a ship-system condition.";
    }
    return {};
}

namespace {

enum class ArgumentKind { Text, Number, ShipSystem, Flag };

// What the game reads after `code` (its interpreter's table of star codes and conditions).
ArgumentKind argumentKind(std::string_view code) {
    for (const char* system : {"*D", "*D!", "*F", "*F!", "*R", "*R!"})
        if (code == system) return ArgumentKind::ShipSystem;
    for (const char* flag : {"*SF", "*CF", "*TF", "%F", "%f"})
        if (code == flag) return ArgumentKind::Flag;
    if (code == "*A" || code == "*H" || code == "*SP" || code.starts_with("*+") ||
        code.starts_with("*-"))
        return ArgumentKind::Number;
    return ArgumentKind::Text;
}

bool isWholeNumber(std::string_view value, int maximum) {
    if (value.empty() || value.size() > 5) return false;
    if (!std::all_of(value.begin(), value.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return false;
    return std::stoi(std::string(value)) <= maximum;
}

}  // namespace

std::string argumentProblem(std::string_view code, std::string_view value) {
    if (value.find_first_of("*()[]") != std::string_view::npos)
        return "An argument cannot contain \"*\" or brackets.";
    const std::string of = "The value of " + std::string(code) + " must be ";
    switch (argumentKind(code)) {
        case ArgumentKind::Number: {
            // Retrofit kinds run from 0 to 5; the game keeps the other values in 16 bits.
            const int maximum = code == "*SP" ? 5 : 32767;
            if (isWholeNumber(value, maximum)) return {};
            return of + "a whole number from 0 to " + std::to_string(maximum) + ", not " +
                   inDoubleQuotes(value) + ".";
        }
        case ArgumentKind::ShipSystem:
            if (value.size() == 2 && value[0] == 'S' && value[1] >= '0' &&
                value[1] < '0' + kShipSystemCount)
                return {};
            return of +
                   "a ship system: S followed by its number from 0 to 8 (S3 is the Long "
                   "Range Scanners), not " +
                   inDoubleQuotes(value) + ".";
        case ArgumentKind::Flag:
            if (value.size() == 1 &&
                ((value[0] >= 'A' && value[0] <= 'Z') || (value[0] >= '0' && value[0] <= '9')))
                return {};
            return of + "one flag: a letter from A to Z or a digit from 0 to 9, not " +
                   inDoubleQuotes(value) + ".";
        case ArgumentKind::Text:
            break;
    }
    return {};
}

std::vector<std::string> saveWarnings(const MessageLine& line, Direction direction,
                                      std::string_view group, const SpecialCodeList& codes) {
    std::vector<std::string> warnings;
    if (direction == Direction::Information) return warnings;

    if (!line.droppedCodes.empty()) {
        warnings.push_back(
            "These codes stored in the line are not in the special-code list and will be "
            "dropped: " +
            joined(line.droppedCodes, ", ") + ".");
    }
    addTagWarnings(line, direction, group, warnings);
    addConditionWarning(line, direction, group, warnings);

    const std::string stored = ComposeMessage(line, direction, group);
    const MessageLine back = DecodeMessage(stored, direction, group, codes);
    // Cutting the text before a suffix code can leave a blank, which the game trims.
    if (text::trim(back.text) != text::trim(line.text)) {
        warnings.push_back("The text will read back as " + inDoubleQuotes(back.text) +
                           ": a text cannot contain \"*\" or \"^\" or be \"ERR\" alone, and "
                           "without a caption it cannot begin with \"%\" or \"$\".");
    }
    if (back.display != line.display ||
        (line.display == DisplayMode::Custom && back.title != line.title)) {
        warnings.push_back(
            "The caption will not read back as entered: a caption cannot "
            "contain \"$\" or be \"BOX\".");
    }
    if (back.answerGroup != effectiveAnswerGroup(line.answerGroup, group)) {
        warnings.push_back("The answer group will read back as \"" + back.answerGroup + "\".");
    }
    if (entrySet(back.specials) != entrySet(line.specials)) {
        warnings.push_back(
            "The attached codes will not read back as entered: an argument may have been read "
            "as another code.");
    }
    return warnings;
}

SaveCheck checkLineForSave(const MessageLine& line, Direction direction, std::string_view group,
                           const SpecialCodeList& codes) {
    SaveCheck check;
    check.refusal = answerGroupProblem(line.answerGroup, direction);
    if (check.refusal.empty()) check.warnings = saveWarnings(line, direction, group, codes);
    return check;
}

std::string saveQuestion(const std::vector<std::string>& warnings) {
    return joined(warnings, "\n\n") + "\n\nSave the line anyway?";
}

}  // namespace orr
