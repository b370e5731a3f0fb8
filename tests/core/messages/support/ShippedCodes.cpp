#include "core/messages/support/ShippedCodes.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace orr::test {

std::string shippedListBytes() {
    std::ifstream in(std::string(ORRERION_SOURCE_DIR) + "/data/SPECIAL.LST", std::ios::binary);
    if (!in) throw std::runtime_error("data/SPECIAL.LST cannot be read");
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

const SpecialCodeList& shippedCodes() {
    static const SpecialCodeList list = SpecialCodeList::parse(shippedListBytes());
    return list;
}

}  // namespace orr::test
