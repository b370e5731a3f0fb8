#pragma once
// One message or response line as the message editor shows it: the option controls (wait,
// percent, display), the text, the answer group and the attached special codes. The codec
// (MessageCodec.h) turns a stored line into this model and back.

#include <string>
#include <vector>

#include "messages/SpecialEntry.h"

namespace orr {

enum class DisplayMode { Standard = 0, Box = 1, Custom = 2 };  // the optDisplay indexes

inline constexpr const char* kStandardCaption = "Message from Planet:";
inline constexpr const char* kBoxCaption = "<none>";
inline constexpr int kMaxWait = 9;                  // seconds
inline constexpr int kMaxPercent = 10;              // tenths: 10 = always used
inline constexpr std::size_t kMaxLineLength = 254;  // the game reads lines with a 255-byte buffer

struct MessageLine {
    int wait = 0;               // 0..9 seconds before the line is shown
    int percent = kMaxPercent;  // 0..10 tenths of the time the line is used
    DisplayMode display = DisplayMode::Standard;
    std::string title;        // the custom caption; "<none>" / "Message from Planet:" shown
                              // for Box / Standard after decoding
    std::string text;         // the visible text, insert codes included
    std::string answerGroup;  // where the line leads, "INIT" for the empty name; empty
                              // (like the current group) means no answer tag
    std::vector<SpecialEntry> specials;  // attached entries, in the order they are written

    // Stored tokens that no special-code entry matched when the line was read. They are not
    // written back, so the editor can warn before a save loses them.
    std::vector<std::string> droppedCodes;

    // The answer tags exactly as stored ("*MTrade", "*RINIT"), in order. The editor writes one
    // tag with the direction's own letter, so it can warn when that would change the line.
    std::vector<std::string> storedTags;

    // In a message: the ship-system condition ("*RS3") that stood last among the line's "R"
    // codes when it was read. The game runs the codes from left to right and each "R" code sets
    // the responses offered, so the line led to the group the condition names ("S3"). Composing
    // puts an answer tag after the conditions, so the editor warns before that changes.
    std::string answerCondition;

    bool operator==(const MessageLine&) const = default;
};

}  // namespace orr
