#pragma once
// Conversion between the game's 8-bit Windows-1252 texts and UTF-8, used at the edges of the
// program (Qt strings, JSON). The core itself keeps bytes.

#include <string>
#include <string_view>

namespace orr::text {

std::string cp1252ToUtf8(std::string_view bytes);

// Characters that Windows-1252 cannot hold become `replacement`; invalid UTF-8 bytes are taken
// as Latin-1. For texts that are shown or looked up, never for texts that are stored.
std::string utf8ToCp1252(std::string_view utf8, char replacement = '?');

// Whether `bytes` are well-formed UTF-8 (no overlong forms, surrogates or code points above
// U+10FFFF).
bool isValidUtf8(std::string_view bytes);

struct Cp1252Conversion {
    std::string bytes;       // the text in Windows-1252, without the characters it cannot hold
    std::string unstorable;  // those characters (UTF-8), each once, in order of appearance
    bool storable() const { return unstorable.empty(); }
};

// The conversion for texts that are stored: nothing is replaced in silence. Bytes that are not
// UTF-8 count as unstorable and are named as U+FFFD.
Cp1252Conversion utf8ToCp1252Strict(std::string_view utf8);

// The sentence that refuses a typed text holding `unstorable` (as Cp1252Conversion names them).
std::string unstorableMessage(std::string_view unstorable);

}  // namespace orr::text
