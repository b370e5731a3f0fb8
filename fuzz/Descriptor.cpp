// Fuzz target: A descriptor loaded, and its block saved and loaded again, by the system store.
#include "FuzzChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return orr::fuzz::runCheck(orr::fuzz::checkDescriptor, data, size);
}
