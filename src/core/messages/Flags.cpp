#include "messages/Flags.h"

#include "messages/MessageKeys.h"
#include "messages/SpecialEntry.h"
#include "text/Text.h"

namespace orr {

namespace {

constexpr int kLetterCount = 26;

}  // namespace

int FlagIndex(std::string_view flag) {
    if (flag.empty()) return 0;
    const int index = static_cast<unsigned char>(flag.front()) - 'A';
    if (index >= 0 && index < kLetterCount) return index;
    // Digits (and anything that is not a capital letter) count by their numeric value, as the
    // game's own files number them; a non-digit has the value 0.
    return static_cast<int>(text::leadingValue(flag.substr(0, 1))) + kLetterCount;
}

char FlagChar(int index) {
    if (index < 0 || index >= kFlagCount) index = 0;
    if (index < kLetterCount) return static_cast<char>('A' + index);
    return static_cast<char>('0' + (index - kLetterCount));
}

std::string FlagDescription(MessageStore& store, char flag) {
    std::string description = store.GetMessage(flagDescriptionKey(flag));
    if (description == kMissingValue) return kUnusedFlag;
    return description;
}

std::vector<std::string> LoadFlagItems(MessageStore& store) {
    std::vector<std::string> items;
    items.reserve(kFlagCount);
    for (int index = 0; index < kFlagCount; ++index) {
        const char flag = FlagChar(index);
        items.push_back(std::string(1, flag) + kCodeSeparator + FlagDescription(store, flag));
    }
    return items;
}

std::string FlagItemDescription(std::string_view item) {
    const auto at = item.find(kCodeSeparator);
    if (at == std::string_view::npos) return {};
    return std::string(item.substr(at + std::string_view(kCodeSeparator).size()));
}

bool IsUsableFlagDescription(std::string_view description) {
    return !description.empty() && description != kUnusedFlag;
}

bool SaveFlagDescription(MessageStore& store, char flag, const std::string& description) {
    return store.PutMessage(flagDescriptionKey(flag), description);
}

}  // namespace orr
