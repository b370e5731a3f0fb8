#include "store/PictureFiles.h"

#include <algorithm>
#include <set>
#include <system_error>

#include "store/FileIo.h"
#include "text/Text.h"

namespace orr {

namespace {

// A picture's type: non-empty, without further dots, and not "avi", which names animations.
bool isPictureExtension(std::string_view extension) {
    return !extension.empty() && extension.find('.') == std::string_view::npos &&
           !text::equalsIgnoreCase(extension, "avi");
}

// An animation's planet number: 1..10, written without leading zeros; 0 for anything else.
int animationNumber(std::string_view digits) {
    if (digits.empty() || digits.size() > 2 || digits[0] == '0') return 0;
    int n = 0;
    for (char c : digits) {
        if (c < '0' || c > '9') return 0;
        n = n * 10 + (c - '0');
    }
    return n <= 10 ? n : 0;
}

std::string listingProblem(const fs::path& dir, const std::error_code& ec) {
    return "The pictures folder " + quotedPath(dir) + " could not be read (" + ec.message() + ").";
}

// The kind of file `file` is for system `name`, judged by its name alone.
std::optional<PictureFile> classify(const std::string& name, std::string_view file,
                                    bool sunIsAnotherSystem) {
    if (file.size() <= name.size() || !text::equalsIgnoreCase(file.substr(0, name.size()), name))
        return std::nullopt;
    const std::string_view rest = file.substr(name.size());
    const std::size_t dot = rest.find('.');
    if (dot == std::string_view::npos) return std::nullopt;
    const std::string_view stem = rest.substr(0, dot);
    const std::string_view extension = rest.substr(dot + 1);
    if (stem.empty() && isPictureExtension(extension))
        return PictureFile{{}, PictureFileKind::Strip, 0};
    if (text::equalsIgnoreCase(stem, "Sun") && isPictureExtension(extension) && !sunIsAnotherSystem)
        return PictureFile{{}, PictureFileKind::Star, 0};
    if (const int planet = animationNumber(stem);
        planet > 0 && text::equalsIgnoreCase(extension, "avi"))
        return PictureFile{{}, PictureFileKind::Animation, planet};
    return std::nullopt;
}

}  // namespace

bool isPictureFileName(const std::string& name, std::string_view fileName) {
    return classify(name, fileName, false).has_value();
}

std::vector<fs::path> PictureFileList::paths() const {
    std::vector<fs::path> result;
    for (const PictureFile& file : files) result.push_back(file.path);
    return result;
}

std::vector<fs::path> PictureFileList::paths(PictureFileKind kind) const {
    std::vector<fs::path> result;
    for (const PictureFile& file : files) {
        if (file.kind == kind) result.push_back(file.path);
    }
    return result;
}

PictureFileList systemPictureFiles(const GameFolder& folder, const std::string& name) {
    PictureFileList list;
    if (name.empty()) return list;
    const fs::path dir = folder.picturesFolder();
    std::error_code ec;
    if (!fs::exists(dir, ec)) {
        if (ec) list.error = listingProblem(dir, ec);
        return list;
    }
    // name + "Sun.bmp" is also the strip of a system called name + "Sun": leave it to that one.
    bool sunIsAnotherSystem = false;
    for (const std::string& system : folder.systemNames()) {
        if (text::equalsIgnoreCase(system, name + "Sun")) sunIsAnotherSystem = true;
    }
    fs::directory_iterator it(dir, ec);
    for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
        std::error_code typeError;
        if (!it->is_regular_file(typeError)) continue;
        std::optional<PictureFile> found =
            classify(name, it->path().filename().string(), sunIsAnotherSystem);
        if (!found) continue;
        found->path = it->path();
        list.files.push_back(std::move(*found));
    }
    if (ec) list.error = listingProblem(dir, ec);
    return list;
}

std::optional<fs::path> findStripFile(const GameFolder& folder, const std::string& name) {
    const std::vector<fs::path> strips =
        systemPictureFiles(folder, name).paths(PictureFileKind::Strip);
    if (strips.empty()) return std::nullopt;
    // Several spellings or types: the one a save writes comes first, then the smallest name, so
    // the choice does not depend on the order the folder lists them in.
    const fs::path preferred = stripFileFor(folder, name);
    if (std::find(strips.begin(), strips.end(), preferred) != strips.end()) return preferred;
    return *std::min_element(strips.begin(), strips.end());
}

std::optional<fs::path> findStarPicture(const GameFolder& folder, const std::string& name) {
    const std::vector<fs::path> stars =
        systemPictureFiles(folder, name).paths(PictureFileKind::Star);
    if (stars.empty()) return std::nullopt;
    const fs::path preferred = starPictureFor(folder, name);
    if (std::find(stars.begin(), stars.end(), preferred) != stars.end()) return preferred;
    return *std::min_element(stars.begin(), stars.end());
}

std::optional<fs::path> findAnimation(const GameFolder& folder, const std::string& name, int n) {
    const PictureFileList list = systemPictureFiles(folder, name);
    std::optional<fs::path> found;
    for (const PictureFile& file : list.files) {
        if (file.kind == PictureFileKind::Animation && file.planet == n &&
            (!found || file.path < *found))
            found = file.path;
    }
    return found;
}

fs::path stripFileFor(const GameFolder& folder, const std::string& name) {
    return GameFolder::findInFolder(folder.picturesFolder(), name + ".bmp");
}

fs::path starPictureFor(const GameFolder& folder, const std::string& name) {
    return GameFolder::findInFolder(folder.picturesFolder(), name + "Sun.bmp");
}

std::string deletePictureFiles(const GameFolder& folder, const std::string& name,
                               PictureFileKind kind, const fs::path& keep) {
    const PictureFileList list = systemPictureFiles(folder, name);
    std::string problem = list.error;
    for (const PictureFile& file : list.files) {
        if (file.kind != kind || (!keep.empty() && file.path == keep)) continue;
        std::string error;
        if (!removeFile(file.path, &error) && problem.empty()) problem = error;
    }
    return problem;
}

}  // namespace orr
