#pragma once
// Checks made before what the designer typed is written, by the message editor and orrerion-cli
// alike: names that cannot be group names, arguments that would break a stored line, and lines
// that would not read back, or not act in the game, the way they were written (codes the
// special-code list does not know, tags written differently, a condition that chose the
// answer). The editor shows these as questions or messages; nothing here decides for the
// designer.

#include <string>
#include <string_view>
#include <vector>

#include "messages/MessageKeys.h"
#include "messages/MessageLine.h"
#include "messages/SpecialCodeList.h"

namespace orr {

// A response's text must stay narrower than this many twips (1/1440 inch) in the editor's font,
// or the game's answer dialog cuts it off.
inline constexpr int kResponseWidthLimitTwips = 7230;
inline constexpr int kTwipsPerInch = 1440;

inline constexpr const char* kLengthLimitExceeded = "(Length Limit Exceeded)";
inline constexpr const char* kWidthLimitExceeded = "(Response Text Width Limit Exceeded)";

// Why `name` cannot name a group (it would break the key names or the answer tags); empty when
// it can. The editor and orrerion-cli refuse the same names.
std::string groupNameProblem(std::string_view name);

// Why a line in `direction` cannot lead to `answerGroup`: a bad name, or a name that a message's
// tag would turn into a ship-system condition ("*RS1"). Empty when it can; an empty name is the
// line's own group.
std::string answerGroupProblem(std::string_view answerGroup, Direction direction);

// Why `value` cannot be the argument of the special code `code` ("*H", "*D", "%F"); empty when it
// can. No argument may end the code early ("*", brackets); the game reads a whole number after
// the supply, time, shield-hit, allowance and retrofit codes, a ship system ("S" + digit) after
// the damage, repair and ship-system condition codes, and one flag character after the flag
// codes.
std::string argumentProblem(std::string_view code, std::string_view value);

// What would be lost or changed if `line` were stored in `group` and `direction` and read back
// with `codes`: one sentence per problem, empty when the line reads back as written.
std::vector<std::string> saveWarnings(const MessageLine& line, Direction direction,
                                      std::string_view group, const SpecialCodeList& codes);

// The check before a line is saved, the same in the message editor and orrerion-cli's compose.
// `refusal`: why the line cannot be saved at all (its answer group); `warnings`: what would be
// lost or changed (saveWarnings), which the editor asks about and the tool refuses.
struct SaveCheck {
    std::string refusal;
    std::vector<std::string> warnings;
    bool clean() const { return refusal.empty() && warnings.empty(); }
};
SaveCheck checkLineForSave(const MessageLine& line, Direction direction, std::string_view group,
                           const SpecialCodeList& codes);

// The question that asks whether to save despite `warnings` (Yes saves, No goes back).
std::string saveQuestion(const std::vector<std::string>& warnings);

}  // namespace orr
