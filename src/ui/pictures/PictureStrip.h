#pragma once
// The pictures of the open system's planets, held in memory while the system is open. On disk
// they are one picture file, a horizontal strip with one cell per planet (planet 1 leftmost),
// named after the system: the strip is cut into its cells when a system is opened and composed
// again when the system is saved with picture changes. The "DIRTY" mark records such changes.
//
// The planet operations (reorder, insert, delete, clear) reach the strip through PictureSlots,
// so pictures stay with their planets.

#include <QImage>
#include <QString>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "store/PictureSlots.h"

namespace orr::ui {

class PictureStrip : public orr::PictureSlots {
  public:
    // A cell of a saved strip has the size of the pictures window's display area; larger
    // pictures are cut at the cell's right and bottom edges.
    static constexpr int kCellWidth = 160;
    static constexpr int kCellHeight = 120;
    static inline const QString kDirtyMark = QStringLiteral("DIRTY");

    // Loads the strip file and cuts it into `count` cells of equal width, side by side from the
    // left. A file that cannot be read as a picture gives `count` empty pictures and false.
    // Clears the "DIRTY" mark: the pictures are those on disk.
    bool LoadPictures(const std::filesystem::path& file, int count);
    // `count` empty pictures (a system without a picture file); clears the "DIRTY" mark. There
    // is always at least one slot, also for a system without planets: its first planet uses it.
    void SetupPics(int count);
    // Composes the strip (blank cells for planets without a picture) and writes it as a
    // bitmap, atomically. When the write fails, every picture file of the system named by the
    // file's base name ("Sol" for ".../Sol.bmp") is deleted, so no stale strip is left to be
    // cut into the wrong cells. A strip without any picture (a system without planets, too)
    // writes nothing: the old strip files are the caller's to delete. Clears the "DIRTY" mark
    // on success.
    bool SavePictures(const std::filesystem::path& file);
    // Exchanges the pictures of planets a and b (1-based); marks "DIRTY" when either has one.
    void SwapPictures(int a, int b);

    // The number of slots: the planet count, but at least one.
    int count() const { return static_cast<int>(pictures_.size()); }
    // Planet n's picture (1-based); a null image when it has none or n is out of range.
    QImage picture(int n) const;
    bool hasPicture(int n) const { return !picture(n).isNull(); }
    bool hasAnyPicture() const;
    // Gives planet n a picture (a null image removes it) and marks "DIRTY". Out of range: nothing.
    void setPicture(int n, const QImage& image);
    void removeAllPictures();  // marks "DIRTY"

    bool isDirty() const { return dirty_; }
    void setDirty() { dirty_ = true; }
    void clearDirty() { dirty_ = false; }
    QString tag() const { return dirty_ ? kDirtyMark : QString(); }

    // The picture files of the strip of system `name` in the pictures folder: every file whose
    // name less its extension equals `name`, ignoring case (a system's star picture
    // "SolSun.bmp" and animations "Sol3.avi" are not among them). In folder order.
    static std::vector<std::filesystem::path> stripFiles(
        const std::filesystem::path& picturesFolder, const std::string& name);
    // The first of them, the one a system opens with.
    static std::optional<std::filesystem::path> findStripFile(
        const std::filesystem::path& picturesFolder, const std::string& name);
    // Deletes them; returns whether every one could be deleted.
    static bool deleteStripFiles(const std::filesystem::path& picturesFolder,
                                 const std::string& name);

    // The strip as it would be saved.
    QImage composeStrip() const;

    // PictureSlots: a reorder, insert, delete or clear changes the saved strip as soon as any
    // planet has a picture, so those mark "DIRTY" then. Dropping the last slot of a single
    // planet empties it instead.
    void swapPictures(int a, int b) override;
    void addPictureSlot() override;
    void dropLastPictureSlot() override;
    void resetPictures(int count) override;

  private:
    std::vector<QImage> pictures_;  // planet n in element n - 1
    bool dirty_ = false;

    bool inRange(int n) const { return n >= 1 && n <= count(); }
};

}  // namespace orr::ui
