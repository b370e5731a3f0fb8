#include "pictures/QtPictureCodec.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include "store/FileIo.h"

namespace orr::ui {

namespace {

// The format is told by the content, so "Sol.bmp" holding a JPEG still loads.
QImage readImage(const std::filesystem::path& file, std::string* error) {
    std::string why;
    const std::optional<std::string> bytes = readWholeFile(file, &why);
    if (!bytes) {
        if (error) *error = why;
        return {};
    }
    QByteArray data = QByteArray::fromRawData(bytes->data(), static_cast<qsizetype>(bytes->size()));
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    // The size first: a picture too large to hold is refused before it is decoded.
    const QSize size = reader.size();
    if (const auto problem =
            orr::pictureSizeProblem(file.filename().string(), size.width(), size.height())) {
        if (error) *error = *problem;
        return {};
    }
    QImage image = reader.read();
    if (image.isNull() && error)
        *error = quotedPath(file.filename()) + " is not a picture this program can read.";
    return image;
}

// A cell as a saved strip leaves it for a planet without a picture.
bool isBlankCell(const QImage& cell) {
    const QImage rgb = cell.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < rgb.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < rgb.width(); ++x)
            if (qRed(line[x]) || qGreen(line[x]) || qBlue(line[x])) return false;
    }
    return true;
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

std::vector<orr::PictureRef> QtPictureCodec::loadStrip(const std::filesystem::path& file, int count,
                                                       std::string* error) {
    const QImage strip = readImage(file, error);
    if (strip.isNull() || count <= 0) return {};
    const std::vector<orr::PixelRect> cells = orr::stripCells(strip.width(), strip.height(), count);
    if (cells.empty()) {
        if (error) *error = quotedPath(file.filename()) + " is too narrow for its planets.";
        return {};
    }
    std::vector<orr::PictureRef> pictures;
    for (const orr::PixelRect& cell : cells) {
        const QImage image = strip.copy(cell.x, cell.y, cell.width, cell.height);
        pictures.push_back(isBlankCell(image) ? nullptr : pictureOf(image));
    }
    return pictures;
}

QImage QtPictureCodec::composeStrip(const std::vector<orr::PictureRef>& pictures) {
    if (pictures.empty()) return {};
    QImage strip(kCellWidth * static_cast<int>(pictures.size()), kCellHeight, QImage::Format_RGB32);
    strip.fill(Qt::black);
    QPainter painter(&strip);
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const QImage image = imageOf(pictures[i]);
        if (image.isNull()) continue;
        const orr::PixelRect cell = orr::savedCell(static_cast<int>(i));
        const orr::PixelRect at =
            orr::centredIn(cell.width, cell.height, image.width(), image.height());
        painter.setClipRect(cell.x, cell.y, cell.width, cell.height);
        painter.drawImage(cell.x + at.x, cell.y + at.y, image);
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
