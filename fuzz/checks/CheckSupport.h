#pragma once
// What the checks share: a scratch folder for inputs that must be files, and a readable form of
// arbitrary bytes for the problems they report.

#include <filesystem>
#include <string>
#include <string_view>

namespace orr::fuzz {

// A temporary folder for the whole process (below TMPDIR), made on first use and removed when
// the process ends normally. Checks that need files write them here.
class ScratchFolder {
  public:
    static const std::filesystem::path& path();

  private:
    ScratchFolder();
    ~ScratchFolder();
    std::filesystem::path path_;
};

// The bytes in double quotes, control characters and bytes above 0x7E as \xNN.
std::string shown(std::string_view bytes);

}  // namespace orr::fuzz
