#pragma once
// One line of the special-code list, as listed in the editor and as attached to a message line:
// code + " - " + description, where the description may hold one argument placeholder, text in
// round brackets (free text, a number or a ship-system reference "S"+digit) or in square
// brackets (a flag character). An attached entry is shown with its current argument inside the
// placeholder, but keeps the argument apart from the listed line: an argument read from a file
// may hold brackets itself ("*A[" gives the argument "["), and must be written back unchanged.
// A line without " - " is a heading: listed, never attached.
//
// A line may end in " -- " + a longer explanation, which the editor shows apart (as a tool tip
// and below the list) so that the list stays narrow; placeholders stand before it. A reader that
// does not know this shows the explanation as part of the description, which still reads well.

#include <optional>
#include <string>
#include <string_view>

namespace orr {

// Where a code stands in a stored line, told by its first character.
enum class CodePlace { None, Prefix, Suffix, Action };  // "%", "^", "*"; None for anything else

// Which editor changes an attached entry's argument.
enum class ArgumentEditorKind { None, SystemChooser, InputBox, FlagChooser };

struct ArgumentEditor {
    ArgumentEditorKind kind = ArgumentEditorKind::None;
    std::string current;   // the placeholder's contents
    int systemIndex = -1;  // 0..8 for the system chooser
};

inline constexpr const char* kCodeSeparator = " - ";
inline constexpr const char* kExplanationSeparator = " -- ";
inline constexpr int kShipSystemCount = 9;

class SpecialEntry {
  public:
    SpecialEntry() = default;
    explicit SpecialEntry(std::string line);

    // The listed line with the placeholders holding the current arguments, as the editor shows it
    // (without the explanation).
    std::string line() const;
    // The longer explanation after " -- "; empty when the file gives none.
    const std::string& explanation() const { return explanation_; }
    bool isHeading() const;
    std::string code() const;         // text before the first " - "; empty for a heading
    std::string description() const;  // text after the first " - "
    CodePlace place() const;

    // A "%" entry (restrictions and conditions): the only kind a response may carry.
    bool isRestriction() const;
    bool isDirectionMarker() const;  // code begins "%G"
    bool isFlagRestriction() const;  // code begins "%F" or "%f": several may be attached

    // Contents of the placeholders, when the description has them.
    std::optional<std::string> roundArgument() const;
    std::optional<std::string> squareArgument() const;
    // Whether the editor offers to edit the entry (its text holds "(" or "[").
    bool canEditArgument() const;

    // The entry with the round (else square) placeholder holding `value`. An empty value, or an
    // entry without a placeholder, leaves the entry as it is.
    SpecialEntry withArgument(std::string_view value) const;
    SpecialEntry withRoundArgument(std::string_view value) const;
    SpecialEntry withSquareArgument(std::string_view value) const;

    // The code as written into a stored line: "%" code + square argument, "^" code alone, "*"
    // code + round argument + square argument; empty for headings and other entries.
    std::string storedCode() const;

    // How the editor lets the designer change the argument: the system chooser for a round
    // value "S0".."S8", an input box for any other round value, the flag chooser for a square
    // value.
    ArgumentEditor argumentEditor() const;

    // The same listed line with the same arguments.
    bool operator==(const SpecialEntry& other) const;

  private:
    std::string line_;  // as listed, placeholders holding their defaults
    std::string explanation_;
    std::optional<std::string> round_;  // the arguments set since, if any
    std::optional<std::string> square_;

    struct Span {
        std::size_t open;   // position of the opening bracket
        std::size_t close;  // position of the closing bracket, or npos when it is missing
    };
    std::optional<Span> placeholder(char open, char close) const;
    std::optional<std::string> argument(char open, char close,
                                        const std::optional<std::string>& set) const;
};

// The round-bracket argument that names ship system `index`: "S" + digit.
std::string shipSystemArgument(int index);

}  // namespace orr
