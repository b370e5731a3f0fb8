#pragma once
// Cached access to profile files on disk. A file is parsed once and kept while its size and
// modification time stay the same; every change is written to disk at once, atomically, unless a
// WriteBatch is open, in which case the changes of the batch go to disk in one write when it ends.

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

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

    // Drops a cached file (after the file was copied, renamed or deleted behind the store).
    void forget(const fs::path& file);
    void forgetAll();

    const std::string& lastError() const { return lastError_; }

    // Groups writes into one. Nested batches flush when the outermost ends. commit() reports
    // whether every write of the batch reached the disk; the destructor commits if not done.
    class WriteBatch {
      public:
        explicit WriteBatch(ProfileStore& store);
        ~WriteBatch();
        WriteBatch(const WriteBatch&) = delete;
        WriteBatch& operator=(const WriteBatch&) = delete;
        bool commit();

      private:
        ProfileStore& store_;
        bool done_ = false;
        bool ok_ = true;
    };

  private:
    struct Entry;
    // Implementation state (cache entries by path, batch depth, pending files).
    std::map<fs::path, std::shared_ptr<Entry>> entries_;
    int batchDepth_ = 0;
    bool batchFailed_ = false;
    std::string lastError_;

    // The cached entry of an existing file, read again when it changed on disk. nullptr when the
    // file is missing (*missing set) or cannot be read (lastError_ set).
    Entry* load(const fs::path& file, bool* missing = nullptr);
    // Writes the entry now, or marks it for the end of the open batch.
    bool store(const fs::path& file, Entry& entry);
    bool writeToDisk(const fs::path& file, Entry& entry);
    bool flushPending();
    bool fail(std::string message);
};

}  // namespace orr
