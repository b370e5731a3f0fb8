#pragma once
// The line and field rules of the game's record files: the system list SOLARSYS.TXT and the
// system block of a descriptor. A record line holds comma-separated fields: the display name as
// a quoted text, every other field a plain decimal integer.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/SystemRecord.h"

namespace orr {

class RecordFields {
  public:
    struct Header {
        std::string displayName;  // already cut or padded to 20 characters
        std::int16_t starType = 0;
        std::int16_t planetCount = 0;  // as written: may be below 0 or above ten
    };

    // The lines of a text file without their ends; CR LF, LF and CR all end a line. A last line
    // without an end counts, an empty text after the last line end does not.
    static std::vector<std::string_view> splitLines(std::string_view bytes);

    // The fields of one line: blanks before a field are skipped; a quoted text may hold commas
    // and ends at its closing quote (anything after it up to the next comma is ignored); an
    // unquoted field ends at the next comma and loses its trailing blanks.
    static std::vector<std::string> split(std::string_view line);

    // Record lines are read as the game's comma-separated reader reads them: a number field by
    // its leading value ("3x" is 3, "abc" is 0), a missing field as 0, fields after the last
    // ignored. Values outside the usual ranges (a star type of 8) are kept as they are. Only a
    // value that does not fit its 16- or 32-bit field cannot be read: then nullopt or false,
    // and *reason says which field in words for the user.

    // The header line: display name, star type, planet count.
    static std::optional<Header> parseHeader(std::string_view line, std::string* reason);
    // A planet line of six numbers. Only on success are fields 1..6 of `planet` overwritten.
    static bool parsePlanet(std::string_view line, PlanetRecord& planet, std::string* reason);

    // The header fields as written: quoted 20-character display name, star type, planet count.
    static std::string headerFields(const SystemRecord& record);
    // The six planet fields as written, e.g. "400,2,0,0,1,0".
    static std::string planetFields(const PlanetRecord& planet);
    // The planet count written for a record: PlanetCount kept within 0..10.
    static int writtenPlanetCount(const SystemRecord& record);
};

}  // namespace orr
