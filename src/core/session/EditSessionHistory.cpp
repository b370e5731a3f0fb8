// Undo and redo of the edit session: each step is played back on the working copy, the record
// and the pictures, and reported like the command it undoes.
#include <algorithm>
#include <system_error>

#include "session/EditSession.h"
#include "store/FileIo.h"

namespace orr {

namespace {

// The step as replacements of whole lines of the document that holds `text`, so the document is
// changed in place rather than parsed again. Applied last hunk first, so that earlier line
// numbers stay valid. False when a hunk does not hold whole lines.
bool replaceLinesOf(ProfileDocument& doc, std::string_view text, const ByteDiff& diff,
                    bool forwards) {
    struct Edit {
        std::size_t first;
        std::size_t count;
        std::vector<std::string> texts;
    };
    std::vector<Edit> edits;
    std::size_t line = 0;
    std::size_t counted = 0;
    long long shift = 0;
    for (const ByteHunk& hunk : diff) {
        const std::string& expected = forwards ? hunk.before : hunk.after;
        const std::string& replacement = forwards ? hunk.after : hunk.before;
        const auto at =
            static_cast<std::size_t>(static_cast<long long>(hunk.offset) + (forwards ? 0 : shift));
        shift +=
            static_cast<long long>(hunk.after.size()) - static_cast<long long>(hunk.before.size());
        if (at < counted || at > text.size()) return false;
        line += static_cast<std::size_t>(
            std::count(text.begin() + static_cast<std::ptrdiff_t>(counted),
                       text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
        counted = at;
        const bool wholeLines =
            expected.empty() || expected.back() == '\n' || at + expected.size() == text.size();
        if (!wholeLines) return false;
        edits.push_back({line, ProfileDocument::splitLines(expected).size(),
                         ProfileDocument::splitLines(replacement)});
    }
    for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit) {
        if (!doc.replaceLines(edit->first, edit->count, std::move(edit->texts))) return false;
    }
    return true;
}

}  // namespace

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
    if (!step || !isOpen())
        return fail(forwards ? "There is nothing to redo." : "There is nothing to undo.");
    store_.recheck();
    const fs::path file = workingCopy();
    if (!step->file.empty()) {
        const std::shared_ptr<const std::string> now = store_.profiles().bytes(file);
        const std::optional<std::string> replayed = !now       ? std::nullopt
                                                    : forwards ? applyForwards(*now, step->file)
                                                               : applyBackwards(*now, step->file);
        if (!replayed) {
            return fail("The working copy of " + name() + " was changed outside Orrerion, so \"" +
                        step->name + "\" cannot be " + (forwards ? "redone." : "undone."));
        }
        const auto inPlace = [&](ProfileDocument& doc) {
            return replaceLinesOf(doc, *now, step->file, forwards);
        };
        if (!store_.profiles().replaceBytes(file, *replayed, inPlace)) {
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
    // Through the cache: returning to the saved state again and again reads the file once.
    const std::shared_ptr<const std::string> original = store_.profiles().bytes(saved);
    if (!now || !original || *now != *original) return;
    const std::optional<fs::file_time_type> time = modificationTime(saved);
    if (time) store_.profiles().setModificationTime(working, *time);
}

}  // namespace orr
