#pragma once
// Makes a folder read-only while it lives; for root, whom permissions do not bind, also
// immutable where the file system allows it. enforced() says whether it worked.

#include <filesystem>

namespace orr::test {

class ReadOnlyFolder {
  public:
    explicit ReadOnlyFolder(std::filesystem::path folder);
    ~ReadOnlyFolder();
    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;
    bool enforced() const { return enforced_; }

  private:
    void setImmutable(bool on);

    std::filesystem::path folder_;
    bool enforced_ = false;
};

}  // namespace orr::test
