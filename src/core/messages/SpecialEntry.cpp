#include "messages/SpecialEntry.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace orr {

SpecialEntry::SpecialEntry(std::string line) : line_(std::move(line)) {
    const auto at = line_.find(kExplanationSeparator);
    if (at == std::string::npos) return;
    explanation_ = line_.substr(at + std::string_view(kExplanationSeparator).size());
    line_.erase(at);
}

bool SpecialEntry::isHeading() const {
    return line_.find(kCodeSeparator) == std::string::npos;
}

std::string SpecialEntry::code() const {
    const auto at = line_.find(kCodeSeparator);
    if (at == std::string::npos) return {};
    return line_.substr(0, at);
}

std::string SpecialEntry::description() const {
    const std::string shown = line();
    const auto at = shown.find(kCodeSeparator);
    if (at == std::string::npos) return {};
    return shown.substr(at + std::string_view(kCodeSeparator).size());
}

CodePlace SpecialEntry::place() const {
    if (isHeading() || line_.empty()) return CodePlace::None;
    switch (line_.front()) {
        case '%':
            return CodePlace::Prefix;
        case '^':
            return CodePlace::Suffix;
        case '*':
            return CodePlace::Action;
        default:
            return CodePlace::None;
    }
}

bool SpecialEntry::isRestriction() const {
    return place() == CodePlace::Prefix;
}

bool SpecialEntry::isDirectionMarker() const {
    return line_.starts_with("%G");
}

bool SpecialEntry::isFlagRestriction() const {
    return line_.starts_with("%F") || line_.starts_with("%f");
}

std::optional<SpecialEntry::Span> SpecialEntry::placeholder(char open, char close) const {
    // Only the description can hold a placeholder; the code never does.
    const auto at = line_.find(kCodeSeparator);
    if (at == std::string::npos) return std::nullopt;
    const auto openAt = line_.find(open, at + std::string_view(kCodeSeparator).size());
    if (openAt == std::string::npos) return std::nullopt;
    return Span{openAt, line_.find(close, openAt + 1)};
}

namespace {

std::string contents(const std::string& line, std::size_t open, std::size_t close) {
    if (close == std::string::npos) return line.substr(open + 1);
    return line.substr(open + 1, close - open - 1);
}

}  // namespace

std::optional<std::string> SpecialEntry::argument(char open, char close,
                                                  const std::optional<std::string>& set) const {
    const auto span = placeholder(open, close);
    if (!span) return std::nullopt;
    if (set) return set;
    return contents(line_, span->open, span->close);
}

std::optional<std::string> SpecialEntry::roundArgument() const {
    return argument('(', ')', round_);
}

std::optional<std::string> SpecialEntry::squareArgument() const {
    return argument('[', ']', square_);
}

std::string SpecialEntry::line() const {
    struct Fill {
        Span span;
        char close;
        const std::string* value;
    };
    std::vector<Fill> fills;
    const auto round = placeholder('(', ')');
    if (round && round_) fills.push_back({*round, ')', &*round_});
    const auto square = placeholder('[', ']');
    if (square && square_) fills.push_back({*square, ']', &*square_});
    if (fills.size() == 2 && fills[1].span.open < fills[0].span.open) std::swap(fills[0], fills[1]);

    std::string line;
    std::size_t from = 0;
    for (const Fill& fill : fills) {
        if (fill.span.open < from) continue;  // a placeholder inside the other one's default
        line += line_.substr(from, fill.span.open + 1 - from);
        line += *fill.value;
        line += fill.close;
        // Whatever follows the placeholder stays: the description around it is kept whole.
        from = fill.span.close == std::string::npos ? line_.size() : fill.span.close + 1;
    }
    return line + line_.substr(std::min(from, line_.size()));
}

bool SpecialEntry::canEditArgument() const {
    return line_.find_first_of("([") != std::string::npos;
}

SpecialEntry SpecialEntry::withRoundArgument(std::string_view value) const {
    if (!placeholder('(', ')') || value.empty()) return *this;
    SpecialEntry entry = *this;
    entry.round_ = std::string(value);
    return entry;
}

SpecialEntry SpecialEntry::withSquareArgument(std::string_view value) const {
    if (!placeholder('[', ']') || value.empty()) return *this;
    SpecialEntry entry = *this;
    entry.square_ = std::string(value);
    return entry;
}

SpecialEntry SpecialEntry::withArgument(std::string_view value) const {
    if (placeholder('(', ')')) return withRoundArgument(value);
    return withSquareArgument(value);
}

bool SpecialEntry::operator==(const SpecialEntry& other) const {
    return line_ == other.line_ && roundArgument() == other.roundArgument() &&
           squareArgument() == other.squareArgument();
}

std::string SpecialEntry::storedCode() const {
    switch (place()) {
        case CodePlace::Prefix:
            return code() + squareArgument().value_or("");
        case CodePlace::Suffix:
            return code();
        case CodePlace::Action:
            return code() + roundArgument().value_or("") + squareArgument().value_or("");
        case CodePlace::None:
            break;
    }
    return {};
}

ArgumentEditor SpecialEntry::argumentEditor() const {
    if (auto round = roundArgument()) {
        const std::string& v = *round;
        if (v.size() == 2 && v[0] == 'S' && v[1] >= '0' && v[1] < '0' + kShipSystemCount)
            return {ArgumentEditorKind::SystemChooser, v, v[1] - '0'};
        return {ArgumentEditorKind::InputBox, v, -1};
    }
    if (auto square = squareArgument()) return {ArgumentEditorKind::FlagChooser, *square, -1};
    return {};
}

std::string shipSystemArgument(int index) {
    return "S" + std::to_string(index);
}

}  // namespace orr
