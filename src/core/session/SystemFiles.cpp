#include "session/SystemFiles.h"

#include <algorithm>
#include <system_error>

#include "store/FileIo.h"
#include "store/PictureFiles.h"
#include "store/SystemList.h"
#include "store/SystemName.h"
#include "text/Text.h"

namespace orr {

std::optional<std::string> canCreateSystem(const GameFolder& folder, const std::string& answer,
                                           NewSystemAnswer kind) {
    if (std::optional<std::string> reason = CheckSystemName(answer)) return reason;
    std::error_code ec;
    const fs::path existing = GameFolder::findInFolder(folder.descriptorFolder(), answer + ".orb");
    if (fs::exists(existing, ec)) {
        // A typed name can be typed again; a listed key is the only name of its system.
        return "A system named \"" + existing.stem().string() + "\" already exists." +
               (kind == NewSystemAnswer::CustomName ? " Please choose another name." : "");
    }
    return std::nullopt;
}

bool createSystem(const GameFolder& folder, const std::string& answer, NewSystemAnswer kind,
                  std::string* error) {
    if (std::optional<std::string> reason = canCreateSystem(folder, answer, kind)) {
        if (error) *error = *reason;
        return false;
    }
    SystemRecord record;
    const bool listed =
        kind == NewSystemAnswer::ListedKey && FindListedSystem(folder, answer, record);
    if (!listed) {
        record = SystemRecord();
        record.setDisplayName(answer);
    }
    record.Name = answer;
    std::error_code ec;
    fs::create_directories(folder.descriptorFolder(), ec);
    const fs::path path = GameFolder::findInFolder(folder.descriptorFolder(), answer + ".orb");
    std::string why;
    if (!writeFileAtomically(path, newDescriptorText(record), &why)) {
        if (error)
            *error = "The new system could not be saved as \"" + path.filename().string() + "\"" +
                     (why.empty() ? "." : ": " + why);
        return false;
    }
    return true;
}

bool deleteSystem(EditSession& session, const std::string& name) {
    if (name.empty()) return session.fail("No system is selected.");
    if (session.isOpen() && text::equalsIgnoreCase(session.name(), name) && !session.discard())
        return false;
    const GameFolder& folder = session.folder();
    const fs::path descriptor = GameFolder::findInFolder(folder.descriptorFolder(), name + ".orb");
    std::string error;
    if (!removeFile(descriptor, &error))
        return session.fail("The system " + name + " was not deleted. " + error);
    const PictureFileList pictures = systemPictureFiles(folder, name);
    std::string problem = pictures.error;
    for (const fs::path& file : pictures.paths()) {
        if (!removeFile(file, &error) && problem.empty()) problem = error;
    }
    if (!problem.empty())
        return session.fail("The system " + name +
                            " was deleted, but not all of its pictures: " + problem);
    return true;
}

bool replaceSystemPictures(const GameFolder& folder, const std::string& from, const std::string& to,
                           std::string* error) {
    if (from.empty() || to.empty() || from == to) return true;
    std::string problem;
    const auto note = [&problem](const std::string& why) {
        if (problem.empty()) problem = why;
    };
    const PictureFileList sources = systemPictureFiles(folder, from);
    note(sources.error);
    // The file of the new system that corresponds to one of the old: the same ending.
    const auto underNewName = [&](const fs::path& file) {
        return file.parent_path() / (to + file.filename().string().substr(from.size()));
    };
    std::string why;
    if (text::equalsIgnoreCase(from, to)) {
        for (const fs::path& file : sources.paths()) {
            if (!renameFile(file, underNewName(file), &why)) note(why);
        }
    } else {
        const PictureFileList stale = systemPictureFiles(folder, to);
        note(stale.error);
        const std::vector<fs::path> own = sources.paths();
        for (const fs::path& file : stale.paths()) {
            // A file both names claim (a star picture that is also a strip) is the source's.
            if (std::find(own.begin(), own.end(), file) != own.end()) continue;
            if (!removeFile(file, &why)) note(why);
        }
        for (const fs::path& file : own) {
            const fs::path target = underNewName(file);
            if (target != file && !copyFileKeepingTime(file, target, &why)) note(why);
        }
    }
    if (error) *error = problem;
    return problem.empty();
}

}  // namespace orr
