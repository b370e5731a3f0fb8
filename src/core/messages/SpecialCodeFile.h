#pragma once
// Finding and reading the special-code list: the game folder's SPECIAL.LST (found whatever its
// letter case), else the copy that ships beside the program, else an empty list that cannot
// attach codes.

#include <filesystem>
#include <string>

#include "messages/SpecialCodeList.h"
#include "store/GameFolder.h"

namespace orr {

struct SpecialCodeLoad {
    SpecialCodeList list;  // list.source() names the file read; empty when none could be read
    std::string problem;   // a sentence for the user when a file was missing or unreadable
};

// `programCopy` is the full path of the program's own SPECIAL.LST (may be empty).
SpecialCodeLoad loadSpecialCodes(const GameFolder& folder,
                                 const std::filesystem::path& programCopy);

}  // namespace orr
