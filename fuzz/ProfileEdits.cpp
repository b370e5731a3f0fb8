// Fuzz target: The profile parser with edits: parse, write, delete, remove sections, parse again.
#include "FuzzChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return orr::fuzz::runCheck(orr::fuzz::checkProfileEdits, data, size);
}
