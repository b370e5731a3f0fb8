#include "testmode/PlayNumbers.h"

#include <cmath>
#include <cstdio>
#include <limits>

namespace orr::play {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

template <typename Int>
Int toInteger(double value) {
    if (std::isnan(value)) return 0;
    const double rounded = std::nearbyint(value);  // the default rounding mode: halves to even
    if (rounded <= static_cast<double>(std::numeric_limits<Int>::min()))
        return std::numeric_limits<Int>::min();
    if (rounded >= static_cast<double>(std::numeric_limits<Int>::max()))
        return std::numeric_limits<Int>::max();
    return static_cast<Int>(rounded);
}

// "x.yz" with `decimals` digits, rounded half away from zero as the classic Format() does.
std::string fixed(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    // Round on the decimal digits the value shows (15 of them), not on its binary neighbour.
    char shown[64];
    std::snprintf(shown, sizeof shown, "%.15g", value * scale);
    const double scaled = std::round(std::strtod(shown, nullptr));
    char out[64];
    std::snprintf(out, sizeof out, "%.*f", decimals, scaled / scale);
    std::string text = out;
    if (text.find_first_not_of("-0.") == std::string::npos && text[0] == '-') text.erase(0, 1);
    return text;
}

}  // namespace

double leadingNumber(std::string_view s) {
    std::string digits;
    std::size_t i = 0;
    auto skipBlanks = [&] {
        while (i < s.size() && isBlank(s[i])) ++i;
    };
    skipBlanks();
    if (i < s.size() && (s[i] == '-' || s[i] == '+')) digits += s[i++];
    bool any = false;
    bool point = false;
    for (skipBlanks(); i < s.size(); ++i, skipBlanks()) {
        if (isDigit(s[i])) {
            digits += s[i];
            any = true;
        } else if (s[i] == '.' && !point) {
            digits += '.';
            point = true;
        } else {
            break;
        }
    }
    if (!any) return 0;
    if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
        std::string exponent = "e";
        std::size_t j = i + 1;
        if (j < s.size() && (s[j] == '-' || s[j] == '+')) exponent += s[j++];
        std::size_t start = j;
        while (j < s.size() && isDigit(s[j]) && j - start < 6) exponent += s[j++];
        if (j > start) digits += exponent;
    }
    const double value = std::strtod(digits.c_str(), nullptr);
    if (std::isinf(value))
        return value > 0 ? std::numeric_limits<double>::max()
                         : std::numeric_limits<double>::lowest();
    return value;
}

std::int16_t toInt16(double value) {
    return toInteger<std::int16_t>(value);
}

std::int32_t toInt32(double value) {
    return toInteger<std::int32_t>(value);
}

std::string formatNumber(double value) {
    if (std::isnan(value)) return "0";
    const float single = static_cast<float>(value);
    if (single == 0) return "0";
    char out[64];
    if (std::fabs(single) < 1e15F && std::fabs(single) >= 1e-4F) {
        std::snprintf(out, sizeof out, "%.7g", static_cast<double>(single));
        std::string text = out;
        if (text.find('e') == std::string::npos) return text;
    }
    // Very large or small: the exponent form "1E+20", "2.5E-05".
    std::snprintf(out, sizeof out, "%.6E", static_cast<double>(single));
    std::string text = out;
    const std::size_t e = text.find('E');
    std::string mantissa = text.substr(0, e);
    std::string exponent = text.substr(e + 1);
    while (mantissa.back() == '0') mantissa.pop_back();
    if (mantissa.back() == '.') mantissa.pop_back();
    const char sign = exponent[0];
    exponent.erase(0, 1);
    while (exponent.size() > 2 && exponent[0] == '0') exponent.erase(0, 1);
    return mantissa + "E" + sign + exponent;
}

std::string formatOneDecimal(double value) {
    return fixed(value, 1);
}

std::string formatTwoDecimals(double value) {
    std::string text = fixed(value, 2);
    // ".00" has no digit before the point: "0.30" is written ".30".
    if (text.starts_with("0.")) text.erase(0, 1);
    if (text.starts_with("-0.")) text.erase(1, 1);
    return text;
}

}  // namespace orr::play
