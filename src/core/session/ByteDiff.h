#pragma once
// The difference between two states of a file, kept by the undo history instead of whole copies:
// a list of replaced byte ranges. A key write of a large descriptor changes one line, so a step
// of the history costs a few bytes rather than the file twice.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orr {

struct ByteHunk {
    std::size_t offset = 0;  // where the range starts in the older state
    std::string before;      // its bytes in the older state
    std::string after;       // its bytes in the newer state
    bool operator==(const ByteHunk&) const = default;
};

using ByteDiff = std::vector<ByteHunk>;

// The ranges that turn `older` into `newer`, in file order and not overlapping, each made of
// whole lines (it starts at a line start and ends after a line end or at the end). Empty when
// the two are equal.
ByteDiff diffBytes(std::string_view older, std::string_view newer);

// `older` from `newer` (backwards) or `newer` from `older` (forwards). nullopt when the text does
// not hold the bytes the difference expects (the file was changed by someone else meanwhile).
std::optional<std::string> applyBackwards(std::string_view newer, const ByteDiff& diff);
std::optional<std::string> applyForwards(std::string_view older, const ByteDiff& diff);

// The bytes a difference holds, for the history's memory limit.
std::size_t diffSize(const ByteDiff& diff);

}  // namespace orr
