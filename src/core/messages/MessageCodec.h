#pragma once
// The stored form of a message line and its translation to and from the editor's model.
//
// A stored line is, in order: prefix codes ("%" + two characters each), a display prefix
// ("$BOX$" or "$" + title + "$"), the text, suffix codes ("^" + two characters each), the
// answer tag ("*R" + group in a message, "*M" + group in a response) and action codes ("*" +
// code + argument, each running to the next "*").

#include <string>
#include <string_view>

#include "messages/MessageKeys.h"
#include "messages/MessageLine.h"
#include "messages/SpecialCodeList.h"

namespace orr {

// The stored line for the model, written in the given direction while `currentGroup` (shown
// form, "INIT" or empty for the INIT group) is the group being edited. Information is stored
// as its plain text. The game takes the last "R" code of a message for its answer, so a
// message's answer tag follows its ship-system conditions ("*RS3*RTrade").
std::string ComposeMessage(const MessageLine& line, Direction direction,
                           std::string_view currentGroup);

// The model of a stored line read in the given direction and group; codes are looked up in
// `codes`. Information lines are plain text ("ERR", a missing key, reads as empty).
MessageLine DecodeMessage(std::string_view stored, Direction direction,
                          std::string_view currentGroup, const SpecialCodeList& codes);

// The answer tag the model's answer group implies: empty when it is the current group (or
// empty), otherwise "*R" (message) or "*M" (response) + the stored group name.
std::string AnswerTag(std::string_view answerGroup, Direction direction,
                      std::string_view currentGroup);

// The visible text of a stored line, as the editor's list shows it.
std::string PlainText(std::string_view stored);

// Whether a stored line is too long for the game (255 characters or more).
bool ExceedsLengthLimit(std::string_view stored);

// Whether a "*" token is a ship-system condition ("*RS" or "*R!S" followed by a digit), which
// begins like an answer tag but is a code of its own.
bool IsSystemCondition(std::string_view token);

}  // namespace orr
