#include "DescriptorGenerator.h"

#include <array>

#include "rooms/GridWizard.h"

namespace orr::bench {

namespace {

// x written with as many digits as the grid's largest coordinate has, as the wizard pads.
std::string padded(int value, int largest) {
    std::string text = std::to_string(value);
    const std::size_t width = std::to_string(largest).size();
    if (text.size() < width) text.insert(0, width - text.size(), '0');
    return text;
}

constexpr std::array<const char*, 4> kDirections = {"North", "East", "South", "West"};

}  // namespace

std::vector<KeyValue> gridAreaKeys(int width, int height, std::string_view roomPrefix) {
    const std::string prefix(roomPrefix);
    auto room = [&](int x, int y) { return prefix + padded(x, width) + padded(y, height); };

    std::vector<KeyValue> keys;
    keys.reserve(static_cast<std::size_t>(width * height) * 14);
    for (int x = 1; x <= width; ++x) {
        for (int y = 1; y <= height; ++y) {
            const std::string r = room(x, y);
            keys.push_back({"Messages" + r, "1"});
            keys.push_back({"Message" + r + "1",
                            "This is Area " + std::to_string(x) + ", " + std::to_string(y)});

            std::vector<std::string> responses;
            const bool hasNeighbour[4] = {y > 1, x < width, y<height, x> 1};
            const std::string neighbour[4] = {
                hasNeighbour[0] ? room(x, y - 1) : "", hasNeighbour[1] ? room(x + 1, y) : "",
                hasNeighbour[2] ? room(x, y + 1) : "", hasNeighbour[3] ? room(x - 1, y) : ""};
            for (int d = 0; d < 4; ++d) {
                if (!hasNeighbour[d]) continue;
                responses.push_back(std::string("Go ") + kDirections[d] + " and report back.*M" +
                                    neighbour[d]);
            }
            responses.push_back("Beam back up to the ship.*MBeamUp");
            responses.push_back("Search the area for anything unusual.*M" + r + "Search");
            responses.push_back("What are your current tricorder readings?*M" + r + "Tri");
            for (std::size_t n = 0; n < responses.size(); ++n) {
                keys.push_back({"Response" + r + std::to_string(n + 1), responses[n]});
            }
            keys.push_back({"Responses" + r, std::to_string(responses.size())});

            keys.push_back({"Messages" + r + "Search", "1"});
            keys.push_back({"Message" + r + "Search1", "We found nothing of interest, %RK.*R" + r});
            keys.push_back({"Messages" + r + "Tri", "1"});
            keys.push_back({"Message" + r + "Tri1",
                            "We have a [type] reading bearing [number] degrees.*R" + r});
        }
    }
    return keys;
}

std::vector<KeyValue> gridWizardKeys(int width, int height) {
    std::vector<KeyValue> keys;
    for (auto& [key, value] : GridWizardKeys({width, height}, {}))
        keys.push_back({std::move(key), std::move(value)});
    return keys;
}

std::string generateDescriptor(int planets, int width, int height, int gridless) {
    const std::string flags(static_cast<std::size_t>(planets), 'Y');
    std::string out;
    auto line = [&out](std::string_view text) { out.append(text).append("\r\n"); };

    line("[General]");
    line("PlanetPics = " + flags);
    line("Messages = " + flags);
    line("");
    line(";SolarSystem");
    line(";\"Benchmark Prime     \",3," + std::to_string(planets));
    for (int p = 0; p < planets; ++p) {
        std::string planet = ";";
        planet.append(std::to_string(400 + 30 * p)).append(",").append(std::to_string(1 + p % 5));
        planet.append(",").append(std::to_string(p % 3)).append(",0,");
        planet.append(std::to_string(1 + p % 14)).append(",0");
        line(planet);
    }

    line("[Names]");
    line("S=A pale yellow star at the edge of the charted sectors");
    for (int p = 1; p <= planets; ++p) line(std::to_string(p) + "=Outpost " + std::to_string(p));

    const std::vector<KeyValue> grid = gridWizardKeys(width, height);
    for (int p = 1; p <= planets; ++p) {
        line(std::string("[").append(std::to_string(p)).append("]"));
        if (p == gridless) {
            line("Info=An uncharted world.");
            continue;
        }
        for (const KeyValue& kv : grid) line(kv.key + "=" + kv.value);
    }
    return out;
}

}  // namespace orr::bench
