// The in-memory pictures of the open system: cutting a strip into cells, composing it again,
// keeping pictures with their planets, and the "DIRTY" mark the main window saves by.

#include <QtTest>
#include <filesystem>
#include <fstream>

#include "pictures/PictureStrip.h"

using namespace orr::ui;
namespace fs = std::filesystem;

namespace {

QImage filled(int width, int height, QColor colour) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

fs::path pathOf(const QTemporaryDir& dir, const char* name) {
    return fs::path(dir.path().toStdString()) / name;
}

void touch(const fs::path& file) {
    std::ofstream(file) << "x";
}

}  // namespace

class PictureStripTest : public QObject {
    Q_OBJECT

  private slots:
    void aStripIsComposedSavedAndCutBackIntoTheSameCells() {
        QTemporaryDir dir;
        PictureStrip strip;
        strip.SetupPics(3);
        strip.setPicture(1, filled(200, 150, Qt::red));  // larger than a cell: cut at its edge
        strip.setPicture(3, filled(10, 10, Qt::blue));
        QVERIFY(strip.isDirty());
        QCOMPARE(strip.tag(), QStringLiteral("DIRTY"));
        const QImage composed = strip.composeStrip();
        QCOMPARE(composed.size(), QSize(3 * PictureStrip::kCellWidth, PictureStrip::kCellHeight));
        QCOMPARE(composed.pixelColor(PictureStrip::kCellWidth - 1, PictureStrip::kCellHeight - 1),
                 QColor(Qt::red));
        QCOMPARE(composed.pixelColor(2 * PictureStrip::kCellWidth + 20, 50), QColor(Qt::black));

        // Saved as a bitmap under a name that does not tell its format, as "Sol.jpg" can be.
        const fs::path file = pathOf(dir, "Sol.bmp");
        QVERIFY(strip.SavePictures(file));
        QVERIFY(!strip.isDirty());
        const fs::path misnamed = pathOf(dir, "Sol.jpg");
        fs::rename(file, misnamed);
        std::ifstream in(misnamed, std::ios::binary);
        char magic[2] = {};
        in.read(magic, 2);
        QCOMPARE(QByteArray(magic, 2), QByteArray("BM"));

        PictureStrip loaded;
        QVERIFY(loaded.LoadPictures(misnamed, 3));
        QCOMPARE(loaded.count(), 3);
        QVERIFY(!loaded.isDirty());
        QCOMPARE(loaded.picture(1).size(),
                 QSize(PictureStrip::kCellWidth, PictureStrip::kCellHeight));
        QCOMPARE(loaded.picture(1).pixelColor(10, 10), QColor(Qt::red));
        QCOMPARE(loaded.picture(2).pixelColor(10, 10), QColor(Qt::black));  // blank cell
        QCOMPARE(loaded.picture(3).pixelColor(0, 0), QColor(Qt::blue));
        QCOMPARE(loaded.picture(3).pixelColor(20, 20), QColor(Qt::black));
    }

    void anUnreadableStripGivesEmptyPictures() {
        QTemporaryDir dir;
        PictureStrip strip;
        QVERIFY(!strip.LoadPictures(pathOf(dir, "missing.bmp"), 4));
        QCOMPARE(strip.count(), 4);
        QVERIFY(!strip.hasAnyPicture());
        touch(pathOf(dir, "junk.bmp"));
        QVERIFY(!strip.LoadPictures(pathOf(dir, "junk.bmp"), 2));
        QCOMPARE(strip.count(), 2);
    }

    void aStripOfAnyWidthIsCutIntoEqualCells() {
        QTemporaryDir dir;
        QImage source = filled(90, 20, Qt::green);
        for (int y = 0; y < 20; ++y) {
            for (int x = 30; x < 60; ++x) source.setPixelColor(x, y, Qt::white);
        }
        const fs::path file = pathOf(dir, "Sol.bmp");
        QVERIFY(source.save(QString::fromStdString(file.string()), "BMP"));
        PictureStrip strip;
        QVERIFY(strip.LoadPictures(file, 3));
        QCOMPARE(strip.picture(1).size(), QSize(30, 20));
        QCOMPARE(strip.picture(1).pixelColor(29, 0), QColor(Qt::green));
        QCOMPARE(strip.picture(2).pixelColor(0, 19), QColor(Qt::white));
        QCOMPARE(strip.picture(3).pixelColor(0, 0), QColor(Qt::green));
    }

    void swapsAndSlotChangesMarkDirtyOnlyWhenAPictureMoves() {
        PictureStrip strip;
        strip.SetupPics(3);
        strip.setPicture(2, filled(5, 5, Qt::red));
        strip.SetupPics(3);  // a fresh setup forgets the pictures and the mark
        QVERIFY(!strip.hasAnyPicture());
        QVERIFY(!strip.isDirty());
        strip.setPicture(6, filled(5, 5, Qt::red));  // no such planet
        QVERIFY(!strip.isDirty());
        orr::PictureSlots& planetSlots = strip;
        planetSlots.addPictureSlot();
        QCOMPARE(strip.count(), 4);
        planetSlots.dropLastPictureSlot();
        strip.SwapPictures(1, 3);  // two planets without pictures: the strip is unchanged
        QVERIFY(!strip.isDirty());

        strip.setPicture(2, filled(5, 5, Qt::red));
        strip.clearDirty();
        strip.SwapPictures(0, 3);
        strip.SwapPictures(3, 4);
        QVERIFY(!strip.isDirty());
        planetSlots.swapPictures(3, 2);
        QVERIFY(strip.isDirty());
        QVERIFY(!strip.hasPicture(2));
        QCOMPARE(strip.picture(3).pixelColor(0, 0), QColor(Qt::red));
        for (const auto change :
             {&orr::PictureSlots::addPictureSlot, &orr::PictureSlots::dropLastPictureSlot}) {
            strip.clearDirty();
            (planetSlots.*change)();
            QVERIFY(strip.isDirty());
        }
        QCOMPARE(strip.count(), 3);
        strip.clearDirty();
        planetSlots.resetPictures(0);  // Clear Planets: the saved strip must go
        QCOMPARE(strip.count(), 1);    // the first slot stays, for the next planet added
        QVERIFY(!strip.hasAnyPicture());
        QVERIFY(strip.isDirty());
        // The single planet deleted: its slot is emptied, not dropped.
        strip.setPicture(1, filled(5, 5, Qt::red));
        strip.clearDirty();
        planetSlots.dropLastPictureSlot();
        QCOMPARE(strip.count(), 1);
        QVERIFY(!strip.hasPicture(1));
        QVERIFY(strip.isDirty());
    }

    void stripFilesAreThoseOfTheSystemOnly() {
        QTemporaryDir dir;
        for (const char* name :
             {"SOL.BMP", "Sol.gif", "SolSun.bmp", "Sol3.avi", "Sol.x.bmp", "Solar.bmp"}) {
            touch(pathOf(dir, name));
        }
        std::vector<std::string> names;
        for (const fs::path& p : PictureStrip::stripFiles(pathOf(dir, ""), "Sol")) {
            names.push_back(p.filename().string());
        }
        std::sort(names.begin(), names.end());
        QCOMPARE(names, std::vector<std::string>({"SOL.BMP", "Sol.gif"}));
        QVERIFY(PictureStrip::findStripFile(pathOf(dir, ""), "sol").has_value());
        QVERIFY(!PictureStrip::findStripFile(pathOf(dir, ""), "Vega").has_value());

        QVERIFY(PictureStrip::deleteStripFiles(pathOf(dir, ""), "Sol"));
        QVERIFY(PictureStrip::stripFiles(pathOf(dir, ""), "Sol").empty());
        QVERIFY(fs::exists(pathOf(dir, "SolSun.bmp")));
        QVERIFY(fs::exists(pathOf(dir, "Sol3.avi")));
        QVERIFY(fs::exists(pathOf(dir, "Sol.x.bmp")));
    }

    void aFailedSaveLeavesNoStaleStrip() {
        QTemporaryDir dir;
        touch(pathOf(dir, "Sol.jpg"));
        touch(pathOf(dir, "SolSun.bmp"));
        touch(pathOf(dir, "Sol2.avi"));
        fs::create_directory(pathOf(dir, "Sol.bmp"));  // the strip's name is taken: writing fails

        PictureStrip strip;
        strip.SetupPics(2);
        strip.setPicture(1, filled(5, 5, Qt::red));
        QVERIFY(!strip.SavePictures(pathOf(dir, "Sol.bmp")));
        QVERIFY(strip.isDirty());
        QVERIFY(!fs::exists(pathOf(dir, "Sol.jpg")));
        QVERIFY(fs::exists(pathOf(dir, "SolSun.bmp")));
        QVERIFY(fs::exists(pathOf(dir, "Sol2.avi")));

        // A system without planets writes no strip at all, and that counts as saved.
        strip.SetupPics(0);
        strip.setDirty();
        QVERIFY(strip.SavePictures(pathOf(dir, "Vega.bmp")));
        QVERIFY(!fs::exists(pathOf(dir, "Vega.bmp")));
        QVERIFY(!strip.isDirty());
    }
};

QTEST_MAIN(PictureStripTest)
#include "PictureStripTest.moc"
