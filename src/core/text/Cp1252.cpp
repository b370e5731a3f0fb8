#include "text/Cp1252.h"

#include <array>
#include <cstdint>

namespace orr::text {

namespace {

// Unicode code points of the bytes 0x80..0x9F. The five codes that Windows-1252 leaves
// undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D) stand for the C1 controls of the same number, so
// every byte survives a round trip through UTF-8.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80..87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88..8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90..97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98..9F
};

char32_t codePointOf(unsigned char byte) {
    return (byte >= 0x80 && byte <= 0x9F) ? kHighControls[byte - 0x80] : byte;
}

// The byte that holds `cp`, or -1 when Windows-1252 has no such character.
int byteOf(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<int>(cp);
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] == cp) return static_cast<int>(0x80 + i);
    }
    return -1;
}

void appendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

bool isContinuation(unsigned char b) {
    return (b & 0xC0) == 0x80;
}

// Decodes one well-formed UTF-8 sequence at s[pos]; returns its length, or 0 when the bytes there
// are not a valid sequence (stray continuation, truncation, overlong form, surrogate, > U+10FFFF).
std::size_t decodeUtf8(std::string_view s, std::size_t pos, char32_t& cp) {
    const auto lead = static_cast<unsigned char>(s[pos]);
    std::size_t length;
    char32_t minimum;
    if (lead < 0x80) {
        cp = lead;
        return 1;
    } else if ((lead & 0xE0) == 0xC0) {
        length = 2;
        minimum = 0x80;
        cp = lead & 0x1F;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3;
        minimum = 0x800;
        cp = lead & 0x0F;
    } else if ((lead & 0xF8) == 0xF0) {
        length = 4;
        minimum = 0x10000;
        cp = lead & 0x07;
    } else {
        return 0;
    }
    if (pos + length > s.size()) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        const auto b = static_cast<unsigned char>(s[pos + i]);
        if (!isContinuation(b)) return 0;
        cp = (cp << 6) | (b & 0x3F);
    }
    if (cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
    return length;
}

constexpr char32_t kReplacementCharacter = 0xFFFD;

}  // namespace

std::string cp1252ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    for (char c : bytes) appendUtf8(out, codePointOf(static_cast<unsigned char>(c)));
    return out;
}

std::string utf8ToCp1252(std::string_view utf8, char replacement) {
    std::string out;
    out.reserve(utf8.size());
    std::size_t pos = 0;
    while (pos < utf8.size()) {
        char32_t cp;
        std::size_t length = decodeUtf8(utf8, pos, cp);
        if (length == 0) {
            // Not UTF-8: the byte is read as a Latin-1 character.
            cp = static_cast<unsigned char>(utf8[pos]);
            length = 1;
        }
        const int byte = byteOf(cp);
        out += byte < 0 ? replacement : static_cast<char>(byte);
        pos += length;
    }
    return out;
}

bool isValidUtf8(std::string_view bytes) {
    std::size_t pos = 0;
    while (pos < bytes.size()) {
        char32_t cp;
        const std::size_t length = decodeUtf8(bytes, pos, cp);
        if (length == 0) return false;
        pos += length;
    }
    return true;
}

Cp1252Conversion utf8ToCp1252Strict(std::string_view utf8) {
    Cp1252Conversion result;
    result.bytes.reserve(utf8.size());
    std::size_t pos = 0;
    while (pos < utf8.size()) {
        char32_t cp;
        std::size_t length = decodeUtf8(utf8, pos, cp);
        if (length == 0) {
            cp = kReplacementCharacter;
            length = 1;
        }
        pos += length;
        if (const int byte = byteOf(cp); byte >= 0) {
            result.bytes += static_cast<char>(byte);
            continue;
        }
        std::string character;
        appendUtf8(character, cp);
        if (result.unstorable.find(character) == std::string::npos) result.unstorable += character;
    }
    return result;
}

std::string unstorableMessage(std::string_view unstorable) {
    // The characters one by one with a blank between them, so that each can be made out.
    std::string named;
    std::size_t pos = 0;
    while (pos < unstorable.size()) {
        char32_t cp;
        std::size_t length = decodeUtf8(unstorable, pos, cp);
        if (length == 0) length = 1;
        if (!named.empty()) named += ' ';
        named += unstorable.substr(pos, length);
        pos += length;
    }
    return "The game cannot store these characters: " + named + "\nPlease use other characters.";
}

}  // namespace orr::text
