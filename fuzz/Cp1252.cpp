// Fuzz target: Windows-1252 texts to UTF-8 and back.
#include "FuzzChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return orr::fuzz::runCheck(orr::fuzz::checkCp1252, data, size);
}
