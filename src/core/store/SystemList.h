#pragma once
// The game's own list of systems, SOLARSYS.TXT: records of a header line (quoted display name,
// star type, planet count) followed by one line per planet. Read only.

#include <filesystem>
#include <string>
#include <vector>

#include "store/GameFolder.h"
#include "store/SystemRecord.h"

namespace orr {

struct ListedSystem {
    std::string key;      // planet count + trimmed display name, e.g. "9Sol"
    SystemRecord record;  // Name = key
};

// Reads records until the end of the file or the first record that cannot be read (which ends
// the list; the records before it stay). Fields are read as the game reads them (see
// RecordFields), so only a value too large for its field, more than ten planets or a file that
// ends inside a record stop the reading. A missing file gives an empty list.
std::vector<ListedSystem> ReadSystemList(const std::filesystem::path& file);

// The key of a listed record.
std::string ListedSystemKey(int planetCount, const std::string& displayName);

// Copies the first record whose key equals `key` (case-sensitive) into `record`; otherwise the
// record stays exactly as it was. Returns whether a record was found.
bool FindListedSystem(const GameFolder& folder, const std::string& key, SystemRecord& record);

// The keys the Add System dialog offers, in file order: records without a saved descriptor
// (DescriptorFolder + key + ".orb") whose display name holds no "#".
std::vector<std::string> OfferedSystems(const GameFolder& folder);

}  // namespace orr
