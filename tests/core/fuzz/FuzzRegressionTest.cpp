// Replays the inputs the fuzz targets found (tests/fuzz-regressions/<target>/) through the
// targets' own checks, so that each fault stays fixed without libFuzzer.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "FuzzChecks.h"

namespace orr {
namespace {

namespace fs = std::filesystem;

const fs::path kKept = fs::path(ORRERION_SOURCE_DIR) / "tests" / "fuzz-regressions";

std::vector<fs::path> inputsIn(const fs::path& folder) {
    std::vector<fs::path> inputs;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file()) inputs.push_back(entry.path());
    }
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

std::string bytesOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(FuzzRegressions, EveryKeptInputPassesItsTargetsCheck) {
    for (const fuzz::NamedCheck& named : fuzz::allChecks()) {
        const fs::path folder = kKept / named.target;
        if (!fs::is_directory(folder)) continue;
        for (const fs::path& input : inputsIn(folder)) {
            EXPECT_EQ(named.check(bytesOf(input)), "") << input;
        }
    }
}

}  // namespace
}  // namespace orr
