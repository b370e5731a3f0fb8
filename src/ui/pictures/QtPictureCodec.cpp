#include "pictures/QtPictureCodec.h"

#include <QBuffer>
#include <QPainter>

#include "store/FileIo.h"

namespace orr::ui {

namespace {

// The format is told by the content, so "Sol.bmp" holding a JPEG still loads.
QImage readImage(const std::filesystem::path& file, std::string* error) {
    std::string why;
    const std::optional<std::string> bytes = readWholeFile(file, &why);
    QImage image;
    if (!bytes) {
        if (error) *error = why;
        return image;
    }
    if (!image.loadFromData(reinterpret_cast<const uchar*>(bytes->data()),
                            static_cast<int>(bytes->size())) &&
        error) {
        *error = quotedPath(file.filename()) + " is not a picture this program can read.";
    }
    return image;
}

bool writeBitmap(const std::filesystem::path& file, const QImage& image, std::string* error) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "BMP")) {
        if (error) *error = "the picture could not be made into a bitmap.";
        return false;
    }
    return writeFileAtomically(file, std::string_view(bytes.constData(), bytes.size()), error);
}

}  // namespace

QImage imageOf(const orr::PictureRef& picture) {
    const auto* qt = dynamic_cast<const QtPicture*>(picture.get());
    return qt ? qt->image() : QImage();
}

orr::PictureRef pictureOf(const QImage& image) {
    if (image.isNull()) return nullptr;
    return std::make_shared<const QtPicture>(image);
}

std::vector<orr::PictureRef> QtPictureCodec::loadStrip(const std::filesystem::path& file,
                                                       int count, std::string* error) {
    const QImage strip = readImage(file, error);
    if (strip.isNull() || count <= 0) return {};
    const int cellWidth = strip.width() / count;
    if (cellWidth <= 0) {
        if (error) *error = quotedPath(file.filename()) + " is too narrow for its planets.";
        return {};
    }
    std::vector<orr::PictureRef> cells;
    for (int i = 0; i < count; ++i)
        cells.push_back(pictureOf(strip.copy(i * cellWidth, 0, cellWidth, strip.height())));
    return cells;
}

QImage QtPictureCodec::composeStrip(const std::vector<orr::PictureRef>& pictures) {
    if (pictures.empty()) return {};
    QImage strip(kCellWidth * static_cast<int>(pictures.size()), kCellHeight,
                 QImage::Format_RGB32);
    strip.fill(Qt::black);
    QPainter painter(&strip);
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const QImage image = imageOf(pictures[i]);
        if (image.isNull()) continue;
        const QRect cell(static_cast<int>(i) * kCellWidth, 0, kCellWidth, kCellHeight);
        painter.setClipRect(cell);
        painter.drawImage(cell.topLeft(), image);
    }
    painter.end();
    return strip;
}

bool QtPictureCodec::saveStrip(const std::filesystem::path& file,
                               const std::vector<orr::PictureRef>& pictures, std::string* error) {
    return writeBitmap(file, composeStrip(pictures), error);
}

orr::PictureRef QtPictureCodec::loadPicture(const std::filesystem::path& file, std::string* error) {
    return pictureOf(readImage(file, error));
}

bool QtPictureCodec::savePicture(const std::filesystem::path& file, const orr::PictureRef& picture,
                                 std::string* error) {
    return writeBitmap(file, imageOf(picture), error);
}

}  // namespace orr::ui
