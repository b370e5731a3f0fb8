#include "external/Package.h"

#include <algorithm>
#include <system_error>

#include "store/FileIo.h"
#include "store/PictureFiles.h"

namespace orr {

namespace {

constexpr const char* kSetupProgram = "SETUP.EXE";
constexpr const char* kSetupList = "SETUP.LST";

bool fail(std::string* error, std::string reason) {
    if (error) *error = std::move(reason);
    return false;
}

}  // namespace

std::vector<PackageFile> packageFiles(const GameFolder& folder, const std::string& name,
                                      std::string* error) {
    const fs::path descriptor = GameFolder::findInFolder(folder.descriptorFolder(), name + ".orb");
    std::error_code ec;
    if (name.empty() || !fs::is_regular_file(descriptor, ec)) {
        fail(error, "The system " + name + " has no saved descriptor to package.");
        return {};
    }
    const PictureFileList pictures = systemPictureFiles(folder, name);
    if (!pictures.error.empty()) {
        fail(error, pictures.error);
        return {};
    }
    std::vector<PackageFile> files;
    for (const fs::path& picture : pictures.paths())
        files.push_back({picture, picture.filename().string(), "\\PICTURES\\"});
    std::sort(files.begin(), files.end(),
              [](const PackageFile& a, const PackageFile& b) { return a.name < b.name; });
    files.push_back({descriptor, name + ".orb", "\\ORBDescriptor\\"});
    return files;
}

std::string setupList(const std::vector<PackageFile>& files) {
    std::string list;
    for (const PackageFile& file : files)
        list += "\"" + file.name + "\",\"" + file.subfolder + "\"\r\n";
    return list;
}

bool makePackage(const GameFolder& folder, const std::string& name, const fs::path& parent,
                 fs::path* packageFolder, std::string* error) {
    const std::vector<PackageFile> files = packageFiles(folder, name, error);
    if (files.empty()) return false;
    std::error_code ec;
    const fs::path installer = folder.installer();
    if (!fs::is_regular_file(installer, ec))
        return fail(error, "The package installer " + quotedPath(installer) +
                               " is missing from the game folder, so no package can be made.");
    if (!fs::is_directory(parent, ec))
        return fail(error, "The folder " + quotedPath(parent) + " does not exist.");
    const fs::path target = parent / name;
    if (fs::exists(fs::symlink_status(target, ec)))
        return fail(error, "The folder " + quotedPath(target) +
                               " exists already. Remove it or choose another location.");
    if (!fs::create_directory(target, ec))
        return fail(error, "The package folder " + quotedPath(target) + " could not be made (" +
                               ec.message() + ").");

    std::string why;
    bool ok = true;
    for (const PackageFile& file : files)
        ok = ok && copyFileKeepingTime(file.source, target / file.name, &why);
    ok = ok && copyFileKeepingTime(installer, target / kSetupProgram, &why) &&
         writeFileAtomically(target / kSetupList, setupList(files), &why);
    if (!ok) {
        // Half a package would install half a system: none is left.
        fs::remove_all(target, ec);
        return fail(error, "The package could not be made: " + why);
    }
    if (packageFolder) *packageFolder = target;
    return true;
}

fs::path packageArchive(const fs::path& packageFolder) {
    return packageFolder.parent_path() / (packageFolder.filename().string() + ".zip");
}

std::optional<CommandLine> zipProgramCall(std::string_view program, std::string_view options,
                                          const fs::path& packageFolder) {
    const std::optional<std::string> found = findProgram(program);
    if (!found) return std::nullopt;
    return CommandLine{*found, expandOptions(options, packageFolder.string())};
}

}  // namespace orr
