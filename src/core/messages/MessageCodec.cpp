#include "messages/MessageCodec.h"

#include <algorithm>

#include "text/Text.h"

namespace orr {

namespace {

constexpr std::size_t kShortCodeLength = 3;  // "%" or "^" and two characters

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

char digitChar(int value) {
    return static_cast<char>('0' + value);
}

std::string cutBefore(std::string_view s, char mark) {
    return std::string(s.substr(0, s.find(mark)));
}

// Where a display prefix "$title$" ends (the position after its second "$"); npos without one.
// A line with a single "$" has no prefix: the "$" stays part of the text, so nothing is lost.
std::size_t displayPrefixEnd(std::string_view s) {
    if (!s.starts_with('$')) return std::string_view::npos;
    const std::size_t close = s.find('$', 1);
    return close == std::string_view::npos ? close : close + 1;
}

class LineReader {
  public:
    LineReader(MessageLine& line, const SpecialCodeList& codes) : line_(line), codes_(codes) {}

    void apply(std::string_view token) {
        if (token.starts_with("*R")) lastR_ = std::string(token);
        if ((token.starts_with("*M") || token.starts_with("*R")) && !IsSystemCondition(token)) {
            line_.answerGroup = shownGroupName(token.substr(2));
            line_.storedTags.emplace_back(token);
        } else if (token.size() == kShortCodeLength && token.starts_with("%0") &&
                   isDigit(token[2])) {
            line_.percent = token[2] - '0';
        } else if (token.size() == kShortCodeLength && token.starts_with("%W") &&
                   isDigit(token[2])) {
            line_.wait = token[2] - '0';
        } else if (auto entry = codes_.entryForToken(token)) {
            line_.specials.push_back(std::move(*entry));
        } else {
            line_.droppedCodes.emplace_back(token);
        }
    }

    // The last "R" code read: the one the game takes for a message's answer.
    const std::string& lastR() const { return lastR_; }

  private:
    MessageLine& line_;
    const SpecialCodeList& codes_;
    std::string lastR_;
};

bool isSystemConditionEntry(const SpecialEntry& entry) {
    return entry.place() == CodePlace::Action && IsSystemCondition(entry.storedCode());
}

// Where the answer tag goes among the actions: after the last ship-system condition of a
// message, else before every action.
std::size_t tagPosition(const std::vector<SpecialEntry>& actions, Direction direction) {
    if (direction != Direction::Message) return 0;
    for (std::size_t i = actions.size(); i > 0; --i)
        if (isSystemConditionEntry(actions[i - 1])) return i;
    return 0;
}

}  // namespace

bool IsSystemCondition(std::string_view token) {
    if (token.starts_with("*RS")) return token.size() > 3 && isDigit(token[3]);
    if (token.starts_with("*R!S")) return token.size() > 4 && isDigit(token[4]);
    return false;
}

std::string AnswerTag(std::string_view answerGroup, Direction direction,
                      std::string_view currentGroup) {
    if (direction == Direction::Information || answerGroup.empty()) return {};
    const std::string target = storedGroupName(answerGroup);
    if (target == storedGroupName(currentGroup)) return {};
    return (direction == Direction::Response ? "*M" : "*R") + target;
}

std::string ComposeMessage(const MessageLine& line, Direction direction,
                           std::string_view currentGroup) {
    if (direction == Direction::Information) return line.text;

    std::string stored = line.text;
    if (line.display == DisplayMode::Box)
        stored = "$BOX$" + stored;
    else if (line.display == DisplayMode::Custom)
        stored = "$" + line.title + "$" + stored;

    const int percent = std::clamp(line.percent, 0, kMaxPercent);
    if (percent < kMaxPercent) stored = std::string("%0") + digitChar(percent) + stored;
    const int wait = std::clamp(line.wait, 0, kMaxWait);
    if (wait > 0) stored = std::string("%W") + digitChar(wait) + stored;

    // Prefix codes go in front one by one, so the last attached ends up first. Reading attaches
    // them in stored order, so a line read and written back has its prefix codes turned round
    // (the next round restores them). The game checks every prefix code before it uses the
    // line, so their order does not matter to it; both steps stay as they are, because the
    // attached list's order is what the editor and decode show.
    for (const SpecialEntry& entry : line.specials) {
        if (entry.place() == CodePlace::Prefix)
            stored = entry.storedCode() + stored;
        else if (entry.place() == CodePlace::Suffix)
            stored += entry.storedCode();
    }
    std::vector<SpecialEntry> actions;
    for (const SpecialEntry& entry : line.specials)
        if (entry.place() == CodePlace::Action) actions.push_back(entry);
    const std::size_t tagAt = tagPosition(actions, direction);
    std::string tag = AnswerTag(line.answerGroup, direction, currentGroup);
    // Without a tag after it, the last condition names the responses offered, which the
    // special-code list suggests for a closing message. So the own group's tag stays only where
    // the line was read with it deciding ("*RS3*RHail").
    if (tagAt > 0 && tag.empty() && line.answerCondition.empty() &&
        std::any_of(line.storedTags.begin(), line.storedTags.end(),
                    [](const std::string& stored) { return stored.starts_with("*R"); }))
        tag = "*R" + storedGroupName(currentGroup);
    for (std::size_t i = 0; i < actions.size(); ++i) {
        if (i == tagAt) stored += tag;
        stored += actions[i].storedCode();
    }
    if (tagAt == actions.size()) stored += tag;
    return stored;
}

MessageLine DecodeMessage(std::string_view stored, Direction direction,
                          std::string_view currentGroup, const SpecialCodeList& codes) {
    MessageLine line;
    if (direction == Direction::Information) {
        if (stored != kMissingValue) line.text = std::string(stored);
        return line;
    }
    line.answerGroup = shownGroupName(storedGroupName(currentGroup));
    LineReader reader(line, codes);

    std::string_view rest = stored;
    while (rest.starts_with('%')) {
        reader.apply(rest.substr(0, kShortCodeLength));
        rest.remove_prefix(std::min(kShortCodeLength, rest.size()));
    }

    if (const std::size_t end = displayPrefixEnd(rest); end != std::string_view::npos) {
        const std::string_view title = rest.substr(1, end - 2);
        if (title == "BOX") {
            line.display = DisplayMode::Box;
            line.title = kBoxCaption;
        } else {
            line.display = DisplayMode::Custom;
            line.title = std::string(title);
        }
        rest.remove_prefix(end);
    } else {
        line.title = kStandardCaption;
    }

    const std::string trimmed = text::trim(rest);
    line.text = cutBefore(cutBefore(trimmed, '*'), '^');
    // A missing key reads "ERR"; a text "ERR" behind codes is a text.
    if (stored == kMissingValue) line.text.clear();

    // Action codes: each runs from its "*" to the next one.
    std::size_t star = trimmed.find('*');
    for (std::size_t at = star; at != std::string::npos;) {
        const std::size_t next = trimmed.find('*', at + 1);
        reader.apply(std::string_view(trimmed).substr(at, next - at));
        at = next;
    }
    if (direction == Direction::Message && IsSystemCondition(reader.lastR()))
        line.answerCondition = reader.lastR();

    // Suffix codes: three characters from each "^" in what precedes the action codes.
    std::string remains = " " + trimmed.substr(0, star) + " ";
    for (std::size_t caret = remains.find('^'); caret != std::string::npos;
         caret = remains.find('^')) {
        reader.apply(std::string_view(remains).substr(caret, kShortCodeLength));
        remains.erase(caret, kShortCodeLength);
    }
    return line;
}

std::string PlainText(std::string_view stored) {
    while (stored.starts_with('%')) stored.remove_prefix(std::min(kShortCodeLength, stored.size()));
    if (const std::size_t end = displayPrefixEnd(stored); end != std::string_view::npos)
        stored.remove_prefix(end);
    return cutBefore(cutBefore(text::trim(stored), '*'), '^');
}

bool ExceedsLengthLimit(std::string_view stored) {
    return stored.size() > kMaxLineLength;
}

}  // namespace orr
