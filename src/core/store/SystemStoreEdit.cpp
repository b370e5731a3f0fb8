// The working copy: a system is edited in Name + ".edt" and saved by copying it over
// Name + ".orb". It counts as modified exactly when the two files' modification times differ.
#include <chrono>
#include <system_error>
#include <thread>

#include "store/FileIo.h"
#include "store/SystemName.h"
#include "store/SystemStore.h"

namespace orr {

namespace {

constexpr const char* kSaved = ".orb";
constexpr const char* kWorking = ".edt";

// File times come from a coarse clock: a write within a few milliseconds of the saved file's
// time could get that very time, and the change would not count. A saved file that is that
// fresh is one the editor has just written; waiting out the margin costs nothing noticeable.
void waitPastFileTime(const fs::path& file) {
    constexpr auto kMargin = std::chrono::milliseconds(20);
    const std::optional<fs::file_time_type> time = modificationTime(file);
    if (!time) return;
    const auto remaining = *time + kMargin - fs::file_time_type::clock::now();
    if (remaining > fs::file_time_type::duration::zero() && remaining <= 2 * kMargin) {
        std::this_thread::sleep_for(remaining);
    }
}

}  // namespace

bool SystemStore::BeginEdit(const std::function<bool()>& askUseBackup) {
    if (!requireOpenSystem()) return false;
    extension_ = kWorking;
    const fs::path working = descriptorPath(record_.Name, kWorking);
    std::error_code ec;
    if (fs::exists(working, ec) && askUseBackup && askUseBackup()) {
        profiles_.forget(working);
        return true;
    }
    const fs::path saved = descriptorPath(record_.Name, kSaved);
    std::string error;
    const bool copied = copyFileKeepingTime(saved, working, &error);
    profiles_.forget(working);
    if (!copied) {
        // Without a working copy every change would land in a new, empty file that a save
        // would then copy over the saved descriptor: stay out of editing instead.
        extension_ = kSaved;
        return fail("The working copy of " + record_.Name + " could not be made from \"" +
                    saved.filename().string() + "\"" + (error.empty() ? "" : ": " + error) +
                    (error.ends_with('.') ? "" : "."));
    }
    waitPastFileTime(saved);
    return true;
}

bool SystemStore::EndEdit(bool save) {
    lastWarning_.clear();
    if (!IsEditing()) return true;
    const fs::path working = descriptorPath(record_.Name, kWorking);
    const fs::path saved = descriptorPath(record_.Name, kSaved);
    extension_ = kSaved;
    if (save) {
        std::string error;
        // The saved descriptor reaches the disk before the save counts as done.
        const bool copied = copyFileKeepingTime(working, saved, &error, Durability::Durable);
        profiles_.forget(saved);
        // A failed copy keeps the working copy: it is the backup the next opening offers.
        if (!copied) return failWriting(saved, error);
    }
    std::string why;
    const bool removed = removeFile(working, &why);
    profiles_.forget(working);
    if (!removed) {
        const std::string problem =
            "The working copy \"" + working.filename().string() + "\" could not be deleted. " + why;
        if (!save) return fail(problem);
        // The saved descriptor already holds every change: the save stands.
        lastWarning_ = "The system was saved. " + problem +
                       " The next opening offers it as a backup; answer No to discard it.";
    }
    return true;
}

bool SystemStore::CommitWorkingCopy() {
    if (!IsEditing()) return fail("No system is open.");
    const fs::path working = descriptorPath(record_.Name, kWorking);
    const fs::path saved = descriptorPath(record_.Name, kSaved);
    std::string error;
    const bool copied = copyFileKeepingTime(working, saved, &error, Durability::Durable);
    profiles_.forget(saved);
    if (!copied) return failWriting(saved, error);
    // The next change of the working copy must get another time than the saved file has.
    waitPastFileTime(saved);
    return true;
}

bool SystemStore::IsEditing() const {
    return extension_ == kWorking;
}

bool SystemStore::IsModified() const {
    if (!IsEditing()) return false;
    return modificationTime(descriptorPath(record_.Name, kWorking)) !=
           modificationTime(descriptorPath(record_.Name, kSaved));
}

bool SystemStore::MarkModified() {
    if (IsModified()) return true;
    if (!SaveSystemBlock()) return false;
    if (!IsEditing() || IsModified()) return true;

    // A descriptor without a block is left as it was by the block save: rewrite it unchanged,
    // which gives it a new time.
    const fs::path working = descriptorPath(record_.Name, kWorking);
    std::string error;
    const std::optional<std::string> bytes = readWholeFile(working, &error);
    if (!bytes || !writeFileAtomically(working, *bytes, &error)) {
        return failWriting(working, error);
    }
    profiles_.forget(working);
    if (!IsModified()) {
        // Still the very same time on a coarse clock: move the working copy's time on.
        const std::optional<fs::file_time_type> savedTime =
            modificationTime(descriptorPath(record_.Name, kSaved));
        std::error_code ec;
        if (savedTime) fs::last_write_time(working, *savedTime + std::chrono::milliseconds(1), ec);
        if (ec) return failWriting(working, ec.message());
    }
    return true;
}

bool SystemStore::RenameSystem(const std::string& newName) {
    if (!requireOpenSystem()) return false;
    if (const std::optional<std::string> reason = CheckSystemName(newName)) return fail(*reason);
    const std::string extension = currentExtension();
    const fs::path from = descriptorPath(record_.Name, extension);
    // The new name is spelled exactly as typed, also when only its letter case changes.
    const fs::path to = from.parent_path() / (newName + extension);
    std::error_code ec;
    if (!fs::is_regular_file(from, ec)) {
        return fail("The descriptor \"" + from.filename().string() + "\" does not exist.");
    }
    // On Windows a file of the new name in another spelling is the very file the new name
    // names: the saved descriptor takes the new spelling, so that the folder holds one system
    // of that name ("Sol" saved as "SOL" leaves SOL.orb and SOL.edt, not Sol.orb beside them).
    fs::path respelledFrom;
    const fs::path respelledTo = from.parent_path() / (newName + kSaved);
    if (extension == kWorking) {
        const fs::path saved = descriptorPath(newName, kSaved);
        if (saved != respelledTo && fs::is_regular_file(saved, ec)) {
            std::string why;
            const bool renamed = renameFile(saved, respelledTo, &why);
            profiles_.forget(saved);
            profiles_.forget(respelledTo);
            if (!renamed) return fail(why);
            respelledFrom = saved;
        }
    }
    // Likewise an old working copy of the new name in another spelling: the rename replaces it.
    const fs::path replaced = descriptorPath(newName, extension);
    std::string why;
    const bool renamed = renameFile(from, to, &why);
    profiles_.forget(from);
    profiles_.forget(to);
    if (!renamed) {
        if (!respelledFrom.empty()) renameFile(respelledTo, respelledFrom);
        resolvedPaths_.clear();
        return fail(why);
    }
    if (replaced != from && replaced != to && fs::is_regular_file(replaced, ec)) {
        removeFile(replaced);
        profiles_.forget(replaced);
    }
    resolvedPaths_.clear();
    if (record_.trimmedDisplayName() == record_.Name) record_.setDisplayName(newName);
    record_.Name = newName;
    return true;
}

}  // namespace orr
