#pragma once
// One profile-style ("INI") file in memory, kept byte for byte: lines that no operation changes
// are written back exactly as they were read. Only their ends are not kept: every line is written
// with CR LF, whatever ended it before (LF, CR, or nothing on the last line).
//
// Two families of operations, as the file format requires:
// - readValue/writeValue have the semantics of the platform's profile functions: section and
//   key names compared ignoring case, blanks around "=" ignored, a missing section appended at
//   the end of the file, a missing key inserted after the last key line of its section, comment
//   lines kept. They are indexed, so reads and writes do not scan the file.
// - The raw-line rewrites (deleteKey, removeNumberedSection, sectionExists) compare exactly, on
//   whole lines, as the game's descriptor routines do.

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orr {

class ProfileDocument {
  public:
    struct Line {
        std::string text;  // without its line end
    };

    ProfileDocument() = default;
    static ProfileDocument parse(std::string_view bytes);
    std::string serialize() const;

    // The value of section/key (first matching section, first matching key), blanks trimmed and
    // one pair of enclosing quotes (" or ') dropped, or nullopt when absent. Not cut: callers
    // apply the 254-character read limit.
    std::optional<std::string> readValue(std::string_view section, std::string_view key) const;

    // Sets section/key, replacing the first matching key line by key + "=" + value, or adding it.
    void writeValue(std::string_view section, std::string_view key, std::string_view value);

    // Raw rules, case-sensitive: a header is a line beginning "[" + section + "]".
    bool sectionExists(std::string_view section) const;
    // Removes every line of `key` (text before the first "=" equal to key) inside section.
    // Returns whether anything was removed.
    bool deleteKey(std::string_view section, std::string_view key);
    // Removes the numbered section [n] with all its lines. [General] and [Names] (value 0) stay.
    // The descriptor's system block ends a section: a block after [n] is no line of [n].
    bool removeNumberedSection(int n);

    // The marker line of a descriptor's system block: a comment line naming "SolarSystem". The
    // first such line of a file is the one that counts.
    static bool isBlockMarker(std::string_view line);

    // Replaces the lines [first, first + count) by `texts` (lines without their ends). When every
    // line keeps what it is (the same section header, the same key, or neither: a changed value
    // or comment) the lookup index stays as it is; otherwise it is rebuilt when next needed.
    // False when the range is outside the document.
    bool replaceLines(std::size_t first, std::size_t count, std::vector<std::string> texts);

    // The lines of a text as parse() reads them (CR LF, LF or CR end a line).
    static std::vector<std::string> splitLines(std::string_view bytes);

    // Direct access for the descriptor's own line rewrites (system block, planet swap). Call
    // linesChanged() after changing the lines so the index is rebuilt.
    const std::vector<Line>& lines() const;
    std::vector<Line>& mutableLines();
    void linesChanged();

  private:
    // New key lines are not inserted into lines_ at once (that would move every later line):
    // they wait in pendingAfter_, keyed by the line they follow, until someone needs the plain
    // line list. serialize() and the index see them where they belong.
    mutable std::vector<Line> lines_;
    mutable std::map<std::size_t, std::vector<Line>> pendingAfter_;
    // The implementation keeps its lookup index here (see ProfileDocument.cpp).
    struct Index;
    mutable std::shared_ptr<Index> index_;
    const Index& index() const;
    Index& mutableIndex();
    void applyPendingLines() const;
    Line& lineAt(std::size_t anchor, std::size_t offset) const;
};

}  // namespace orr
