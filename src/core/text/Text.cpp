#include "text/Text.h"

#include <algorithm>
#include <limits>

namespace orr::text {

namespace {

char upperAscii(char c) {
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}
char lowerAscii(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

std::string trim(std::string_view s) {
    return trimRight(trimLeft(s));
}

std::string trimLeft(std::string_view s) {
    const auto first = s.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string() : std::string(s.substr(first));
}

std::string trimRight(std::string_view s) {
    const auto last = s.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string() : std::string(s.substr(0, last + 1));
}

std::string toUpper(std::string_view s) {
    std::string out(s);
    std::transform(out.begin(), out.end(), out.begin(), upperAscii);
    return out;
}

std::string toLower(std::string_view s) {
    std::string out(s);
    std::transform(out.begin(), out.end(), out.begin(), lowerAscii);
    return out;
}

bool equalsIgnoreCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return lowerAscii(x) == lowerAscii(y);
           });
}

bool startsWith(std::string_view s, std::string_view prefix) {
    return s.starts_with(prefix);
}

bool endsWith(std::string_view s, std::string_view suffix) {
    return s.ends_with(suffix);
}

long long leadingValue(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size() && s[i] == ' ') ++i;
    bool negative = false;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) {
        negative = s[i] == '-';
        ++i;
    }
    // Accumulate as a negative number so that the most negative value still fits.
    constexpr long long kMin = std::numeric_limits<long long>::min();
    long long value = 0;
    bool saturated = false;
    for (; i < s.size() && isDigit(s[i]); ++i) {
        const int digit = s[i] - '0';
        if (saturated) continue;
        if (value < (kMin + digit) / 10) {
            saturated = true;
            value = kMin;
            continue;
        }
        value = value * 10 - digit;
    }
    if (negative) return value;
    if (value == kMin) return std::numeric_limits<long long>::max();
    return -value;
}

bool parseInteger(std::string_view s, long long min, long long max, long long& out) {
    const auto first = s.find_first_not_of(' ');
    if (first == std::string_view::npos) return false;
    const auto last = s.find_last_not_of(' ');
    const std::string_view body = s.substr(first, last - first + 1);
    const bool negative = body[0] == '-';
    const std::size_t digitsFrom = (body[0] == '+' || body[0] == '-') ? 1 : 0;
    if (digitsFrom == body.size()) return false;

    constexpr unsigned long long kMaxMagnitude =
        static_cast<unsigned long long>(std::numeric_limits<long long>::max()) + 1;
    unsigned long long magnitude = 0;
    for (std::size_t i = digitsFrom; i < body.size(); ++i) {
        if (!isDigit(body[i])) return false;
        const unsigned digit = static_cast<unsigned>(body[i] - '0');
        if (magnitude > (kMaxMagnitude - digit) / 10) return false;
        magnitude = magnitude * 10 + digit;
    }
    long long value;
    if (negative) {
        value = magnitude == kMaxMagnitude ? std::numeric_limits<long long>::min()
                                           : -static_cast<long long>(magnitude);
    } else {
        if (magnitude == kMaxMagnitude) return false;
        value = static_cast<long long>(magnitude);
    }
    if (value < min || value > max) return false;
    out = value;
    return true;
}

std::string fitWidth(std::string_view s, std::size_t width) {
    std::string out(s.substr(0, std::min(width, s.size())));
    out.resize(width, ' ');
    return out;
}

std::string replaceAll(std::string_view s, std::string_view from, std::string_view to) {
    if (from.empty()) return std::string(s);
    std::string out;
    out.reserve(s.size());
    std::size_t pos = 0;
    while (true) {
        const auto hit = s.find(from, pos);
        if (hit == std::string_view::npos) break;
        out.append(s.substr(pos, hit - pos));
        out.append(to);
        pos = hit + from.size();
    }
    out.append(s.substr(pos));
    return out;
}

}  // namespace orr::text
