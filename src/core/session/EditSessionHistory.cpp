// Undo and redo of the edit session: each step is played back on the working copy, the record
// and the pictures, and reported like the command it undoes.
#include <system_error>

#include "session/EditSession.h"
#include "store/FileIo.h"

namespace orr {

std::string EditSession::undoName() const {
    const HistoryStep* step = history_.undoStep();
    return step ? step->name : std::string();
}

std::string EditSession::redoName() const {
    const HistoryStep* step = history_.redoStep();
    return step ? step->name : std::string();
}

bool EditSession::undo() {
    return travel(false);
}

bool EditSession::redo() {
    return travel(true);
}

bool EditSession::travel(bool forwards) {
    const HistoryStep* step = forwards ? history_.redoStep() : history_.undoStep();
    if (!step || !isOpen()) return fail(forwards ? "There is nothing to redo." : "There is nothing to undo.");
    store_.recheck();
    const fs::path file = workingCopy();
    if (!step->file.empty()) {
        const std::shared_ptr<const std::string> now = store_.profiles().bytes(file);
        const std::optional<std::string> replayed =
            !now ? std::nullopt
                 : forwards ? applyForwards(*now, step->file) : applyBackwards(*now, step->file);
        if (!replayed) {
            return fail("The working copy of " + name() +
                        " was changed outside Orrerion, so \"" + step->name + "\" cannot be " +
                        (forwards ? "redone." : "undone."));
        }
        if (!store_.profiles().replaceBytes(file, *replayed)) {
            return fail("The file \"" + file.filename().string() +
                        "\" could not be written: " + store_.profiles().lastError());
        }
    }
    // The record keeps its name: a step never renames the system.
    const std::string systemName = store_.record().Name;
    store_.record() = forwards ? step->recordAfter : step->recordBefore;
    store_.record().Name = systemName;
    pictures_ = forwards ? step->picturesAfter : step->picturesBefore;
    const ChangeNotice notice = step->notice;
    if (forwards)
        history_.stepForward();
    else
        history_.stepBack();
    if (history_.atSavedState()) matchSavedTime();
    notify(notice | ChangeNotice{kSavedChanged});
    return true;
}

void EditSession::matchSavedTime() {
    const fs::path working = workingCopy();
    const fs::path saved = store_.descriptorPath(name(), ".orb");
    const std::shared_ptr<const std::string> now = store_.profiles().bytes(working);
    const std::optional<std::string> original = readWholeFile(saved);
    if (!now || !original || *now != *original) return;
    const std::optional<fs::file_time_type> time = modificationTime(saved);
    if (time) store_.profiles().setModificationTime(working, *time);
}

}  // namespace orr
