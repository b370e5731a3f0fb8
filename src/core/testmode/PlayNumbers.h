#pragma once
// Numbers as the game's test mode reads, rounds and writes them. Message codes carry their
// numbers as text ("*+EN500", "*H30"); the game reads them leniently, keeps the ship's values in
// 16-bit and 32-bit integers, rounds halves to the even neighbour and writes numbers without
// blanks. A number too large for its integer saturates instead of stopping the test.

#include <cstdint>
#include <string>
#include <string_view>

namespace orr::play {

// The leading number of s, as the classic Val() reads it: blanks are skipped anywhere, then an
// optional sign, digits, a decimal point with digits and an exponent ("1.5E3"); 0 when there
// is no number. Huge exponents give infinity's neighbour, never a fault.
double leadingNumber(std::string_view s);

// Rounded to the nearest integer, halves to the even neighbour, and kept within the type.
std::int16_t toInt16(double value);
std::int32_t toInt32(double value);

// A number written as the game writes it: at most 7 significant digits (single precision),
// no trailing zeros, no blanks ("2.5", "-5", "1E+20" for very large values).
std::string formatNumber(double value);
// One decimal, as the format "0.0" writes it ("0.5", "12.0").
std::string formatOneDecimal(double value);
// Two decimals without a leading zero, as the format ".00" writes it (".30", "1.50").
std::string formatTwoDecimals(double value);

}  // namespace orr::play
