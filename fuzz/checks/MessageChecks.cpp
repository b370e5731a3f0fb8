// The message language: the line codec with the shipped special-code list, and the list's own
// parser.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "CheckSupport.h"
#include "FuzzChecks.h"
#include "messages/MessageCodec.h"
#include "messages/MessageEditRules.h"
#include "messages/SpecialCodeList.h"
#include "text/Text.h"

namespace orr::fuzz {

namespace {

const SpecialCodeList& shippedCodes() {
    static const SpecialCodeList list = [] {
        std::ifstream in(ORRERION_SOURCE_DIR "/data/SPECIAL.LST", std::ios::binary);
        if (!in) throw std::runtime_error("data/SPECIAL.LST cannot be read");
        return SpecialCodeList::parse(
            std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()));
    }();
    return list;
}

struct CodecInput {
    std::string line;
    Direction direction = Direction::Message;
    std::string group;  // stored form
};

// "ResponseTrade2=..." is a response of Trade, "MessageTrade1=..." and "Beam1=..." messages of
// their groups; anything else is a message of INIT. A stored value ends at its line end.
CodecInput codecInput(std::string_view input) {
    CodecInput parsed;
    std::string_view line = input;
    const std::size_t eq = input.find('=');
    if (eq != std::string_view::npos) {
        std::string_view key = input.substr(0, eq);
        for (const char* prefix : {"Response", "Message", "Beam"}) {
            if (!key.starts_with(prefix)) continue;
            if (prefix[0] == 'R') parsed.direction = Direction::Response;
            key.remove_prefix(std::string_view(prefix).size());
            while (!key.empty() && key.back() >= '0' && key.back() <= '9') key.remove_suffix(1);
            parsed.group = prefix[0] == 'B' ? "Beam" : std::string(key);
            line = input.substr(eq + 1);
            break;
        }
    }
    parsed.line = std::string(line.substr(0, line.find_first_of("\r\n")));
    return parsed;
}

// The "*" codes of a stored line in the order the game runs them, as the reader finds them:
// after the prefix codes and the display prefix, each from its "*" to the next one.
std::vector<std::string> actionTokens(std::string_view stored) {
    while (stored.starts_with('%')) stored.remove_prefix(std::min<std::size_t>(3, stored.size()));
    if (stored.starts_with('$')) {
        if (const std::size_t close = stored.find('$', 1); close != std::string_view::npos) {
            stored.remove_prefix(close + 1);
        }
    }
    const std::string rest = text::trim(stored);
    std::vector<std::string> tokens;
    for (std::size_t at = rest.find('*'); at != std::string::npos;) {
        const std::size_t next = rest.find('*', at + 1);
        tokens.push_back(rest.substr(at, next - at));
        at = next;
    }
    return tokens;
}

// The group the line leads to when the game runs it: the last "*R" code names the responses a
// message offers (a ship-system condition "*RS3" offers the group "S3" as well), the last "*M"
// code the messages a response answers with; without one, the line's own group.
std::string ledTo(std::string_view stored, char letter, const CodecInput& in) {
    std::string group = (letter == 'M') == (in.direction == Direction::Response) ? in.group : "-";
    for (const std::string& token : actionTokens(stored)) {
        if (token.size() >= 2 && token[1] == letter) group = token.substr(2);
    }
    return group;
}

// Answer tags the editor rewrites on purpose and warns about before saving.
bool hasWarnedTag(const MessageLine& line, Direction direction) {
    const char letter = direction == Direction::Response ? 'M' : 'R';
    return std::any_of(line.storedTags.begin(), line.storedTags.end(), [&](const std::string& t) {
        return t[1] != letter || t.substr(2) == kInitGroup;
    });
}

std::vector<std::string> entryLines(const MessageLine& line, CodePlace place) {
    std::vector<std::string> lines;
    for (const SpecialEntry& entry : line.specials) {
        if (entry.place() == place) lines.push_back(entry.line());
    }
    // The prefix codes come back turned round, which the game does not mind.
    if (place == CodePlace::Prefix) std::sort(lines.begin(), lines.end());
    return lines;
}

std::string modelDifference(const MessageLine& a, const MessageLine& b) {
    if (a.wait != b.wait || a.percent != b.percent) return "wait or percent";
    if (a.display != b.display || a.title != b.title) return "display";
    if (a.text != b.text) return "text " + shown(a.text) + " became " + shown(b.text);
    if (a.answerGroup != b.answerGroup) {
        return "answer group " + shown(a.answerGroup) + " became " + shown(b.answerGroup);
    }
    for (CodePlace place : {CodePlace::Prefix, CodePlace::Suffix, CodePlace::Action}) {
        if (entryLines(a, place) != entryLines(b, place)) return "attached codes";
    }
    return {};
}

}  // namespace

std::string checkMessageCodec(std::string_view input) {
    const CodecInput in = codecInput(input);
    const SpecialCodeList& codes = shippedCodes();
    auto decode = [&](std::string_view line) {
        return DecodeMessage(line, in.direction, in.group, codes);
    };
    auto compose = [&](const MessageLine& line) {
        return ComposeMessage(line, in.direction, in.group);
    };
    const MessageLine first = decode(in.line);
    // A line the editor warns about (or refuses) before saving is the designer's choice.
    if (!checkLineForSave(first, in.direction, in.group, codes).clean()) return {};
    const std::string stored = compose(first);
    MessageLine second = decode(stored);
    // The game trims the blanks that end a stored value, so text blanks that end up last are
    // never shown: nothing the player sees changed.
    if (stored.ends_with(' ') && text::trimRight(first.text) == second.text)
        second.text = first.text;
    const std::string where =
        shown(in.line) + " (group " + shown(in.group) + ") composes as " + shown(stored) + ": ";

    if (std::string difference = modelDifference(first, second); !difference.empty()) {
        return where + difference + " read differently";
    }
    // Answer tags of the other kind are rewritten on purpose, and the editor says so before
    // saving; otherwise the line must lead where it led.
    if (hasWarnedTag(first, in.direction)) return {};
    for (const char letter : {'R', 'M'}) {
        const std::string from = ledTo(in.line, letter, in);
        const std::string to = ledTo(stored, letter, in);
        if (from != to) {
            return where + "the last *" + letter + " code led to " + shown(from) + " and now to " +
                   shown(to);
        }
    }
    return {};
}

std::string checkSpecialCodes(std::string_view input) {
    const SpecialCodeList list = SpecialCodeList::parse(input);
    const std::vector<SpecialEntry>& entries = list.entries();

    std::string joined;
    for (const SpecialEntry& entry : entries) {
        if (entry.line().find_first_of("\r\n") != std::string::npos ||
            text::trim(entry.line()).empty()) {
            return "the entry " + shown(entry.line()) + " is no single non-empty line";
        }
        joined += entry.line() + "\r\n";
    }
    if (SpecialCodeList::parse(joined).entries() != entries) {
        return "the entries written one per line read back differently";
    }

    for (std::size_t i = 0; i < entries.size(); ++i) {
        const SpecialEntry& entry = entries[i];
        const std::string name = "entry " + std::to_string(i + 1) + " " + shown(entry.line());
        const int settled = list.settleChoice(static_cast<int>(i));
        if (settled >= 0 && entries[static_cast<std::size_t>(settled)].isHeading()) {
            return "choosing " + name + " settles on a heading";
        }
        if (!entry.isHeading() && settled != static_cast<int>(i)) {
            return "choosing " + name + " settles elsewhere";
        }
        if (entry.isHeading() || entry.code().empty()) continue;

        // The entry read back from its own code: the list finds this entry or one listed later
        // whose code it begins with.
        const SpecialEntry* found = list.findEntry(entry.code());
        if (found == nullptr || !entry.code().starts_with(found->code()) || found < &entry) {
            return "the code of " + name + " finds " + (found ? shown(found->line()) : "nothing");
        }
        list.entryForToken(entry.storedCode());
        const ArgumentEditor editor = entry.argumentEditor();
        if (editor.kind == ArgumentEditorKind::SystemChooser &&
            (editor.systemIndex < 0 || editor.systemIndex >= kShipSystemCount)) {
            return name + " opens the system chooser on system " +
                   std::to_string(editor.systemIndex);
        }
        // A plain argument put into the placeholder reads back from it.
        const SpecialEntry filled = entry.withArgument("7");
        const std::optional<std::string> back =
            entry.roundArgument() ? filled.roundArgument() : filled.squareArgument();
        if ((entry.roundArgument() || entry.squareArgument()) && back != "7") {
            return name + " with the argument \"7\" became " + shown(filled.line());
        }
        SpecialCodeList::checkAttach(entries, entry);
    }
    return {};
}

}  // namespace orr::fuzz
