#include "rooms/GridWizard.h"

#include <algorithm>

#include "rooms/RoomNames.h"

namespace orr {

int clampGridSize(long long size) {
    return static_cast<int>(std::clamp<long long>(size, kMinGridSize, kMaxGridSize));
}

std::string validatedGridSize(std::string_view typed) {
    return std::to_string(clampGridSize(Val(typed)));
}

std::vector<std::pair<std::string, std::string>> GridWizardKeys(const GridWizardChoices& choices,
                                                                const Requirements& requirements) {
    const int width = clampGridSize(choices.width);
    const int height = clampGridSize(choices.height);
    const auto& chosen = choices.actions;
    const auto room = [&](int x, int y) { return gridRoomName(x, y, width, height); };
    std::vector<std::pair<std::string, std::string>> keys;
    keys.reserve(static_cast<std::size_t>(width * height) * 14 + 4);
    for (int x = 1; x <= width; ++x) {
        for (int y = 1; y <= height; ++y) {
            const std::string r = room(x, y);
            keys.emplace_back("Messages" + r, "1");
            keys.emplace_back("Message" + r + "1",
                              "This is Area " + std::to_string(x) + ", " + std::to_string(y));
            const std::array<std::string, kStandardActionCount> targets = {
                y > 1 ? room(x, y - 1) : "",
                x < width ? room(x + 1, y) : "",
                y < height ? room(x, y + 1) : "",
                x > 1 ? room(x - 1, y) : "",
                kBeamUpGroup,
                r + kSearchSuffix,
                r + kTricorderSuffix};
            int n = 0;
            for (int i = 0; i < kStandardActionCount; ++i) {
                if (!chosen[i] || targets[i].empty()) continue;
                const std::string text =
                    i < kDirectionCount
                        ? std::string("Go ") + kStandardCaptions[i] + " and report back."
                        : requirements.codes[i - kBeamUp] + kStandardCaptions[i];
                keys.emplace_back("Response" + r + std::to_string(++n), text + "*M" + targets[i]);
            }
            keys.emplace_back("Responses" + r, std::to_string(n));
            if (chosen[kSearch]) {
                keys.emplace_back("Messages" + r + kSearchSuffix, "1");
                keys.emplace_back("Message" + r + kSearchSuffix + "1",
                                  "We found nothing of interest, %RK.*R" + r);
            }
            if (chosen[kTricorder]) {
                keys.emplace_back("Messages" + r + kTricorderSuffix, "1");
                keys.emplace_back("Message" + r + kTricorderSuffix + "1",
                                  "We have a [type] reading bearing [number] degrees.*R" + r);
            }
        }
    }
    keys.emplace_back("BeamMessages", "1");
    keys.emplace_back("Beam1", "We beamed down to Area 1, 1*R" + room(1, 1));
    if (chosen[kBeamUp]) {
        keys.emplace_back("MessagesBeamUp", "1");
        // The spelling is kept: the systems made so far hold this very line.
        keys.emplace_back("MessageBeamUp1", "Beam up sucessful.*RNone");
    }
    return keys;
}

}  // namespace orr
