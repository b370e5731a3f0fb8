#include "CheckSupport.h"

#include <stdlib.h>

#include <cstdio>
#include <stdexcept>
#include <system_error>

namespace orr::fuzz {

ScratchFolder::ScratchFolder() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "orrerion-fuzz-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("cannot make a scratch folder below " + pattern);
    }
    path_ = pattern;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

const std::filesystem::path& ScratchFolder::path() {
    static const ScratchFolder folder;
    return folder.path_;
}

std::string shown(std::string_view bytes) {
    std::string out = "\"";
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        if (b < 0x20 || b > 0x7E || c == '"' || c == '\\') {
            char escaped[5];
            std::snprintf(escaped, sizeof escaped, "\\x%02X", b);
            out += escaped;
        } else {
            out += c;
        }
    }
    return out + "\"";
}

}  // namespace orr::fuzz
