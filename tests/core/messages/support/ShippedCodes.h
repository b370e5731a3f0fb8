#pragma once
// The special-code list that ships with the program (data/SPECIAL.LST).

#include <string>

#include "messages/SpecialCodeList.h"

namespace orr::test {

std::string shippedListBytes();
const SpecialCodeList& shippedCodes();

}  // namespace orr::test
