#include "store/SystemName.h"

#include <array>

#include "text/Text.h"

namespace orr {

namespace {

// Longer names leave no room for the picture names built from them ("Sun.bmp", "10.avi") within
// the 255 bytes a file name may have.
constexpr std::size_t kMaxNameLength = 200;

bool isReservedDeviceName(std::string_view name) {
    // Windows reserves these names whatever follows the first dot.
    const std::string base = text::toUpper(name.substr(0, name.find('.')));
    static const std::array<const char*, 4> plain = {"CON", "PRN", "AUX", "NUL"};
    for (const char* reserved : plain) {
        if (base == reserved) return true;
    }
    if (base.size() == 4 && (base.starts_with("COM") || base.starts_with("LPT"))) {
        return base[3] >= '1' && base[3] <= '9';
    }
    return false;
}

}  // namespace

std::optional<std::string> CheckSystemName(std::string_view name) {
    if (name.empty()) return "A system name cannot be empty.";
    if (name.size() > kMaxNameLength) {
        return "A system name can have at most " + std::to_string(kMaxNameLength) + " characters.";
    }
    for (char c : name) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 32 || code == 127) {
            return std::string(
                "A system name cannot contain control characters such as tabs or "
                "line breaks.");
        }
        if (std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos) {
            return std::string("A system name cannot contain the character '") + c + "'.";
        }
    }
    if (name == "." || name == "..") return "A system name cannot be \".\" or \"..\".";
    if (name.front() == ' ' || name.back() == ' ') {
        return std::string("A system name cannot begin or end with a blank.");
    }
    if (name.front() == '.' || name.back() == '.') {
        return std::string("A system name cannot begin or end with a dot.");
    }
    if (isReservedDeviceName(name)) {
        std::string reason = "\"";
        reason.append(text::toUpper(name.substr(0, name.find('.'))))
            .append("\" is a device name reserved by Windows and cannot be a system name.");
        return reason;
    }
    return std::nullopt;
}

}  // namespace orr
