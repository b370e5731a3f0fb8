#include "support/GameFixture.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "store/SystemStore.h"

namespace orr::test {

namespace {

// The game's system list: Sol with 9 planets, Vega with none, a hidden "#" system with one
// planet, and Sol again with 3 planets under another key.
const char* const kSystemList =
    "\"Sol\",0,9\r\n"
    "300,3,0,0,3,0\r\n"
    "420,2,0,0,3,0\r\n"
    "560,3,1,46087,13,5\r\n"
    "700,2,2,0,11,0\r\n"
    "900,0,0,0,0,0\r\n"
    "1100,5,16,0,6,0\r\n"
    "1300,4,18,0,7,0\r\n"
    "1500,3,15,0,14,0\r\n"
    "1800,1,1,0,10,0\r\n"
    "\"Vega\",1,0\r\n"
    "\"Hidden #1\",2,1\r\n"
    "500,2,0,0,1,0\r\n"
    "\"Sol\",3,3\r\n"
    "400,2,0,0,1,0\r\n"
    "500,2,0,0,1,0\r\n"
    "600,2,0,0,1,0\r\n";

bool setImmutable(const fs::path& folder, bool on) {
    const int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (fd < 0) return false;
    int flags = 0;
    bool ok = ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0;
    if (ok) {
        flags = on ? (flags | FS_IMMUTABLE_FL) : (flags & ~FS_IMMUTABLE_FL);
        ok = ioctl(fd, FS_IOC_SETFLAGS, &flags) == 0;
    }
    close(fd);
    return ok;
}

bool canCreateFileIn(const fs::path& folder) {
    const fs::path probe = folder / ".write-probe";
    const int fd = open(probe.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (fd < 0) return false;
    close(fd);
    unlink(probe.c_str());
    return true;
}

}  // namespace

std::string crlf(std::initializer_list<std::string_view> lines) {
    std::string out;
    for (std::string_view line : lines) out.append(line).append("\r\n");
    return out;
}

std::string crlf(const std::vector<std::string>& lines) {
    std::string out;
    for (const std::string& line : lines) out.append(line).append("\r\n");
    return out;
}

std::string readBytes(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeBytes(const fs::path& file, std::string_view bytes) {
    std::error_code ec;
    if (file.has_parent_path()) fs::create_directories(file.parent_path(), ec);
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::vector<std::string> entryNames(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::map<std::string, std::string> snapshot(const fs::path& root) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (entry.is_regular_file())
            files[fs::relative(entry.path(), root).generic_string()] = readBytes(entry.path());
    }
    return files;
}

ReadOnlyFolder::ReadOnlyFolder(fs::path folder) : folder_(std::move(folder)) {
    fs::permissions(folder_, fs::perms::owner_read | fs::perms::owner_exec);
    if (geteuid() == 0) setImmutable(folder_, true);
    enforced_ = !canCreateFileIn(folder_);
}

ReadOnlyFolder::~ReadOnlyFolder() {
    release(folder_);
}

void ReadOnlyFolder::release(const fs::path& folder) {
    if (geteuid() == 0) setImmutable(folder, false);
    std::error_code ec;
    fs::permissions(folder, fs::perms::owner_all, ec);
}

TempGameFolder::TempGameFolder(Contents contents) {
    std::string pattern = (fs::temp_directory_path() / "orrerion-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("cannot create a temporary folder");
    root_ = pattern;
    writeBytes(root_ / "voidrunner.exe", "MZ stand-in");
    fs::create_directory(root_ / "ORBDescriptor");
    fs::create_directory(root_ / "PICTURES");
    if (contents == Contents::GameFiles) {
        writeBytes(root_ / "SOLARSYS.TXT", kSystemList);
        writeBytes(root_ / "aliens.txt", crlf({"Klaxi", "Ormu", "Vessari"}));
    }
}

TempGameFolder::~TempGameFolder() {
    std::error_code ec;
    // A test may have left a folder read-only.
    for (auto it = fs::recursive_directory_iterator(root_, ec);
         !ec && it != fs::recursive_directory_iterator(); it.increment(ec)) {
        std::error_code typeError;
        if (it->is_directory(typeError)) ReadOnlyFolder::release(it->path());
    }
    fs::remove_all(root_, ec);
}

fs::path TempGameFolder::path(std::string_view relative) const {
    return root_ / fs::path(std::string(relative)).relative_path();
}

void TempGameFolder::write(std::string_view relative, std::string_view bytes) const {
    writeBytes(path(relative), bytes);
}

std::string TempGameFolder::read(std::string_view relative) const {
    return readBytes(path(relative));
}

bool TempGameFolder::exists(std::string_view relative) const {
    std::error_code error;
    return fs::exists(path(relative), error);
}

SystemRecord TempGameFolder::systemRecord(const std::string& name, int planets) {
    SystemRecord record;
    record.Name = name;
    record.setDisplayName(name);
    record.PlanetCount = static_cast<std::int16_t>(planets);
    for (int n = 1; n <= planets; ++n) {
        PlanetRecord& planet = record.planet(n);
        planet.Position = static_cast<std::int16_t>(400 + 30 * (n - 1));
        planet.Size = 2;
        planet.PlanetClass = 1;
    }
    return record;
}

void TempGameFolder::writeDescriptor(const SystemRecord& record, std::string_view extra) const {
    write("ORBDescriptor/" + record.Name + ".orb", newDescriptorText(record) + std::string(extra));
}

void writeProgram(const fs::path& file, std::string_view body) {
    writeBytes(file, "#!/bin/sh\n" + std::string(body) + "\n");
    fs::permissions(file, fs::perms::owner_all, fs::perm_options::add);
}

}  // namespace orr::test
