#include "messages/MessageKeys.h"

namespace orr {

namespace {

constexpr std::string_view kBeamGroup = "Beam";

}  // namespace

std::string MessageKeyPair::itemKey(int n) const {
    if (direction == Direction::Information) return itemPrefix;
    return itemPrefix + std::to_string(n);
}

std::string storedGroupName(std::string_view group) {
    if (group == kInitGroup) return {};
    return std::string(group);
}

std::string shownGroupName(std::string_view group) {
    if (group.empty()) return kInitGroup;
    return std::string(group);
}

MessageKeyPair messageKeys(std::string_view group, Direction direction) {
    const std::string g = storedGroupName(group);
    switch (direction) {
        case Direction::Information:
            return {"", kInfoKey, direction};
        case Direction::Message:
            if (g == kBeamGroup) return {"BeamMessages", "Beam", direction};
            return {"Messages" + g, "Message" + g, direction};
        case Direction::Response:
            break;
    }
    return {"Responses" + g, "Response" + g, Direction::Response};
}

std::string ignoreGroup(std::string_view group) {
    return "Ignore" + storedGroupName(group);
}

std::string phaserGroup(std::string_view group) {
    return storedGroupName(group) + "Phaser";
}

std::string flagDescriptionKey(char flag) {
    return std::string("Flag") + flag;
}

}  // namespace orr
