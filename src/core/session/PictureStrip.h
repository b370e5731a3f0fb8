#pragma once
// The arithmetic of pictures, whatever library draws them: how a loaded strip is cut into its
// planets' cells, where a saved strip puts each planet, how a picture sits in the pictures
// window's display area, and which sizes a picture may have.

#include <optional>
#include <string>
#include <vector>

namespace orr {

// A saved strip's cell, and the pictures window's display area: 160 x 120 pixels.
inline constexpr int kCellWidth = 160;
inline constexpr int kCellHeight = 120;
// A star picture is exactly this many pixels wide and high.
inline constexpr int kStarPictureSize = 16;
// Pictures larger than this in either direction are refused before they are decoded.
inline constexpr int kMaxPictureSide = 8192;

inline constexpr const char* kStarPictureSizeMessage =
    "The picture must be 16 x 16 pixels in size to\nbe used for a star picture.";

struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const PixelRect&) const = default;
};

// The cells of a loaded strip: `count` cells side by side from the left, each strip width /
// count pixels wide (the rest on the right is unused) and as high as the strip. Empty when the
// strip is narrower than `count` pixels.
std::vector<PixelRect> stripCells(int stripWidth, int stripHeight, int count);

// Cell `index` (0-based, planet index + 1) of a saved strip.
PixelRect savedCell(int index);

// A picture of width x height centred in an area: negative offsets when it is larger, so what
// lies beyond the area's edges is cut.
PixelRect centredIn(int areaWidth, int areaHeight, int width, int height);

// Why a picture of this size cannot be used (too large to load); nullopt when it can. `file`
// names the picture in the message.
std::optional<std::string> pictureSizeProblem(const std::string& file, int width, int height);

bool isStarPictureSize(int width, int height);

}  // namespace orr
