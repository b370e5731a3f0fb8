#include "messages/SpecialCodeFile.h"

#include <system_error>

#include "store/FileIo.h"

namespace orr {

namespace {

bool isFile(const std::filesystem::path& path) {
    std::error_code ec;
    return !path.empty() && std::filesystem::is_regular_file(path, ec);
}

}  // namespace

SpecialCodeLoad loadSpecialCodes(const GameFolder& folder,
                                 const std::filesystem::path& programCopy) {
    SpecialCodeLoad load;
    std::string problems;
    const std::filesystem::path inGameFolder =
        folder.root().empty() ? std::filesystem::path() : folder.specialCodes();
    for (const std::filesystem::path& path : {inGameFolder, programCopy}) {
        if (!isFile(path)) continue;
        std::string error;
        if (auto bytes = readWholeFile(path, &error)) {
            load.list = SpecialCodeList::parse(*bytes);
            load.list.setSource(path);
            load.problem = problems;
            return load;
        }
        problems += "The special-code list " + path.string() + " could not be read: " + error + " ";
    }
    load.problem = problems + std::string("No special-code list (") + kSpecialListFile +
                   ") was found; special codes cannot be attached, and codes already stored in "
                   "a line cannot be shown and would be lost when the line is saved.";
    return load;
}

}  // namespace orr
