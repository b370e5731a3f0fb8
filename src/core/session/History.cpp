#include "session/History.h"

#include <iterator>

namespace orr {

void History::clear() {
    steps_.clear();
    index_ = 0;
    saved_ = 0;
    bytes_ = 0;
}

void History::push(HistoryStep step) {
    for (std::size_t i = index_; i < steps_.size(); ++i) bytes_ -= diffSize(steps_[i].file);
    steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(index_), steps_.end());
    // The saved state was among the steps just dropped: no undo or redo reaches it again.
    if (saved_ && *saved_ > index_) saved_.reset();
    bytes_ += diffSize(step.file);
    steps_.push_back(std::move(step));
    ++index_;
    trim();
}

HistoryStep* History::mergeTarget(const std::string& mergeKey) {
    if (mergeKey.empty() || !canUndo() || canRedo() || atSavedState()) return nullptr;
    HistoryStep& last = steps_.back();
    return last.mergeKey == mergeKey ? &last : nullptr;
}

void History::trim() {
    std::size_t drop = 0;
    std::size_t bytes = bytes_;
    const auto kept = [&] { return steps_.size() - drop; };
    while (kept() > kMaximumSteps || (bytes > kMemoryLimit && kept() > kMinimumSteps)) {
        bytes -= diffSize(steps_[drop].file);
        ++drop;
    }
    if (drop == 0) return;
    steps_.erase(steps_.begin(), steps_.begin() + static_cast<std::ptrdiff_t>(drop));
    index_ -= drop;
    bytes_ = bytes;
    if (saved_) {
        if (*saved_ < drop)
            saved_.reset();
        else
            *saved_ -= drop;
    }
}

}  // namespace orr
