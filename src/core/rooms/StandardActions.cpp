#include "rooms/StandardActions.h"

#include "messages/MessageKeys.h"
#include "text/Text.h"

namespace orr {

int directionChoiceOf(std::string_view codes) {
    for (int choice = 1; choice < kDirectionChoiceCount; ++choice)
        if (hasCode(codes, kDirectionTags[choice])) return choice;
    return 0;
}

Requirements readRequirements(MessageStore& store) {
    Requirements requirements;
    for (std::size_t row = 0; row < kRequirementKeys.size(); ++row) {
        const std::string value = store.GetMessage(kRequirementKeys[row]);
        if (value != kMissingValue) requirements.codes[row] = value;
    }
    return requirements;
}

std::string requirementCode(char need, char flag) {
    if (need != 'F' && need != 'f') return {};
    return std::string{'%', need, flag};
}

bool isFlagCharacter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

std::string directionMarker(int i) {
    return std::string("%G") + kStandardCaptions[i][0];
}

std::string defaultActionLine(int i, std::string_view room, const Neighbours& neighbours,
                              const Requirements& requirements) {
    if (i < kDirectionCount)
        return std::string("Go ") + kStandardCaptions[i] + " and report back.*M" + neighbours[i];
    const std::string& prefix = requirements.codes[i - kBeamUp];
    std::string destination;
    if (i == kBeamUp) destination = kBeamUpGroup;
    if (i == kSearch) destination = std::string(room) + kSearchSuffix;
    if (i == kTricorder) destination = std::string(room) + kTricorderSuffix;
    return prefix + kStandardCaptions[i] + "*M" + destination;
}

int ClassifyAction(const SplitLine& action, const Neighbours& neighbours,
                   const std::array<bool, kStandardActionCount>& bound) {
    const std::string destination = destinationOf(action.tail);
    const std::string upperText = text::toUpper(action.text);
    for (int i = 0; i < kStandardActionCount; ++i) {
        if (bound[i]) continue;
        bool matches = false;
        if (i < kDirectionCount) {
            if (hasCode(action.codes, kDirectionTags[5])) continue;
            matches = neighbours[i] == destination ||
                      upperText.find(text::toUpper(kStandardCaptions[i])) != std::string::npos ||
                      hasCode(action.codes, directionMarker(i));
        } else if (i == kBeamUp) {
            matches = destination == kBeamUpGroup;
        } else {
            matches = destination.ends_with(i == kSearch ? kSearchSuffix : kTricorderSuffix);
        }
        if (matches) return i;
    }
    return -1;
}

}  // namespace orr
