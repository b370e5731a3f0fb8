// The store's folders, the descriptor list and paths, and the key-level access to the open
// system's descriptor. The system block and the planets are in SystemStoreBlock.cpp, the working
// copy in SystemStoreEdit.cpp.
#include "store/SystemStore.h"

#include <system_error>

#include "store/SystemList.h"
#include "text/Text.h"

namespace orr {

SystemStore::SystemStore(GameFolder folder) : folder_(std::move(folder)) {}

void SystemStore::setFolder(GameFolder folder) {
    folder_ = std::move(folder);
    resolvedPaths_.clear();
    profiles_.forgetAll();
    descriptorList_ = {""};
}

bool SystemStore::InitTables() {
    return tables_.InitTables(folder_.alienNames());
}

bool SystemStore::fail(const std::string& message) {
    lastError_ = message;
    return false;
}

SystemStore::Transaction::Transaction(SystemStore& store)
    : store_(store), before_(store.record_), batch_(store.profiles_) {}

SystemStore::Transaction::~Transaction() {
    if (!done_) commit();
}

bool SystemStore::Transaction::commit(bool ok) {
    done_ = true;
    const bool written = batch_.commit();
    if (ok && !written) {
        store_.failWriting(store_.openDescriptorPath(), store_.profiles_.lastError());
    }
    if (ok && written) return true;
    store_.record_ = before_;
    return false;
}

bool SystemStore::failWriting(const fs::path& file, const std::string& reason) {
    std::string message = "The file \"" + file.filename().string() + "\" could not be written";
    if (!reason.empty()) message += ": " + reason;
    if (message.back() != '.') message += ".";
    return fail(message);
}

bool SystemStore::requireOpenSystem() {
    if (!record_.Name.empty()) return true;
    return fail("No system is open.");
}

std::string SystemStore::currentExtension() const {
    return extension_.empty() ? ".orb" : extension_;
}

void SystemStore::ListDescriptors() {
    const std::string extension = currentExtension();
    descriptorList_ = {""};
    for (const std::string& file :
         GameFolder::filesWithExtension(folder_.descriptorFolder(), extension)) {
        descriptorList_.push_back(file.substr(0, file.size() - extension.size()));
    }
}

int SystemStore::FindDescriptor(const std::string& name) const {
    for (std::size_t i = 1; i < descriptorList_.size(); ++i) {
        const std::string& entry = descriptorList_[i];
        if (!entry.empty() && (name.empty() || entry == name)) return static_cast<int>(i);
    }
    // The folder ignores case, as on the game's own system.
    for (std::size_t i = 1; i < descriptorList_.size(); ++i) {
        if (text::equalsIgnoreCase(descriptorList_[i], name)) return static_cast<int>(i);
    }
    return 0;
}

fs::path SystemStore::descriptorPath(const std::string& name, const std::string& extension) const {
    const std::string fileName = name + (extension.empty() ? ".orb" : extension);
    std::error_code ec;
    // Every key read goes through here: remember where the file was found, and look again only
    // when it has gone.
    const auto cached = resolvedPaths_.find(fileName);
    if (cached != resolvedPaths_.end()) {
        if (cached->second.round == profiles_.round()) return cached->second.path;
        if (fs::is_regular_file(cached->second.path, ec)) {
            cached->second.round = profiles_.round();
            return cached->second.path;
        }
    }
    const fs::path path = GameFolder::findInFolder(folder_.descriptorFolder(), fileName);
    if (fs::is_regular_file(path, ec)) {
        resolvedPaths_[fileName] = {path, profiles_.round()};
    } else {
        resolvedPaths_.erase(fileName);
    }
    return path;
}

fs::path SystemStore::openDescriptorPath() const {
    return descriptorPath(record_.Name, currentExtension());
}

std::string SystemStore::ReadKey(const std::string& section, const std::string& key) const {
    std::optional<std::string> value = profiles_.readValue(openDescriptorPath(), section, key);
    if (!value) return kNotUsed;
    // The game reads through a 255-byte buffer: at most 254 characters, ending at a NUL.
    std::string result = std::move(*value);
    if (result.size() > kMaxValueLength) result.resize(kMaxValueLength);
    const std::size_t nul = result.find('\0');
    if (nul != std::string::npos) result.resize(nul);
    return result;
}

bool SystemStore::WriteKey(const std::string& section, const std::string& key,
                           const std::string& value) {
    if (!requireOpenSystem()) return false;
    const fs::path path = openDescriptorPath();
    if (!profiles_.writeValue(path, section, key, value)) {
        return failWriting(path, profiles_.lastError());
    }
    return true;
}

bool SystemStore::rewriteOpenDescriptor(const std::function<bool(ProfileDocument&)>& change) {
    if (!requireOpenSystem()) return false;
    const fs::path path = openDescriptorPath();
    if (!profiles_.rewrite(path, change)) return failWriting(path, profiles_.lastError());
    return true;
}

bool SystemStore::DeleteKey(const std::string& section, const std::string& key) {
    return rewriteOpenDescriptor([&](ProfileDocument& doc) { return doc.deleteKey(section, key); });
}

bool SystemStore::SectionExists(const std::string& section) const {
    const ProfileDocument* doc = profiles_.document(openDescriptorPath());
    return doc != nullptr && doc->sectionExists(section);
}

bool SystemStore::RemovePlanetSection(int n) {
    return rewriteOpenDescriptor(
        [n](ProfileDocument& doc) { return doc.removeNumberedSection(n); });
}

std::string SystemStore::GetPlanetKey(int planet, const std::string& key, bool force) const {
    if (!force && GetGeneralFlag(kMessagesFlag, planet) == 0) return "NO";
    const std::string value = ReadKey(std::to_string(planet), key);
    return value == kNotUsed ? kErr : value;
}

int SystemStore::GetGeneralFlag(const std::string& key, int planet) const {
    if (profiles_.document(openDescriptorPath()) == nullptr) return -1;
    const std::string flags = ReadKey("General", key);
    if (flags == kNotUsed) return -2;
    // A planet beyond the end of the text has no character, which counts as yes.
    if (planet < 1 || static_cast<std::size_t>(planet) > flags.size()) return 1;
    const char c = flags[static_cast<std::size_t>(planet) - 1];
    return (c == '1' || c == 'Y' || c == 'P' || c == 'V') ? 1 : 0;
}

bool SystemStore::SetGeneralFlag(const std::string& key, int planet, int count, bool yes) {
    const std::size_t width = static_cast<std::size_t>(std::max(count, 0));
    const std::string stored = ReadKey("General", key);
    std::string flags = stored == kNotUsed ? std::string(width, 'N') : stored;
    flags.resize(width, 'N');
    if (planet >= 1 && static_cast<std::size_t>(planet) <= flags.size()) {
        flags[static_cast<std::size_t>(planet) - 1] = yes ? 'Y' : 'N';
    }
    // The same flags are not written again: the line would lose its blanks round the "=" and
    // the system would count as modified for nothing.
    if (flags == stored) return true;
    return WriteKey("General", key, flags);
}

bool SystemStore::HasCustomPictures(int planet) const {
    return GetGeneralFlag(kPlanetPics, planet) != 0;
}

namespace {

std::string nameKey(int n) {
    return n == 0 ? "S" : std::to_string(n);
}

}  // namespace

std::string SystemStore::GetName(int n, const std::string& base) const {
    const std::string stored = ReadKey("Names", nameKey(n));
    if (n == 0) return stored;
    if (stored != kNotUsed && !stored.empty()) return stored;
    const std::string numeral = n >= 1 && static_cast<std::size_t>(n) < Tables::RomanNumerals.size()
                                    ? Tables::RomanNumerals[static_cast<std::size_t>(n)]
                                    : std::to_string(n);
    return text::trim(base) + " " + numeral;
}

bool SystemStore::SetName(int n, const std::string& name) {
    if (name.empty()) return DeleteKey("Names", nameKey(n));
    return WriteKey("Names", nameKey(n), name);
}

LoadResult SystemStore::LoadSystem(const std::string& name) {
    ListDescriptors();
    FindListedSystem(folder_, name, record_);
    record_.Name = name;
    return ReadSystemBlock();
}

}  // namespace orr
