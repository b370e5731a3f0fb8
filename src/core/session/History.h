#pragma once
// The undo history of the open system: one step per command, each holding what it changed in the
// working copy (as byte ranges), in the record and in the pictures. Steps are undone and redone
// in order; a new command after an undo drops the steps that were undone. The history remembers
// which step the saved descriptor corresponds to, so that undoing back to it can make the system
// unmodified again.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "session/ByteDiff.h"
#include "session/ChangeNotice.h"
#include "session/PictureSet.h"
#include "store/SystemRecord.h"

namespace orr {

struct HistoryStep {
    std::string name;      // "Move Planet 3": the menu shows "Undo Move Planet 3"
    std::string mergeKey;  // commands with the same key that follow each other make one step
    ChangeNotice notice;
    SystemRecord recordBefore;
    SystemRecord recordAfter;
    PictureSet picturesBefore;
    PictureSet picturesAfter;
    ByteDiff file;  // the working copy's change
};

class History {
  public:
    // At most this many steps are kept; the oldest go first.
    static constexpr std::size_t kMaximumSteps = 1000;
    // Beyond this many steps, old steps also go while all of them hold more bytes than the limit
    // (a step of a large file can hold much of it).
    static constexpr std::size_t kMinimumSteps = 200;
    static constexpr std::size_t kMemoryLimit = 64u << 20;

    // Forgets every step; the state now is the saved one.
    void clear();

    bool canUndo() const { return index_ > 0; }
    bool canRedo() const { return index_ < steps_.size(); }
    const HistoryStep* undoStep() const { return canUndo() ? &steps_[index_ - 1] : nullptr; }
    const HistoryStep* redoStep() const { return canRedo() ? &steps_[index_] : nullptr; }
    void stepBack() { --index_; }
    void stepForward() { ++index_; }

    // Adds a step after the current one, dropping the steps that were undone.
    void push(HistoryStep step);
    // The step a command with `mergeKey` joins: the last one, when it has the same key, nothing
    // was undone, and the saved state is not right after it. Null otherwise.
    HistoryStep* mergeTarget(const std::string& mergeKey);

    // The state now is the saved one.
    void markSaved() { saved_ = index_; }
    bool atSavedState() const { return saved_ && *saved_ == index_; }

    std::size_t size() const { return steps_.size(); }
    std::size_t index() const { return index_; }

  private:
    std::vector<HistoryStep> steps_;
    std::size_t index_ = 0;                 // steps_[0 .. index_) are applied
    std::optional<std::size_t> saved_ = 0;  // nullopt: the saved state can no longer be reached
    std::size_t bytes_ = 0;

    void trim();
};

}  // namespace orr
