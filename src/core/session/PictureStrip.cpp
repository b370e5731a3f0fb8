#include "session/PictureStrip.h"

namespace orr {

std::vector<PixelRect> stripCells(int stripWidth, int stripHeight, int count) {
    if (count <= 0 || stripHeight <= 0 || stripWidth < count) return {};
    const int width = stripWidth / count;
    std::vector<PixelRect> cells;
    for (int i = 0; i < count; ++i) cells.push_back({i * width, 0, width, stripHeight});
    return cells;
}

PixelRect savedCell(int index) {
    return {index * kCellWidth, 0, kCellWidth, kCellHeight};
}

PixelRect centredIn(int areaWidth, int areaHeight, int width, int height) {
    return {(areaWidth - width) / 2, (areaHeight - height) / 2, width, height};
}

std::optional<std::string> pictureSizeProblem(const std::string& file, int width, int height) {
    if (width <= kMaxPictureSide && height <= kMaxPictureSide) return std::nullopt;
    return "The picture \"" + file + "\" is too large (" + std::to_string(width) + " x " +
           std::to_string(height) + " pixels): pictures can have at most " +
           std::to_string(kMaxPictureSide) + " pixels each way.";
}

bool isStarPictureSize(int width, int height) {
    return width == kStarPictureSize && height == kStarPictureSize;
}

}  // namespace orr
