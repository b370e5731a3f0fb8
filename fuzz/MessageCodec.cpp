// Fuzz target: A stored message line read, composed and read again with the shipped SPECIAL.LST.
#include "FuzzChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return orr::fuzz::runCheck(orr::fuzz::checkMessageCodec, data, size);
}
