// Fuzz target: The special-code list SPECIAL.LST.
#include "FuzzChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return orr::fuzz::runCheck(orr::fuzz::checkSpecialCodes, data, size);
}
