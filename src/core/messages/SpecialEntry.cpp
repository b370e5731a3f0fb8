#include "messages/SpecialEntry.h"

#include <utility>

namespace orr {

SpecialEntry::SpecialEntry(std::string line) : line_(std::move(line)) {}

bool SpecialEntry::isHeading() const {
    return line_.find(kCodeSeparator) == std::string::npos;
}

std::string SpecialEntry::code() const {
    const auto at = line_.find(kCodeSeparator);
    if (at == std::string::npos) return {};
    return line_.substr(0, at);
}

std::string SpecialEntry::description() const {
    const auto at = line_.find(kCodeSeparator);
    if (at == std::string::npos) return {};
    return line_.substr(at + std::string_view(kCodeSeparator).size());
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

std::optional<std::string> SpecialEntry::roundArgument() const {
    const auto span = placeholder('(', ')');
    if (!span) return std::nullopt;
    return contents(line_, span->open, span->close);
}

std::optional<std::string> SpecialEntry::squareArgument() const {
    const auto span = placeholder('[', ']');
    if (!span) return std::nullopt;
    return contents(line_, span->open, span->close);
}

bool SpecialEntry::canEditArgument() const {
    return line_.find_first_of("([") != std::string::npos;
}

SpecialEntry SpecialEntry::replaced(const std::optional<Span>& span, char close,
                                    std::string_view value) const {
    if (!span || value.empty()) return *this;
    std::string line = line_.substr(0, span->open + 1);
    line += value;
    line += close;
    // Whatever follows the placeholder stays: the description around it is kept whole.
    if (span->close != std::string::npos) line += line_.substr(span->close + 1);
    return SpecialEntry(std::move(line));
}

SpecialEntry SpecialEntry::withRoundArgument(std::string_view value) const {
    return replaced(placeholder('(', ')'), ')', value);
}

SpecialEntry SpecialEntry::withSquareArgument(std::string_view value) const {
    return replaced(placeholder('[', ']'), ']', value);
}

SpecialEntry SpecialEntry::withArgument(std::string_view value) const {
    if (placeholder('(', ')')) return withRoundArgument(value);
    return withSquareArgument(value);
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
