#pragma once
// The special-code list (SPECIAL.LST): every code of the message language that the editor does
// not build itself, with a description and, where the code takes one, an argument placeholder.
// The editor offers its lines for attaching and reads stored codes back through it; a stored
// code that no entry matches cannot be shown and is dropped.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "messages/MessageKeys.h"
#include "messages/SpecialEntry.h"

namespace orr {

inline constexpr const char* kSpecialListFile = "SPECIAL.LST";

// Why an entry cannot be attached next to the entries already attached.
enum class AttachConflict { None, SameRestriction, DirectionMarker };

// "You cannot have more than one direction marker." or "... of the same restriction."; empty
// for None.
std::string attachConflictMessage(AttachConflict conflict);

class SpecialCodeList {
  public:
    SpecialCodeList() = default;

    // Every non-empty line of the file text, in file order (CR LF, LF or CR line ends; lines of
    // blanks only count as empty).
    static SpecialCodeList parse(std::string_view bytes);

    const std::vector<SpecialEntry>& entries() const { return entries_; }
    bool empty() const { return entries_.empty(); }
    std::size_t size() const { return entries_.size(); }

    // The file the list came from; empty when none was found. Without a file no code can be
    // attached or read back.
    const std::filesystem::path& source() const { return source_; }
    void setSource(std::filesystem::path source) { source_ = std::move(source); }
    bool codesAvailable() const { return !source_.empty(); }

    // The entry whose code begins the stored token ("%FA", "*DS3", "^EN"), searched from the
    // last entry to the first so that a longer code listed after a shorter one ("*D!" after
    // "*D") wins; nullptr when none matches.
    const SpecialEntry* findEntry(std::string_view token) const;

    // The matching entry with the rest of the token filled into its placeholder, as the editor
    // attaches it when it reads a stored line; nullopt when no entry matches.
    std::optional<SpecialEntry> entryForToken(std::string_view token) const;

    // Where the choice in the code list settles when index is chosen: a heading passes the
    // choice on to the next entry that is not a heading, or, at the end of the list, back to
    // the nearest one above. -1 when there is none (or index is out of range).
    int settleChoice(int index) const;

    // Whether "Add" is offered for the chosen entry: never for a heading, and in the response
    // list only for restriction entries.
    static bool canAdd(const SpecialEntry& chosen, Direction direction);

    // The conflict that forbids attaching `chosen` next to `attached` (only "%" entries are
    // checked; several flag restrictions may stand together).
    static AttachConflict checkAttach(const std::vector<SpecialEntry>& attached,
                                      const SpecialEntry& chosen);

  private:
    std::vector<SpecialEntry> entries_;
    std::filesystem::path source_;
};

}  // namespace orr
