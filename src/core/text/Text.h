#pragma once
// Byte-string helpers shared by the core. All texts are 8-bit Windows-1252 bytes; letter-case
// rules apply to ASCII letters only, as the game's own files use them.

#include <string>
#include <string_view>

namespace orr::text {

// Removes leading and trailing blanks (spaces only, as the game's files are trimmed).
std::string trim(std::string_view s);
std::string trimLeft(std::string_view s);
std::string trimRight(std::string_view s);

std::string toUpper(std::string_view s);
std::string toLower(std::string_view s);
bool equalsIgnoreCase(std::string_view a, std::string_view b);
bool startsWith(std::string_view s, std::string_view prefix);
bool endsWith(std::string_view s, std::string_view suffix);

// The numeric value of the leading number of s, as the classic Val(): leading blanks skipped,
// an optional sign, then decimal digits; 0 when there are none. Saturates instead of overflowing.
long long leadingValue(std::string_view s);

// Strict decimal integer (optional sign, digits, nothing else; blanks around allowed).
// Returns false on anything else or when the value leaves [min, max].
bool parseInteger(std::string_view s, long long min, long long max, long long& out);

// s cut or padded on the right with blanks to exactly width characters.
std::string fitWidth(std::string_view s, std::size_t width);

// Replaces every occurrence of `from` in s by `to`.
std::string replaceAll(std::string_view s, std::string_view from, std::string_view to);

}  // namespace orr::text
