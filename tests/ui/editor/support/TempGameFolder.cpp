#include "TempGameFolder.h"

#include <fstream>
#include <iterator>
#include <system_error>

namespace orr::test {

namespace fs = std::filesystem;

TempGameFolder::TempGameFolder() {
    write("voidrunner.exe", "MZ");
    fs::create_directories(path("ORBDescriptor"));
    fs::create_directories(path("PICTURES"));
}

fs::path TempGameFolder::root() const {
    return fs::path(dir_.path().toStdString());
}

fs::path TempGameFolder::path(std::string_view relative) const {
    return root() / fs::path(std::string(relative)).relative_path();
}

void TempGameFolder::write(std::string_view relative, std::string_view bytes) const {
    const fs::path file = path(relative);
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string TempGameFolder::read(std::string_view relative) const {
    std::ifstream in(path(relative), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool TempGameFolder::exists(std::string_view relative) const {
    std::error_code error;
    return fs::exists(path(relative), error);
}

std::string TempGameFolder::crlf(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

void TempGameFolder::writeSystemList(const std::vector<std::string>& lines) const {
    write("SOLARSYS.TXT", crlf(lines));
}

void TempGameFolder::writeAliens(const std::vector<std::string>& names) const {
    write("aliens.txt", crlf(names));
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

bool TempGameFolder::open(SystemStore& store, const std::string& name) const {
    store.setFolder(folder());
    store.InitTables();  // a folder without aliens.txt leaves the names empty
    store.record().Name = name;
    if (!store.BeginEdit([] { return false; })) return false;
    return store.LoadSystem(name).blockFound;
}

}  // namespace orr::test
