#pragma once
// Conversion between the game's 8-bit Windows-1252 texts and UTF-8, used at the edges of the
// program (Qt strings, JSON). The core itself keeps bytes.

#include <string>
#include <string_view>

namespace orr::text {

std::string cp1252ToUtf8(std::string_view bytes);

// Characters that Windows-1252 cannot hold become `replacement`; invalid UTF-8 bytes are taken
// as Latin-1.
std::string utf8ToCp1252(std::string_view utf8, char replacement = '?');

}  // namespace orr::text
