#include "store/ProfileStore.h"

#include <cstdint>
#include <system_error>
#include <utility>
#include <vector>

#include "store/FileIo.h"

namespace orr {

namespace {

struct DiskState {
    bool exists = false;
    std::uintmax_t size = 0;
    fs::file_time_type time{};
    std::error_code error;  // set when the file exists but cannot be examined
};

DiskState examine(const fs::path& file) {
    DiskState state;
    std::error_code ec;
    state.time = fs::last_write_time(file, ec);
    if (ec) {
        if (ec != std::errc::no_such_file_or_directory && ec != std::errc::not_a_directory) {
            state.error = ec;
        }
        return state;
    }
    state.size = fs::file_size(file, ec);
    if (ec) {
        state.error = ec;
        return state;
    }
    state.exists = true;
    return state;
}

}  // namespace

struct ProfileStore::Entry {
    ProfileDocument document;
    // Size and time of the file as the document reflects it; compared on every access.
    std::uintmax_t size = 0;
    fs::file_time_type time{};
    bool onDisk = false;
    // Changed inside a batch and not written yet: newer than the file, so never read again.
    bool dirty = false;
    // The check round in which the file was last compared with the cache.
    std::uint64_t checkedRound = 0;
    // The file's contents as the document was read from or last written to it.
    std::shared_ptr<const std::string> bytes;
};

// The same file under different spellings ("a/../b.orb", a relative path) shares one entry.
const fs::path& ProfileStore::cacheKey(const fs::path& file) {
    const auto known = keys_.find(file.native());
    if (known != keys_.end()) return known->second;
    std::error_code ec;
    const fs::path absolute = fs::absolute(file, ec);
    return keys_.emplace(file.native(), (ec ? file : absolute).lexically_normal()).first->second;
}

std::optional<std::string> ProfileStore::readValue(const fs::path& file, std::string_view section,
                                                   std::string_view key) {
    Entry* entry = load(file);
    if (!entry) return std::nullopt;
    return entry->document.readValue(section, key);
}

bool ProfileStore::writeValue(const fs::path& file, std::string_view section, std::string_view key,
                              std::string_view value) {
    bool missing = false;
    Entry* entry = load(file, &missing);
    if (!entry) {
        // Only a file that is not there is created; one that cannot be read is left alone.
        if (!missing) return false;
        auto created = std::make_shared<Entry>();
        entry = created.get();
        entries_[cacheKey(file)] = std::move(created);
    }
    entry->document.writeValue(section, key, value);
    return store(file, *entry);
}

bool ProfileStore::rewrite(const fs::path& file,
                           const std::function<bool(ProfileDocument&)>& change) {
    Entry* entry = loadExisting(file);
    if (!entry) return false;
    bool changed = false;
    try {
        changed = change(entry->document);
    } catch (...) {
        // The document may be half changed: read it from disk again next time.
        forget(file);
        throw;
    }
    if (!changed) return true;
    return store(file, *entry);
}

const ProfileDocument* ProfileStore::document(const fs::path& file) {
    Entry* entry = load(file);
    return entry ? &entry->document : nullptr;
}

std::shared_ptr<const std::string> ProfileStore::bytes(const fs::path& file) {
    Entry* entry = load(file);
    if (!entry) return nullptr;
    // Changes of an open batch are not on disk yet.
    if (entry->dirty) return std::make_shared<const std::string>(entry->document.serialize());
    return entry->bytes;
}

bool ProfileStore::replaceBytes(const fs::path& file, std::string contents,
                                const std::function<bool(ProfileDocument&)>& change) {
    Entry* entry = loadExisting(file);
    if (!entry) return false;
    std::string error;
    if (!writeFileAtomically(file, contents, &error)) {
        forget(file);
        return fail(error);
    }
    if (!change || entry->dirty || !change(entry->document) ||
        entry->document.serialize() != contents)
        entry->document = ProfileDocument::parse(contents);
    entry->bytes = std::make_shared<const std::string>(std::move(contents));
    entry->dirty = false;
    const DiskState disk = examine(file);
    if (!disk.exists || disk.size != entry->bytes->size()) {
        forget(file);
        return true;
    }
    entry->size = disk.size;
    entry->time = disk.time;
    entry->onDisk = true;
    entry->checkedRound = round_;
    return true;
}

bool ProfileStore::setModificationTime(const fs::path& file, fs::file_time_type time) {
    std::error_code ec;
    fs::last_write_time(file, time, ec);
    if (ec)
        return fail("The time of " + quotedPath(file) + " could not be set (" + ec.message() +
                    ").");
    const auto cached = entries_.find(cacheKey(file));
    if (cached != entries_.end() && cached->second->onDisk && !cached->second->dirty) {
        const DiskState disk = examine(file);
        if (disk.exists && disk.size == cached->second->size) cached->second->time = disk.time;
    }
    return true;
}

void ProfileStore::forget(const fs::path& file) {
    entries_.erase(cacheKey(file));
}

void ProfileStore::forgetAll() {
    entries_.clear();
    keys_.clear();
}

ProfileStore::Entry* ProfileStore::loadExisting(const fs::path& file) {
    bool missing = false;
    Entry* entry = load(file, &missing);
    if (!entry && missing) fail("The file " + quotedPath(file) + " does not exist.");
    return entry;
}

ProfileStore::Entry* ProfileStore::load(const fs::path& file, bool* missing) {
    if (missing) *missing = false;
    const fs::path key = cacheKey(file);
    const auto cached = entries_.find(key);
    if (cached != entries_.end() &&
        (cached->second->dirty ||
         (cached->second->onDisk && cached->second->checkedRound == round_)))
        return cached->second.get();

    const DiskState disk = examine(file);
    if (!disk.exists) {
        if (cached != entries_.end()) entries_.erase(cached);
        if (disk.error) {
            fail("Could not read " + quotedPath(file) + " (" + disk.error.message() + ").");
        } else if (missing) {
            *missing = true;
        }
        return nullptr;
    }
    if (cached != entries_.end() && cached->second->onDisk && cached->second->size == disk.size &&
        cached->second->time == disk.time) {
        cached->second->checkedRound = round_;
        return cached->second.get();
    }

    std::string error;
    const auto bytes = readWholeFile(file, &error);
    if (!bytes) {
        if (cached != entries_.end()) entries_.erase(cached);
        fail(error);
        return nullptr;
    }
    auto entry = std::make_shared<Entry>();
    entry->document = ProfileDocument::parse(*bytes);
    entry->bytes = std::make_shared<const std::string>(std::move(*bytes));
    entry->checkedRound = round_;
    // The state seen before reading: should the file change meanwhile, the next access sees a
    // different time and reads it again.
    entry->size = disk.size;
    entry->time = disk.time;
    entry->onDisk = true;
    Entry* result = entry.get();
    entries_[key] = std::move(entry);
    return result;
}

bool ProfileStore::store(const fs::path& file, Entry& entry) {
    if (batchDepth_ > 0) {
        entry.dirty = true;
        return true;
    }
    return writeToDisk(file, entry);
}

bool ProfileStore::writeToDisk(const fs::path& file, Entry& entry) {
    std::string bytes = entry.document.serialize();
    entry.dirty = false;
    // A change that gives the same bytes leaves the file alone: its time stays, and with it
    // whether the system counts as modified.
    if (entry.onDisk && entry.bytes && *entry.bytes == bytes) return true;
    std::string error;
    if (!writeFileAtomically(file, bytes, &error)) {
        // The file kept its old contents; so must the cache.
        forget(file);
        return fail(error);
    }
    // Remember our own write so that it is not read back. Should the file already differ from
    // what was written (another program wrote it at once), read it again next time.
    const DiskState disk = examine(file);
    if (!disk.exists || disk.size != bytes.size()) {
        forget(file);
        return true;
    }
    entry.size = disk.size;
    entry.time = disk.time;
    entry.onDisk = true;
    entry.checkedRound = round_;
    entry.bytes = std::make_shared<const std::string>(std::move(bytes));
    return true;
}

bool ProfileStore::flushPending() {
    std::vector<std::pair<fs::path, std::shared_ptr<Entry>>> dirty;
    for (const auto& [path, entry] : entries_) {
        if (entry->dirty) dirty.emplace_back(path, entry);
    }
    bool ok = true;
    for (const auto& [path, entry] : dirty) {
        if (!writeToDisk(path, *entry)) ok = false;
    }
    return ok;
}

void ProfileStore::dropPending() {
    for (auto it = entries_.begin(); it != entries_.end();) {
        if (it->second->dirty)
            it = entries_.erase(it);
        else
            ++it;
    }
}

bool ProfileStore::fail(std::string message) {
    lastError_ = std::move(message);
    if (batchDepth_ > 0) batchFailed_ = true;
    return false;
}

ProfileStore::WriteBatch::WriteBatch(ProfileStore& store) : store_(store) {
    if (store_.batchDepth_++ == 0) store_.batchFailed_ = false;
}

ProfileStore::WriteBatch::~WriteBatch() {
    if (!done_) commit();
}

bool ProfileStore::WriteBatch::commit() {
    if (done_) return ok_;
    done_ = true;
    if (--store_.batchDepth_ > 0) {
        ok_ = !store_.batchFailed_;
        return ok_;
    }
    const bool flushed = store_.flushPending();
    ok_ = flushed && !store_.batchFailed_;
    return ok_;
}

void ProfileStore::WriteBatch::abandon() {
    if (done_) return;
    done_ = true;
    ok_ = false;
    // Only the outermost batch knows that nothing of it must reach the disk.
    if (--store_.batchDepth_ == 0) store_.dropPending();
}

}  // namespace orr
