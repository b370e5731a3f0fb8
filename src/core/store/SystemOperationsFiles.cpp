// The edits of SystemOperations.h that create and delete whole systems and carry pictures over
// to a new name, and the game's start argument.
#include <algorithm>
#include <set>
#include <system_error>

#include "store/FileIo.h"
#include "store/SystemList.h"
#include "store/SystemName.h"
#include "store/SystemOperations.h"
#include "text/Text.h"

namespace orr {

namespace {

// The extension of a picture: non-empty, without further dots, and not "avi", which names the
// animations ("Sol1.avi" is animation 1 of Sol, never the strip of a system "Sol1").
bool isPictureExtension(std::string_view extension) {
    return !extension.empty() && extension.find('.') == std::string_view::npos &&
           !text::equalsIgnoreCase(extension, "avi");
}

bool isAnimationNumber(std::string_view digits) {
    if (digits.empty() || digits.size() > 2 || digits[0] == '0') return false;
    for (char c : digits) {
        if (c < '0' || c > '9') return false;
    }
    const int n = std::stoi(std::string(digits));
    return n >= 1 && n <= kMaxPlanets;
}

}  // namespace

std::optional<std::string> canCreateSystem(const SystemStore& store, const std::string& answer,
                                           NewSystemAnswer kind) {
    if (std::optional<std::string> reason = CheckSystemName(answer)) return reason;
    std::error_code ec;
    const fs::path existing = store.descriptorPath(answer, ".orb");
    if (fs::exists(existing, ec)) {
        // A typed name can be typed again; a listed key is the only name of its system.
        return "A system named \"" + existing.stem().string() + "\" already exists." +
               (kind == NewSystemAnswer::CustomName ? " Please choose another name." : "");
    }
    return std::nullopt;
}

bool createSystem(SystemStore& store, const std::string& answer, NewSystemAnswer kind) {
    if (std::optional<std::string> reason = canCreateSystem(store, answer, kind)) {
        return store.fail(*reason);
    }
    // Slots the new system does not use keep what they held, as everywhere in the record.
    SystemRecord record = store.record();
    const bool listed =
        kind == NewSystemAnswer::ListedKey && FindListedSystem(store.folder(), answer, record);
    if (!listed) {
        record.Name = answer;
        record.setDisplayName(answer);
        record.StarType = 0;
        record.PlanetCount = 0;
        for (PlanetRecord& planet : record.Planets) {
            planet.Position = 0;
            planet.Size = 0;
            planet.PlanetClass = 0;
        }
    }
    std::error_code ec;
    fs::create_directories(store.folder().descriptorFolder(), ec);
    const fs::path path = store.descriptorPath(answer, ".orb");
    std::string error;
    const bool written = writeFileAtomically(path, newDescriptorText(record), &error);
    store.profiles().forget(path);
    if (!written) {
        return store.fail("The new system could not be saved as \"" + path.filename().string() +
                          "\"" + (error.empty() ? "." : ": " + error));
    }
    // An open working copy belongs to another system, which stays open; otherwise the new
    // system becomes the record, ready to be opened.
    if (!store.IsEditing()) store.record() = record;
    return true;
}

std::vector<fs::path> systemPictureFiles(const GameFolder& folder, const std::string& name) {
    std::vector<fs::path> files;
    if (name.empty()) return files;
    // name + "Sun.bmp" is also the strip of a system called name + "Sun": leave it to that one.
    std::set<std::string> systems;
    for (const std::string& file :
         GameFolder::filesWithExtension(folder.descriptorFolder(), ".orb")) {
        systems.insert(text::toUpper(file.substr(0, file.size() - 4)));
    }
    const bool sunIsAnotherSystem = systems.count(text::toUpper(name + "Sun")) > 0;

    const fs::path dir = folder.picturesFolder();
    std::error_code ec;
    for (fs::directory_iterator it(dir, ec); !ec && it != fs::directory_iterator();
         it.increment(ec)) {
        std::error_code typeError;
        if (!it->is_regular_file(typeError)) continue;
        const std::string file = it->path().filename().string();
        if (file.size() <= name.size() ||
            !text::equalsIgnoreCase(std::string_view(file).substr(0, name.size()), name)) {
            continue;
        }
        const std::string_view rest = std::string_view(file).substr(name.size());
        const std::size_t dot = rest.find('.');
        if (dot == std::string_view::npos) continue;
        const std::string_view stem = rest.substr(0, dot);
        const std::string_view extension = rest.substr(dot + 1);
        const bool strip = stem.empty() && isPictureExtension(extension);
        const bool star = text::equalsIgnoreCase(stem, "Sun") && isPictureExtension(extension) &&
                          !sunIsAnotherSystem;
        const bool animation = isAnimationNumber(stem) && text::equalsIgnoreCase(extension, "avi");
        if (strip || star || animation) files.push_back(it->path());
    }
    return files;
}

bool deleteSystemFiles(SystemStore& store, const std::string& name) {
    if (name.empty()) return store.fail("No system is selected.");
    if (store.IsEditing() && text::equalsIgnoreCase(store.record().Name, name)) {
        store.EndEdit(false);
    }
    // The descriptor goes first: when it cannot be deleted the system stays whole, pictures
    // included, rather than losing its pictures and keeping its descriptor.
    const fs::path descriptor = store.descriptorPath(name, ".orb");
    std::error_code ec;
    if (fs::exists(descriptor, ec)) {
        fs::remove(descriptor, ec);
        store.profiles().forget(descriptor);
        if (ec) {
            return store.fail(std::string("\"")
                                  .append(descriptor.filename().string())
                                  .append("\" could not be deleted: ")
                                  .append(ec.message())
                                  .append("."));
        }
    }

    std::string failed;
    for (const fs::path& file : systemPictureFiles(store.folder(), name)) {
        std::error_code removeError;
        fs::remove(file, removeError);
        if (removeError && failed.empty()) {
            failed = std::string("\"")
                         .append(file.filename().string())
                         .append("\" could not be deleted: ")
                         .append(removeError.message())
                         .append(".");
        }
    }
    return failed.empty() || store.fail(failed);
}

bool replaceSystemPictures(const GameFolder& folder, const std::string& from, const std::string& to,
                           std::string* error) {
    if (from.empty() || to.empty() || from == to) return true;
    std::string problem;
    const auto note = [&problem](const std::string& what, const fs::path& file,
                                 const std::string& why) {
        if (problem.empty()) {
            problem.append("The picture \"")
                .append(file.filename().string())
                .append("\" could not be ")
                .append(what)
                .append(": ")
                .append(why);
            if (problem.back() != '.') problem.append(".");
        }
    };
    const std::vector<fs::path> sources = systemPictureFiles(folder, from);
    // The file of the new system that corresponds to one of the old: the same ending.
    const auto underNewName = [&](const fs::path& file) {
        return file.parent_path() / (to + file.filename().string().substr(from.size()));
    };

    if (text::equalsIgnoreCase(from, to)) {
        for (const fs::path& file : sources) {
            std::error_code ec;
            fs::rename(file, underNewName(file), ec);
            if (ec) note("renamed", file, ec.message());
        }
    } else {
        for (const fs::path& stale : systemPictureFiles(folder, to)) {
            // A file both names claim (a star picture that is also a strip) is the source's.
            if (std::find(sources.begin(), sources.end(), stale) != sources.end()) continue;
            std::error_code ec;
            fs::remove(stale, ec);
            if (ec) note("deleted", stale, ec.message());
        }
        for (const fs::path& file : sources) {
            const fs::path target = underNewName(file);
            if (target == file) continue;
            std::string why;
            if (!copyFileKeepingTime(file, target, &why)) note("copied", file, why);
        }
    }
    if (error) *error = problem;
    return problem.empty();
}

std::string EncodeStarArgument(const std::string& key) {
    constexpr std::size_t kArgumentWidth = 21;
    const long long value = text::leadingValue(key);
    std::string argument;
    if (value > 0 && value < 254) {
        // The planet count becomes one character; the digits it replaces are as many as the
        // number has.
        const std::size_t digits = std::to_string(value).size();
        argument =
            std::string(1, static_cast<char>(value)) + key.substr(std::min(digits, key.size()));
    } else if (value >= 254) {
        const long long firstTwo = text::leadingValue(key.substr(0, 2));
        argument = std::string(1, static_cast<char>(firstTwo)) +
                   key.substr(std::min<std::size_t>(2, key.size()));
    } else if (value == 0 && !key.empty() && key[0] == '0') {
        argument = std::string(1, '\0') + key.substr(1);
    } else {
        argument = std::string(1, static_cast<char>(254)) + key;
    }
    argument = text::fitWidth(argument, kArgumentWidth);
    for (char& c : argument) c = static_cast<char>(255 - static_cast<unsigned char>(c));
    return argument;
}

}  // namespace orr
