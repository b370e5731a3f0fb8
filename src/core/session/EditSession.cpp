// The edit session's lifecycle, commands and change notices. Undo and redo are in
// EditSessionHistory.cpp.
#include "session/EditSession.h"

#include <chrono>
#include <system_error>

#include "session/SystemFiles.h"
#include "store/FileIo.h"
#include "store/PictureFiles.h"
#include "store/SystemName.h"
#include "text/Text.h"

namespace orr {

namespace {

// Stands for "not what is saved" where the pictures must be written whatever they hold.
class UnsavedPicture : public Picture {
  public:
    int width() const override { return 0; }
    int height() const override { return 0; }
};

}  // namespace

EditSession::EditSession(GameFolder folder) : store_(std::move(folder)) {}

bool EditSession::fail(std::string message) {
    lastError_ = std::move(message);
    return false;
}

bool EditSession::storeFailed(const std::string& fallback) {
    return fail(store_.lastError().empty() ? fallback : store_.lastError());
}

fs::path EditSession::workingCopy() const {
    return store_.descriptorPath(store_.record().Name, ".edt");
}

bool EditSession::isModified() const {
    return isOpen() && (store_.IsModified() || picturesDiffer());
}

bool EditSession::picturesDiffer() const {
    return isOpen() && (pictures_.planetsDifferFrom(savedPictures_) ||
                        pictures_.star() != savedPictures_.star() || pictures_.removesAnimations());
}

int EditSession::subscribe(Listener listener) {
    const int id = nextListener_++;
    listeners_.emplace(id, std::move(listener));
    return id;
}

void EditSession::unsubscribe(int id) {
    listeners_.erase(id);
}

void EditSession::notify(const ChangeNotice& notice) {
    // A listener may unsubscribe (a window closing) while the notice goes round.
    const std::map<int, Listener> listeners = listeners_;
    for (const auto& [id, listener] : listeners) {
        if (listeners_.count(id)) listener(notice);
    }
}

// --- lifecycle

bool EditSession::open(const std::string& name, const std::function<bool()>& askUseBackup,
                       LoadResult* loaded) {
    if (isOpen()) return fail("Another system is open: save or discard it first.");
    lastWarning_.clear();
    store_.recheck();
    // A system starts from its own file and the game's list only: nothing of the system open
    // before (moons, races of unused slots) carries over to it.
    store_.record() = SystemRecord();
    store_.record().Name = name;
    removeStaleTemporaries();
    if (!store_.BeginEdit(askUseBackup)) {
        const bool ok = storeFailed("The system " + name + " could not be opened.");
        close();
        return ok;
    }
    LoadResult result = store_.LoadSystem(name);
    hasBlock_ = store_.HasSystemBlock();
    if (const std::string problem = loadPictures(); !problem.empty())
        result.warning += (result.warning.empty() ? "" : " ") + problem;
    if (loaded) *loaded = result;
    history_.clear();
    notify({kSystemOpened | kSavedChanged});
    return true;
}

bool EditSession::requireSystemBlock() {
    if (!isOpen()) return fail("No system is open.");
    if (hasBlock_) return true;
    return fail("The descriptor of " + name() +
                " holds no system block, so its planets and its star cannot be changed.");
}

void EditSession::close() {
    if (isOpen()) store_.LeaveWorkingCopy();
    store_.record() = SystemRecord();
    pictures_.reset(0);
    savedPictures_ = pictures_;
    history_.clear();
    notify({kSystemOpened | kSavedChanged});
}

std::string EditSession::loadPictures() {
    pictures_.reset(store_.record().PlanetCount);
    std::string problem;
    if (codec_) {
        const std::string& name = store_.record().Name;
        const int count = store_.record().PlanetCount;
        std::string error;
        if (const auto strip = findStripFile(folder(), name); strip && count > 0) {
            std::vector<PictureRef> cells = codec_->loadStrip(*strip, count, &error);
            if (!cells.empty()) pictures_.setPlanets(std::move(cells));
            // The file stays as it is until the planet pictures are changed and saved.
            else
                problem = "The planet pictures could not be read: " + error;
        }
        if (const auto star = findStarPicture(folder(), name)) {
            pictures_.setStar(codec_->loadPicture(*star, &error));
            if (!pictures_.star())
                problem +=
                    (problem.empty() ? "" : " ") + ("The star picture could not be read: " + error);
        }
    }
    savedPictures_ = pictures_;
    return problem;
}

bool EditSession::savePictures() {
    const std::string& name = store_.record().Name;
    std::string error;
    for (int n = 1; n <= kMaxPlanets; ++n) {
        if (!pictures_.animationRemoved(n)) continue;
        const std::optional<fs::path> animation = findAnimation(folder(), name, n);
        if (animation && !removeFile(*animation, &error)) return fail(error);
    }
    // The files are gone: a file of that name that comes later is a new one, kept.
    pictures_.clearAnimationRemovals();
    savedPictures_.clearAnimationRemovals();
    if (!codec_) return true;
    if (pictures_.planetsDifferFrom(savedPictures_)) {
        if (!pictures_.hasAnyPlanetPicture()) {
            const std::string problem = deletePictureFiles(folder(), name, PictureFileKind::Strip);
            if (!problem.empty()) return fail(problem);
        } else {
            std::error_code ec;
            fs::create_directories(folder().picturesFolder(), ec);
            const fs::path target = stripFileFor(folder(), name);
            if (!codec_->saveStrip(target, pictures_.planets(), &error))
                return fail("The planet pictures could not be saved: " + error);
            // A strip saved earlier in another picture type would be found first next time.
            const std::string problem =
                deletePictureFiles(folder(), name, PictureFileKind::Strip, target);
            if (!problem.empty()) return fail(problem);
        }
    }
    fs::path kept;
    if (pictures_.star()) {
        std::error_code ec;
        fs::create_directories(folder().picturesFolder(), ec);
        kept = starPictureFor(folder(), name);
        if (!codec_->savePicture(kept, pictures_.star(), &error))
            return fail("The star picture could not be saved: " + error);
    }
    // Only the star picture just saved may remain.
    const std::string problem = deletePictureFiles(folder(), name, PictureFileKind::Star, kept);
    if (!problem.empty()) return fail(problem);
    savedPictures_ = pictures_;
    return true;
}

bool EditSession::saveSteps() {
    if (!isOpen()) return fail("No system is open.");
    store_.recheck();
    const std::shared_ptr<const std::string> before = store_.profiles().bytes(workingCopy());
    if (!store_.SaveSystemBlock()) return storeFailed("The system block could not be written.");
    // Every command writes the block as it goes, so this changes nothing unless the working
    // copy was changed behind the session's back; then the history no longer fits the file.
    const std::shared_ptr<const std::string> after = store_.profiles().bytes(workingCopy());
    if (before && after && *before != *after) history_.clear();
    return savePictures();
}

bool EditSession::save() {
    lastWarning_.clear();
    if (!saveSteps()) return false;
    // The working copy stays and equals the saved file afterwards, times included.
    if (!store_.CommitWorkingCopy()) return storeFailed("The system could not be saved.");
    history_.markSaved();
    notify({kSavedChanged});
    return true;
}

bool EditSession::saveAs(const std::string& newName) {
    lastWarning_.clear();
    if (!isOpen()) return fail("No system is open.");
    if (const auto reason = CheckSystemName(newName)) return fail(*reason);
    const std::string oldName = name();
    if (newName == oldName) return save();
    store_.recheck();
    // Only the letter case changes: the same system's files take the new spelling.
    if (text::equalsIgnoreCase(newName, oldName)) {
        if (!store_.RenameSystem(newName)) return storeFailed("The system could not be renamed.");
        std::string problem;
        replaceSystemPictures(folder(), oldName, newName, &problem);
        notify({kStarChanged | kNamesChanged});
        const bool saved = save();
        if (saved && !problem.empty()) lastWarning_ = problem;
        return saved;
    }

    // The new descriptor first, and durably: until it stands, nothing else changes.
    SystemRecord renamed = record();
    if (renamed.trimmedDisplayName() == oldName) renamed.setDisplayName(newName);
    renamed.Name = newName;
    const std::shared_ptr<const std::string> before = store_.profiles().bytes(workingCopy());
    const std::optional<std::string> text = store_.descriptorTextFor(renamed);
    if (!text) return storeFailed("The system could not be saved.");
    const fs::path descriptors = folder().descriptorFolder();
    const fs::path target = descriptors / (newName + ".orb");
    std::string error;
    if (!writeFileAtomically(target, *text, &error, Durability::Durable))
        return fail("The system was not saved as " + newName + ". " + error);
    std::vector<std::string> problems;
    // The system saved over (in another spelling) is replaced, backup included.
    for (const char* extension : {".orb", ".edt"}) {
        const fs::path other = GameFolder::findInFolder(descriptors, newName + extension);
        if (other != target && other != descriptors / (newName + ".edt") &&
            !removeFile(other, &error))
            problems.push_back(error);
    }

    // The saved pictures go with the new name (an overwritten system's own are replaced); the
    // old system keeps its files. The pictures in memory are then written whatever they hold.
    const fs::path oldWorkingCopy = workingCopy();
    if (!replaceSystemPictures(folder(), oldName, newName, &error)) problems.push_back(error);
    store_.LeaveWorkingCopy();
    store_.record() = renamed;
    savedPictures_.reset(0);
    savedPictures_.setPlanet(1, std::make_shared<UnsavedPicture>());
    savedPictures_.setStar(std::make_shared<UnsavedPicture>());
    if (!savePictures()) problems.push_back(lastError_);

    // A fresh working copy of the new system; the old one goes.
    if (!store_.BeginEdit([] { return false; })) {
        const std::string why = store_.lastError();
        close();
        return fail("The system was saved as " + newName + ", but it could not be opened. " + why);
    }
    if (!removeFile(oldWorkingCopy, &error)) problems.push_back(error);
    const std::shared_ptr<const std::string> after = store_.profiles().bytes(workingCopy());
    // The steps so far stay undoable when the new file is the old working copy byte for byte.
    if (before && after && *before == *after)
        history_.markSaved();
    else
        history_.clear();
    for (const std::string& problem : problems) {
        if (!problem.empty()) lastWarning_ += (lastWarning_.empty() ? "" : " ") + problem;
    }
    if (!lastWarning_.empty())
        lastWarning_ = "The system was saved as " + newName + ". " + lastWarning_;
    notify({kStarChanged | kNamesChanged | kPicturesChanged | kSavedChanged});
    return true;
}

bool EditSession::commit() {
    lastWarning_.clear();
    if (!saveSteps()) return false;
    if (!store_.EndEdit(true)) {
        // The working copy is kept and stays open: nothing is lost.
        const std::string error = store_.lastError();
        store_.BeginEdit([] { return true; });
        return fail(error);
    }
    lastWarning_ = store_.lastWarning();
    close();
    return true;
}

bool EditSession::discard() {
    lastWarning_.clear();
    const bool ok = store_.EndEdit(false) || storeFailed("The working copy could not be deleted.");
    if (ok) {
        store_.record() = SystemRecord();
        close();
    }
    return ok;
}

// --- commands

EditSession::Command EditSession::command(std::string name, ChangeNotice notice,
                                          std::string mergeKey) {
    // One look at the files per command; the reads and writes inside it trust the cache.
    store_.recheck();
    return Command(*this, std::move(name), notice, std::move(mergeKey));
}

EditSession::Command::Command(EditSession& session, std::string name, ChangeNotice notice,
                              std::string mergeKey)
    : session_(session),
      name_(std::move(name)),
      notice_(notice),
      mergeKey_(std::move(mergeKey)),
      recordBefore_(session.store_.record()),
      picturesBefore_(session.pictures_),
      bytesBefore_(session.store_.profiles().bytes(session.workingCopy())),
      batch_(session.store_.profiles()) {}

EditSession::Command::~Command() {
    if (!done_) rollBack();
}

void EditSession::Command::rollBack() {
    done_ = true;
    batch_.abandon();
    session_.store_.record() = recordBefore_;
    session_.pictures_ = picturesBefore_;
}

bool EditSession::Command::commit(bool ok) {
    if (done_) return false;
    EditSession& s = session_;
    if (!s.isOpen()) {
        rollBack();
        return s.fail("No system is open.");
    }
    if (!ok) {
        const std::string error = s.store_.lastError();
        rollBack();
        return s.fail(error.empty() ? "The change could not be made." : error);
    }
    done_ = true;
    if (!batch_.commit()) {
        // The failed file was dropped from the cache and is read from disk again: as it was.
        s.store_.record() = recordBefore_;
        s.pictures_ = picturesBefore_;
        const fs::path file = s.workingCopy();
        return s.fail("The file \"" + file.filename().string() +
                      "\" could not be written: " + s.store_.profiles().lastError());
    }
    const std::shared_ptr<const std::string> after = s.store_.profiles().bytes(s.workingCopy());
    ByteDiff diff;
    if (bytesBefore_ && after) diff = diffBytes(*bytesBefore_, *after);
    const SystemRecord& record = s.store_.record();
    if (diff.empty() && record == recordBefore_ && s.pictures_ == picturesBefore_) return true;

    if (HistoryStep* last = s.history_.mergeTarget(mergeKey_)) {
        // One step from the state before the first command of the run to now.
        const std::optional<std::string> first =
            bytesBefore_ ? applyBackwards(*bytesBefore_, last->file) : std::nullopt;
        if (first && after) {
            last->file = diffBytes(*first, *after);
            last->recordAfter = record;
            last->picturesAfter = s.pictures_;
            last->notice |= notice_;
            s.notify(notice_ | ChangeNotice{kSavedChanged});
            return true;
        }
    }
    s.history_.push(HistoryStep{name_, mergeKey_, notice_, recordBefore_, record, picturesBefore_,
                                s.pictures_, std::move(diff)});
    s.notify(notice_ | ChangeNotice{kSavedChanged});
    return true;
}

// --- leftovers

namespace {

// Whether `file` is one of the files of system `name`: its descriptor, working copy or scratch
// file, or one of its pictures.
bool belongsToSystem(const std::string& file, const std::string& name) {
    if (file.size() <= name.size() || !text::equalsIgnoreCase(file.substr(0, name.size()), name))
        return false;
    const std::string rest = text::toLower(file.substr(name.size()));
    if (rest == ".orb" || rest == ".edt" || rest == ".tmp") return true;
    return isPictureFileName(name, file);
}

}  // namespace

void EditSession::removeStaleTemporaries() {
    // An atomic write that was cut off (the process killed) leaves its hidden temporary file
    // ".<file>.<random>.tmp" beside the file. A write in progress keeps its file for a moment
    // only, so files older than this are leftovers.
    constexpr auto kAge = std::chrono::minutes(1);
    const std::string& name = store_.record().Name;
    const auto now = fs::file_time_type::clock::now();
    for (const fs::path& dir : {folder().descriptorFolder(), folder().picturesFolder()}) {
        std::error_code ec;
        for (fs::directory_iterator it(dir, ec); !ec && it != fs::directory_iterator();
             it.increment(ec)) {
            const std::string file = it->path().filename().string();
            const std::optional<std::string> target = temporaryTarget(file);
            if (!target || !belongsToSystem(*target, name)) continue;
            std::error_code timeError;
            const auto time = fs::last_write_time(it->path(), timeError);
            if (!timeError && now - time > kAge) removeFile(it->path());
        }
    }
}

}  // namespace orr
