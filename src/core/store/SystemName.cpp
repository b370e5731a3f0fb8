#include "store/SystemName.h"

#include <algorithm>
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

// "A system name cannot contain the characters '/', ':' and '?'.", with control characters
// named as such.
std::string forbiddenCharacters(const std::string& forbidden, bool control) {
    const std::string controls = "control characters such as tabs or line breaks";
    if (forbidden.empty()) return "A system name cannot contain " + controls + ".";
    std::string listed;
    for (std::size_t i = 0; i < forbidden.size(); ++i) {
        if (i > 0) listed += i + 1 == forbidden.size() && !control ? " and " : ", ";
        listed += std::string("'") + forbidden[i] + "'";
    }
    const bool several = forbidden.size() > 1 || control;
    return std::string("A system name cannot contain the character") + (several ? "s " : " ") +
           listed + (control ? " or " + controls : "") + ".";
}

}  // namespace

std::optional<std::string> CheckSystemName(std::string_view name) {
    if (name.empty()) return "A system name cannot be empty.";
    if (name.size() > kMaxNameLength) {
        return "A system name can have at most " + std::to_string(kMaxNameLength) + " characters.";
    }
    // Every forbidden character at once, so one correction is enough.
    std::string forbidden;
    bool control = false;
    for (char c : name) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 32 || code == 127) {
            control = true;
        } else if (std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos &&
                   forbidden.find(c) == std::string::npos) {
            forbidden += c;
        }
    }
    if (!forbidden.empty() || control) return forbiddenCharacters(forbidden, control);
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

namespace {

constexpr std::size_t kStarArgumentWidth = 21;

// Steps 1 to 5 of the start argument: the key with its leading number made one character.
std::string starArgumentBody(const std::string& key) {
    const long long value = text::leadingValue(key);
    if (value > 0 && value < 254) {
        // The planet count becomes one character; the digits it replaces are as many as the
        // number has.
        const std::size_t digits = std::to_string(value).size();
        return std::string(1, static_cast<char>(value)) + key.substr(std::min(digits, key.size()));
    }
    if (value >= 254) {
        const long long firstTwo = text::leadingValue(key.substr(0, 2));
        return std::string(1, static_cast<char>(firstTwo)) +
               key.substr(std::min<std::size_t>(2, key.size()));
    }
    if (value == 0 && !key.empty() && key[0] == '0') return std::string(1, '\0') + key.substr(1);
    return std::string(1, static_cast<char>(254)) + key;
}

}  // namespace

std::string EncodeStarArgument(const std::string& key) {
    std::string argument = text::fitWidth(starArgumentBody(key), kStarArgumentWidth);
    for (char& c : argument) c = static_cast<char>(255 - static_cast<unsigned char>(c));
    return argument;
}

std::optional<std::string> StarArgumentProblem(const std::string& key) {
    const std::size_t length = starArgumentBody(key).size();
    if (length > kStarArgumentWidth) {
        return "The name of the system " + key +
               " is too long for the game's start argument: the game takes at most " +
               std::to_string(kStarArgumentWidth - 1) +
               " characters (after a leading planet count), and this one has " +
               std::to_string(length - 1) + ".";
    }
    // The character 255 becomes 0 in the argument, which no command line can carry.
    if (key.find('\xFF') != std::string::npos)
        return "The game cannot be started at the system " + key +
               ": its name holds the letter \xFF, which the game's start argument cannot carry.";
    return std::nullopt;
}

}  // namespace orr
