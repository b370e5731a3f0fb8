#include "messages/SpecialCodeList.h"

#include "text/Text.h"

namespace orr {

std::string attachConflictMessage(AttachConflict conflict) {
    switch (conflict) {
        case AttachConflict::SameRestriction:
            return "You cannot have more than one of the same restriction.";
        case AttachConflict::DirectionMarker:
            return "You cannot have more than one direction marker.";
        case AttachConflict::None:
            break;
    }
    return {};
}

SpecialCodeList SpecialCodeList::parse(std::string_view bytes) {
    SpecialCodeList list;
    std::size_t start = 0;
    while (start < bytes.size()) {
        std::size_t end = bytes.find_first_of("\r\n", start);
        if (end == std::string_view::npos) end = bytes.size();
        const std::string_view line = bytes.substr(start, end - start);
        // A line that is only an explanation (" -- ...") lists nothing.
        SpecialEntry entry{std::string(line)};
        if (!text::trim(entry.line()).empty()) list.entries_.push_back(std::move(entry));
        // CR LF counts as one line end; a lone CR or LF as well.
        start = end + 1;
        if (end < bytes.size() && bytes[end] == '\r' && start < bytes.size() &&
            bytes[start] == '\n')
            ++start;
    }
    return list;
}

const SpecialEntry* SpecialCodeList::findEntry(std::string_view token) const {
    for (auto it = entries_.rbegin(); it != entries_.rend(); ++it) {
        if (it->isHeading()) continue;
        const std::string code = it->code();
        if (!code.empty() && token.starts_with(code)) return &*it;
    }
    return nullptr;
}

std::optional<SpecialEntry> SpecialCodeList::entryForToken(std::string_view token) const {
    const SpecialEntry* entry = findEntry(token);
    if (!entry) return std::nullopt;
    const std::string_view argument = token.substr(entry->code().size());
    return entry->withArgument(argument);
}

int SpecialCodeList::settleChoice(int index) const {
    const int count = static_cast<int>(entries_.size());
    if (index < 0 || index >= count) return -1;
    for (int i = index; i < count; ++i)
        if (!entries_[i].isHeading()) return i;
    for (int i = index - 1; i >= 0; --i)
        if (!entries_[i].isHeading()) return i;
    return -1;
}

bool SpecialCodeList::canAdd(const SpecialEntry& chosen, Direction direction) {
    if (chosen.place() == CodePlace::None) return false;  // headings and unknown kinds
    if (direction == Direction::Response) return chosen.isRestriction();
    return direction == Direction::Message;
}

AttachConflict SpecialCodeList::checkAttach(const std::vector<SpecialEntry>& attached,
                                            const SpecialEntry& chosen) {
    if (chosen.place() != CodePlace::Prefix) return AttachConflict::None;
    for (const SpecialEntry& entry : attached) {
        const bool markers = entry.isDirectionMarker() && chosen.isDirectionMarker();
        if (entry.line() != chosen.line() && !markers) continue;
        if (entry.isFlagRestriction()) continue;  // several flag restrictions may stand together
        return markers ? AttachConflict::DirectionMarker : AttachConflict::SameRestriction;
    }
    return AttachConflict::None;
}

}  // namespace orr
