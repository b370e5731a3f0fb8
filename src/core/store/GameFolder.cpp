#include "store/GameFolder.h"

#include <algorithm>
#include <system_error>

#include "text/Text.h"

namespace orr {

GameFolder::GameFolder(fs::path root) : root_(std::move(root)) {}

fs::path GameFolder::item(std::string_view name) const {
    return findInFolder(root_, name);
}

fs::path GameFolder::executable() const {
    return item("voidrunner.exe");
}

fs::path GameFolder::systemList() const {
    return item("SOLARSYS.TXT");
}

fs::path GameFolder::alienNames() const {
    return item("aliens.txt");
}

fs::path GameFolder::installer() const {
    return item("ORBInst.dat");
}

fs::path GameFolder::specialCodes() const {
    return item("SPECIAL.LST");
}

fs::path GameFolder::descriptorFolder() const {
    return item("ORBDescriptor");
}

fs::path GameFolder::picturesFolder() const {
    return item("PICTURES");
}

bool GameFolder::hasGameExecutable() const {
    std::error_code ec;
    return !root_.empty() && fs::is_regular_file(executable(), ec);
}

fs::path GameFolder::findInFolder(const fs::path& dir, std::string_view name) {
    const fs::path exact = dir / fs::path(std::string(name));
    std::error_code ec;
    if (fs::exists(fs::symlink_status(exact, ec))) return exact;

    // Several entries may differ only in case on this file system; take the smallest name so
    // that the choice does not depend on the order the folder happens to list them in.
    std::string best;
    fs::directory_iterator it(dir.empty() ? fs::path(".") : dir, ec);
    for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
        const std::string entry = it->path().filename().string();
        if (text::equalsIgnoreCase(entry, name) && (best.empty() || entry < best)) best = entry;
    }
    return best.empty() ? exact : dir / best;
}

std::vector<std::string> GameFolder::systemNames(std::string_view extension) const {
    std::vector<std::string> names = filesWithExtension(descriptorFolder(), extension);
    for (std::string& name : names) name.resize(name.size() - extension.size());
    return names;
}

std::vector<std::string> GameFolder::filesWithExtension(const fs::path& dir,
                                                        std::string_view extension) {
    std::vector<std::string> names;
    std::error_code ec;
    fs::directory_iterator it(dir, ec);
    for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
        std::error_code typeError;
        if (!it->is_regular_file(typeError)) continue;
        const std::string name = it->path().filename().string();
        // A file called just ".orb" has no base name and is no system.
        if (name.size() <= extension.size()) continue;
        if (text::equalsIgnoreCase(std::string_view(name).substr(name.size() - extension.size()),
                                   extension)) {
            names.push_back(name);
        }
    }
    return names;
}

}  // namespace orr
