#pragma once
// The checks behind the fuzz targets. Each takes one input and returns what is wrong with the
// way the core handled it, or an empty text when nothing is. The fuzz targets abort on a
// non-empty answer, so libFuzzer keeps the input; the regression test feeds the inputs kept in
// tests/fuzz-regressions/<target>/ through the same check. Crashes and hangs show as themselves.
//
// Nothing here needs libFuzzer or Qt.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orr::fuzz {

using Check = std::string (*)(std::string_view input);

// The profile parser with edits. Input: the file's bytes, then after the first NUL byte the
// edits (ProfileChecks.cpp describes their encoding). After every edit the document must agree
// with its own bytes parsed again, a written value must read back, and the line rewrites must
// remove exactly the lines their rules name.
std::string checkProfileEdits(std::string_view input);

// SOLARSYS.TXT: the records read must be well formed and read back the same when written again.
std::string checkSystemList(std::string_view input);

// A descriptor loaded with LoadSystem: the record must be well formed, the keys readable, and a
// block saved must load back as the same record.
std::string checkDescriptor(std::string_view input);

// A stored message line read with the shipped SPECIAL.LST, composed and read again must give
// the same line, and the group a line offers must stay the same. Input: "<key>=<line>" as in a
// descriptor (the key gives direction and group), or a bare line (a message of INIT).
std::string checkMessageCodec(std::string_view input);

// SPECIAL.LST parsed: entries, lookups and placeholders must agree with each other.
std::string checkSpecialCodes(std::string_view input);

// Windows-1252 bytes must survive the way through UTF-8 and back.
std::string checkCp1252(std::string_view input);

struct NamedCheck {
    std::string_view target;  // the fuzz target's name, also its regression folder's
    Check check;
};

// Every check under its target's name.
const std::vector<NamedCheck>& allChecks();

// For LLVMFuzzerTestOneInput: runs the check and aborts with its answer when it is not empty.
int runCheck(Check check, const std::uint8_t* data, std::size_t size);

}  // namespace orr::fuzz
