#include "pictures/PictureStrip.h"

#include <QBuffer>
#include <QByteArray>
#include <QPainter>
#include <algorithm>
#include <system_error>

#include "store/FileIo.h"
#include "text/Text.h"

namespace orr::ui {

namespace fs = std::filesystem;

bool PictureStrip::LoadPictures(const fs::path& file, int count) {
    SetupPics(count);
    const std::optional<std::string> bytes = orr::readWholeFile(file);
    if (!bytes) return false;
    QImage strip;
    // The format is told by the content, so "Sol.bmp" holding a JPEG still loads.
    if (!strip.loadFromData(reinterpret_cast<const uchar*>(bytes->data()),
                            static_cast<int>(bytes->size()))) {
        return false;
    }
    if (count <= 0) return true;
    const int cellWidth = strip.width() / count;
    if (cellWidth <= 0) return false;
    for (int i = 0; i < count; ++i) {
        pictures_[static_cast<std::size_t>(i)] =
            strip.copy(i * cellWidth, 0, cellWidth, strip.height());
    }
    return true;
}

void PictureStrip::SetupPics(int count) {
    // The first slot always stays: the first planet added to a system without planets uses it.
    pictures_.assign(static_cast<std::size_t>(std::max(count, 1)), QImage());
    dirty_ = false;
}

QImage PictureStrip::composeStrip() const {
    if (pictures_.empty()) return {};
    QImage strip(kCellWidth * count(), kCellHeight, QImage::Format_RGB32);
    strip.fill(Qt::black);
    QPainter painter(&strip);
    for (int i = 0; i < count(); ++i) {
        const QImage& image = pictures_[static_cast<std::size_t>(i)];
        if (image.isNull()) continue;
        const QRect cell(i * kCellWidth, 0, kCellWidth, kCellHeight);
        painter.setClipRect(cell);
        painter.drawImage(cell.topLeft(), image);
    }
    painter.end();
    return strip;
}

bool PictureStrip::SavePictures(const fs::path& file) {
    if (!hasAnyPicture()) {
        dirty_ = false;
        return true;
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    bool written = buffer.open(QIODevice::WriteOnly) && composeStrip().save(&buffer, "BMP");
    buffer.close();
    written = written &&
              orr::writeFileAtomically(file, std::string_view(bytes.constData(), bytes.size()));
    if (!written) {
        deleteStripFiles(file.parent_path(), file.stem().string());
        return false;
    }
    dirty_ = false;
    return true;
}

void PictureStrip::SwapPictures(int a, int b) {
    if (!inRange(a) || !inRange(b) || a == b) return;
    auto& first = pictures_[static_cast<std::size_t>(a - 1)];
    auto& second = pictures_[static_cast<std::size_t>(b - 1)];
    if (!first.isNull() || !second.isNull()) dirty_ = true;
    std::swap(first, second);
}

QImage PictureStrip::picture(int n) const {
    return inRange(n) ? pictures_[static_cast<std::size_t>(n - 1)] : QImage();
}

bool PictureStrip::hasAnyPicture() const {
    return std::any_of(pictures_.begin(), pictures_.end(),
                       [](const QImage& image) { return !image.isNull(); });
}

void PictureStrip::setPicture(int n, const QImage& image) {
    if (!inRange(n)) return;
    pictures_[static_cast<std::size_t>(n - 1)] = image;
    dirty_ = true;
}

void PictureStrip::removeAllPictures() {
    for (QImage& image : pictures_) image = QImage();
    dirty_ = true;
}

std::vector<fs::path> PictureStrip::stripFiles(const fs::path& picturesFolder,
                                               const std::string& name) {
    std::vector<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator it(picturesFolder, error), end; !error && it != end;
         it.increment(error)) {
        if (!it->is_regular_file(error)) continue;
        if (orr::text::equalsIgnoreCase(it->path().stem().string(), name)) {
            found.push_back(it->path());
        }
    }
    return found;
}

std::optional<fs::path> PictureStrip::findStripFile(const fs::path& picturesFolder,
                                                    const std::string& name) {
    std::vector<fs::path> files = stripFiles(picturesFolder, name);
    if (files.empty()) return std::nullopt;
    return files.front();
}

bool PictureStrip::deleteStripFiles(const fs::path& picturesFolder, const std::string& name) {
    bool all = true;
    for (const fs::path& file : stripFiles(picturesFolder, name)) {
        std::error_code error;
        if (!fs::remove(file, error)) all = false;
    }
    return all;
}

void PictureStrip::swapPictures(int a, int b) {
    SwapPictures(a, b);
}

void PictureStrip::addPictureSlot() {
    if (hasAnyPicture()) dirty_ = true;
    pictures_.emplace_back();
}

void PictureStrip::dropLastPictureSlot() {
    if (pictures_.empty()) return;
    if (hasAnyPicture()) dirty_ = true;
    // The single planet's slot is emptied rather than dropped: the first slot always stays.
    if (pictures_.size() == 1)
        pictures_.front() = QImage();
    else
        pictures_.pop_back();
}

void PictureStrip::resetPictures(int count) {
    const bool hadPictures = hasAnyPicture();
    SetupPics(count);
    if (hadPictures) dirty_ = true;
}

}  // namespace orr::ui
