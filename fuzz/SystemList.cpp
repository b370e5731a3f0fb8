// Fuzz target: The game's system list SOLARSYS.TXT.
#include "FuzzChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return orr::fuzz::runCheck(orr::fuzz::checkSystemList, data, size);
}
