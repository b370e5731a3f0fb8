// The list of checks, the runner the fuzz targets share, and the Windows-1252 check.
#include "FuzzChecks.h"

#include <cstdio>
#include <cstdlib>

#include "CheckSupport.h"
#include "text/Cp1252.h"

namespace orr::fuzz {

std::string checkCp1252(std::string_view input) {
    // Every byte has a character: the bytes come back as they were.
    const std::string utf8 = text::cp1252ToUtf8(input);
    if (const std::string back = text::utf8ToCp1252(utf8); back != input) {
        return shown(input) + " came back from UTF-8 " + shown(utf8) + " as " + shown(back);
    }
    // Taken as UTF-8 (invalid bytes as Latin-1), the input's Windows-1252 form is stable.
    const std::string once = text::utf8ToCp1252(input);
    if (const std::string twice = text::utf8ToCp1252(text::cp1252ToUtf8(once)); twice != once) {
        return shown(input) + " converted gives " + shown(once) + " and then " + shown(twice);
    }
    return {};
}

const std::vector<NamedCheck>& allChecks() {
    static const std::vector<NamedCheck> checks = {
        {"ProfileEdits", checkProfileEdits}, {"SystemList", checkSystemList},
        {"Descriptor", checkDescriptor},     {"MessageCodec", checkMessageCodec},
        {"SpecialCodes", checkSpecialCodes}, {"Cp1252", checkCp1252},
    };
    return checks;
}

int runCheck(Check check, const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string problem = check(input);
    if (problem.empty()) return 0;
    std::fprintf(stderr, "\n*** Disagreement: %s\n\n", problem.c_str());
    std::abort();
}

}  // namespace orr::fuzz
