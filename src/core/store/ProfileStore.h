#pragma once
// Cached access to profile files on disk. A file is parsed once and kept while its size and
// modification time stay the same; every change is written to disk at once, atomically, unless a
// WriteBatch is open, in which case the changes of the batch go to disk in one write when it ends.
//
// Looking at a file on disk costs a system call, which would be most of the cost of a cached
// read. The store therefore looks at each file once per check round: the first access after
// recheck() compares the file's size and time with the cache, later accesses trust the cache.
// The edit session starts a round for every command and every refresh of a window.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "store/ProfileDocument.h"

namespace orr {

namespace fs = std::filesystem;

class ProfileStore {
  public:
    // The platform's read: value or nullopt when the file or key is missing.
    std::optional<std::string> readValue(const fs::path& file, std::string_view section,
                                         std::string_view key);
    // The platform's write: creates the file when it does not exist.
    bool writeValue(const fs::path& file, std::string_view section, std::string_view key,
                    std::string_view value);

    // Applies `change` to the document of an existing file and writes it when `change` returns
    // true. Returns false when the file is missing or cannot be written (lastError() says why).
    bool rewrite(const fs::path& file, const std::function<bool(ProfileDocument&)>& change);

    // The current document of the file, loading it when needed; nullptr when it cannot be read.
    const ProfileDocument* document(const fs::path& file);

    // The file's contents as they are on disk (as last read or written); nullptr when the file
    // is missing or cannot be read. Shared, so a caller can keep an old state cheaply.
    std::shared_ptr<const std::string> bytes(const fs::path& file);
    // Replaces the contents of an existing file at once (outside any batch). `change`, when
    // given, makes the same contents of the cached document in place, which spares parsing the
    // whole file again; should its document not come out as `contents`, the contents are parsed.
    bool replaceBytes(const fs::path& file, std::string contents,
                      const std::function<bool(ProfileDocument&)>& change = {});
    // Gives the file another modification time, keeping its cached document.
    bool setModificationTime(const fs::path& file, fs::file_time_type time);

    // Starts a new check round: the next access of each file looks at it on disk again.
    void recheck() { ++round_; }
    std::uint64_t round() const { return round_; }

    // Drops a cached file (after the file was copied, renamed or deleted behind the store).
    void forget(const fs::path& file);
    void forgetAll();

    const std::string& lastError() const { return lastError_; }

    // Groups writes into one. Nested batches flush when the outermost ends. commit() reports
    // whether every write of the batch reached the disk; abandon() drops the batch's changes
    // instead (the files stay as they are on disk). The destructor commits if neither was done.
    class WriteBatch {
      public:
        explicit WriteBatch(ProfileStore& store);
        ~WriteBatch();
        WriteBatch(const WriteBatch&) = delete;
        WriteBatch& operator=(const WriteBatch&) = delete;
        bool commit();
        void abandon();

      private:
        ProfileStore& store_;
        bool done_ = false;
        bool ok_ = true;
    };

  private:
    struct Entry;
    // Implementation state (cache entries by path, batch depth, pending files).
    std::map<fs::path, std::shared_ptr<Entry>> entries_;
    // The normalised form of each path the store was asked for, so a cached access costs no
    // path arithmetic.
    std::unordered_map<std::string, fs::path> keys_;
    int batchDepth_ = 0;
    bool batchFailed_ = false;
    std::uint64_t round_ = 1;
    std::string lastError_;

    const fs::path& cacheKey(const fs::path& file);
    // The cached entry of an existing file, read again when it changed on disk. nullptr when the
    // file is missing (*missing set) or cannot be read (lastError_ set).
    Entry* load(const fs::path& file, bool* missing = nullptr);
    // load() for files that must be there already: a missing one is reported as the last error.
    Entry* loadExisting(const fs::path& file);
    // Writes the entry now, or marks it for the end of the open batch.
    bool store(const fs::path& file, Entry& entry);
    bool writeToDisk(const fs::path& file, Entry& entry);
    bool flushPending();
    void dropPending();
    bool fail(std::string message);
};

}  // namespace orr
