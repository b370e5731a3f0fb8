#pragma once
// The pictures of the windows: a QImage behind the core's picture reference, and the codec that
// reads and writes picture files with Qt. A system's planet pictures are stored as one strip,
// one cell per planet (planet 1 leftmost); the strip is cut into its cells when a system is
// opened and composed again when the system is saved with picture changes.

#include <QImage>

#include "session/PictureCodec.h"
#include "session/PictureStrip.h"

namespace orr::ui {

class QtPicture : public orr::Picture {
  public:
    explicit QtPicture(QImage image) : image_(std::move(image)) {}
    int width() const override { return image_.width(); }
    int height() const override { return image_.height(); }
    const QImage& image() const { return image_; }

  private:
    QImage image_;
};

// The image behind a reference; a null image for none (or a picture of another kind).
QImage imageOf(const orr::PictureRef& picture);
orr::PictureRef pictureOf(const QImage& image);  // null for a null image

class QtPictureCodec : public orr::PictureCodec {
  public:
    // A cell of a saved strip has the size of the pictures window's display area; a picture is
    // centred in its cell, as the window shows it, and cut at the cell's edges when larger. A
    // cell left blank (no picture) is read back as no picture.
    static constexpr int kCellWidth = orr::kCellWidth;
    static constexpr int kCellHeight = orr::kCellHeight;

    std::vector<orr::PictureRef> loadStrip(const std::filesystem::path& file, int count,
                                           std::string* error) override;
    bool saveStrip(const std::filesystem::path& file, const std::vector<orr::PictureRef>& pictures,
                   std::string* error) override;
    orr::PictureRef loadPicture(const std::filesystem::path& file, std::string* error) override;
    bool savePicture(const std::filesystem::path& file, const orr::PictureRef& picture,
                     std::string* error) override;

    // The strip as it would be saved.
    static QImage composeStrip(const std::vector<orr::PictureRef>& pictures);
};

}  // namespace orr::ui
