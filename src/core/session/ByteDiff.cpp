#include "session/ByteDiff.h"

#include <algorithm>

namespace orr {

namespace {

// Differences larger than this are looked at line by line, so that a change of two distant
// lines (a planet swap renames two section headers) does not keep everything in between.
constexpr std::size_t kLineSplitThreshold = 4096;

std::vector<std::string_view> splitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = text.find('\n', start);
        const std::size_t next = end == std::string_view::npos ? text.size() : end + 1;
        lines.push_back(text.substr(start, next - start));
        start = next;
    }
    return lines;
}

// Adds the hunks of a changed middle part that starts at `offset` of the older text.
void addMiddle(ByteDiff& diff, std::size_t offset, std::string_view older, std::string_view newer) {
    if (older.size() >= kLineSplitThreshold) {
        const std::vector<std::string_view> a = splitLines(older);
        const std::vector<std::string_view> b = splitLines(newer);
        if (a.size() == b.size()) {
            // Same number of lines: compare them pairwise and keep the runs that differ.
            std::size_t at = offset;
            for (std::size_t i = 0; i < a.size();) {
                if (a[i] == b[i]) {
                    at += a[i].size();
                    ++i;
                    continue;
                }
                ByteHunk hunk{at, {}, {}};
                while (i < a.size() && a[i] != b[i]) {
                    hunk.before.append(a[i]);
                    hunk.after.append(b[i]);
                    at += a[i].size();
                    ++i;
                }
                diff.push_back(std::move(hunk));
            }
            return;
        }
    }
    diff.push_back(ByteHunk{offset, std::string(older), std::string(newer)});
}

std::optional<std::string> apply(std::string_view text, const ByteDiff& diff, bool forwards) {
    std::string result;
    result.reserve(text.size());
    std::size_t read = 0;
    // Offsets count in the older text; going backwards the newer text is shifted by the size
    // changes of the hunks before.
    long long shift = 0;
    for (const ByteHunk& hunk : diff) {
        const std::string& expected = forwards ? hunk.before : hunk.after;
        const std::string& replacement = forwards ? hunk.after : hunk.before;
        const long long at = static_cast<long long>(hunk.offset) + (forwards ? 0 : shift);
        if (at < static_cast<long long>(read) ||
            static_cast<std::size_t>(at) + expected.size() > text.size() ||
            text.substr(static_cast<std::size_t>(at), expected.size()) != expected) {
            return std::nullopt;
        }
        result.append(text.substr(read, static_cast<std::size_t>(at) - read));
        result.append(replacement);
        read = static_cast<std::size_t>(at) + expected.size();
        shift +=
            static_cast<long long>(hunk.after.size()) - static_cast<long long>(hunk.before.size());
    }
    result.append(text.substr(read));
    return result;
}

}  // namespace

ByteDiff diffBytes(std::string_view older, std::string_view newer) {
    ByteDiff diff;
    if (older == newer) return diff;
    const std::size_t shorter = std::min(older.size(), newer.size());
    std::size_t prefix = 0;
    while (prefix < shorter && older[prefix] == newer[prefix]) ++prefix;
    // Whole lines are kept apart: back up to the start of the line the difference begins in.
    while (prefix > 0 && older[prefix - 1] != '\n') --prefix;
    std::size_t suffix = 0;
    while (suffix < shorter - prefix &&
           older[older.size() - 1 - suffix] == newer[newer.size() - 1 - suffix])
        ++suffix;
    // ... and end it at a line end in both texts, so each range holds whole lines.
    const auto lineStart = [](std::string_view text, std::size_t at) {
        return at == 0 || text[at - 1] == '\n';
    };
    while (suffix > 0 &&
           !(lineStart(older, older.size() - suffix) && lineStart(newer, newer.size() - suffix)))
        --suffix;
    addMiddle(diff, prefix, older.substr(prefix, older.size() - prefix - suffix),
              newer.substr(prefix, newer.size() - prefix - suffix));
    return diff;
}

std::optional<std::string> applyBackwards(std::string_view newer, const ByteDiff& diff) {
    return apply(newer, diff, false);
}

std::optional<std::string> applyForwards(std::string_view older, const ByteDiff& diff) {
    return apply(older, diff, true);
}

std::size_t diffSize(const ByteDiff& diff) {
    std::size_t size = 0;
    for (const ByteHunk& hunk : diff) size += hunk.before.size() + hunk.after.size();
    return size;
}

}  // namespace orr
