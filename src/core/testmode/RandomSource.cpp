#include "testmode/RandomSource.h"

#include <chrono>

namespace orr {

double SeededRandom::next() {
    // 32 random bits scaled into [0, 1): the same sequence on every platform for one seed,
    // which std::uniform_real_distribution does not promise.
    return static_cast<double>(engine_()) / 4294967296.0;
}

std::uint32_t SeededRandom::clockSeed() {
    const auto ticks = std::chrono::system_clock::now().time_since_epoch().count();
    return static_cast<std::uint32_t>(ticks ^ (ticks >> 32));
}

}  // namespace orr
