#pragma once
// The system store: the open system, the fixed tables, the game folder and every routine that
// reads or writes the open system's descriptor. All descriptor routines address the open system's
// file by its Name and the current DescriptorExtension (".orb", or ".edt" while editing).
//
// Routines keep the names the game's modders know from the descriptor format. Writing routines
// return false when the file could not be written; lastError() then holds a sentence for the user.

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "store/GameFolder.h"
#include "store/ProfileStore.h"
#include "store/SystemRecord.h"
#include "store/Tables.h"

namespace orr {

inline constexpr const char* kNotUsed = "Not Used";
inline constexpr const char* kErr = "ERR";
inline constexpr const char* kPlanetPics = "PlanetPics";
inline constexpr const char* kMessagesFlag = "Messages";
inline constexpr std::size_t kMaxValueLength = 254;
inline constexpr const char* kMaxPlanetsMessage = "This system has the maximum number of planets.";

struct LoadResult {
    bool blockFound = false;  // the descriptor held a readable system block
    // Non-empty when the block is damaged: says what is wrong and what of it was kept.
    std::string warning;
};

class SystemStore {
  public:
    explicit SystemStore(GameFolder folder = {});

    // --- folders and tables
    const GameFolder& folder() const { return folder_; }
    void setFolder(GameFolder folder);
    bool InitTables();  // reads aliens.txt; false when it is missing (names then stay empty)
    Tables& tables() { return tables_; }
    const Tables& tables() const { return tables_; }

    SystemRecord& record() { return record_; }
    const SystemRecord& record() const { return record_; }
    ProfileStore& profiles() const { return profiles_; }
    // Starts a new check round: the next read of each file looks at it on disk again (reads in
    // between trust the cache). Called once per command and per refresh of a window.
    void recheck() const { profiles_.recheck(); }

    // --- descriptor list and paths
    const std::string& DescriptorExtension() const { return extension_; }
    void ListDescriptors();
    const std::vector<std::string>& DescriptorList() const { return descriptorList_; }  // [0] empty
    int FindDescriptor(const std::string& name) const;
    // DescriptorFolder + name + extension (found ignoring case when it exists).
    fs::path descriptorPath(const std::string& name, const std::string& extension) const;
    fs::path openDescriptorPath() const;  // of the open system with the current extension

    // --- profile layer on the open system
    // "Not Used" when absent.
    std::string ReadKey(const std::string& section, const std::string& key) const;
    bool WriteKey(const std::string& section, const std::string& key, const std::string& value);
    bool DeleteKey(const std::string& section, const std::string& key);
    bool SectionExists(const std::string& section) const;
    bool RemovePlanetSection(int n);

    // --- planet-level access
    std::string GetPlanetKey(int planet, const std::string& key, bool force = false) const;
    int GetGeneralFlag(const std::string& key, int planet) const;  // 1, 0, -1 no file, -2 no key
    bool SetGeneralFlag(const std::string& key, int planet, int count, bool yes);
    bool HasCustomPictures(int planet) const;
    std::string GetName(int n, const std::string& base) const;
    bool SetName(int n, const std::string& name);

    // --- system block and planets
    LoadResult LoadSystem(const std::string& name);
    LoadResult ReadSystemBlock();
    bool SaveSystemBlock();
    // The last load found a system block (perhaps a damaged one, which a save then refuses).
    bool HasSystemBlock() const { return blockLoaded_; }
    // The open descriptor's text as it would be with `record`'s block in it (for a save under
    // another name); nullopt, with the reason in lastError(), when the block cannot be saved.
    std::optional<std::string> descriptorTextFor(const SystemRecord& record);
    bool AddPlanet();  // refused (count unchanged) when there are 10 planets
    bool RemoveLastPlanet();
    bool SwapPlanets(int a, int b);

    // --- working copy
    // askUseBackup is called when a working copy already exists; returning true keeps it.
    bool BeginEdit(const std::function<bool()>& askUseBackup);
    // A save whose working copy could not be deleted afterwards still counts as saved (the
    // descriptor holds every change); lastWarning() then says so.
    bool EndEdit(bool save);
    // Copies the working copy over the saved descriptor and goes on editing it: the two are then
    // equal, times included, so the system counts as unmodified (a save without the moment in
    // which no working copy exists).
    bool CommitWorkingCopy();
    // Stops editing without touching any file: the working copy stays as the backup that the
    // next opening offers (the program ending without questions).
    void LeaveWorkingCopy() { extension_ = ".orb"; }
    bool IsEditing() const;
    bool IsModified() const;
    bool MarkModified();
    bool RenameSystem(const std::string& newName);

    const std::string& lastError() const { return lastError_; }
    const std::string& lastWarning() const { return lastWarning_; }
    // Sets lastError() and returns false; for the edits built on the store.
    bool fail(const std::string& message);

    // Groups the writes of one edit into a single write of the descriptor. commit(ok) reports
    // whether the edit succeeded and reached the disk; otherwise the record is put back as it
    // was when the transaction began and lastError() says why. The destructor commits if needed.
    class Transaction {
      public:
        explicit Transaction(SystemStore& store);
        ~Transaction();
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        bool commit(bool ok = true);

      private:
        SystemStore& store_;
        SystemRecord before_;
        ProfileStore::WriteBatch batch_;
        bool done_ = false;
    };

  private:
    GameFolder folder_;
    Tables tables_;
    SystemRecord record_;
    // Reads fill the cache, so even a const store changes it.
    mutable ProfileStore profiles_;
    std::string extension_ = ".orb";
    std::vector<std::string> descriptorList_{""};
    std::string lastError_;
    std::string lastWarning_;
    // Whether the last ReadSystemBlock found a block: a block save that then finds none fails.
    bool blockLoaded_ = false;
    // Where descriptorPath found each file name; looked up again when the file has gone.
    struct ResolvedPath {
        fs::path path;
        std::uint64_t round = 0;  // the check round in which it was last seen on disk
    };
    mutable std::map<std::string, ResolvedPath> resolvedPaths_;

    bool failWriting(const fs::path& file, const std::string& reason);
    bool requireOpenSystem();
    std::string currentExtension() const;
    bool rewriteOpenDescriptor(const std::function<bool(ProfileDocument&)>& change);
    // Puts `record`'s block in place of the block the load read; `refused` says why not.
    bool replaceBlock(ProfileDocument& doc, const SystemRecord& record, std::string& refused) const;
    // The warning for a damaged block: what is wrong and what of it the record kept.
    std::string damagedBlockWarning(const std::string& reason, const std::string& kept) const;
    // The record of a system whose block gives nothing: its own name, star type 0, no planets.
    void showNothingRead();
};

// The text of a new descriptor for the record: [General], the two flag keys, an empty line and
// the system block.
std::string newDescriptorText(const SystemRecord& record);

// ";SolarSystem", the header line and one line per planet, each ended by CR LF.
std::string systemBlockText(const SystemRecord& record);

}  // namespace orr
