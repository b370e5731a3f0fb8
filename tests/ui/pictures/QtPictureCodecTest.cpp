// The picture files as the windows read and write them: a strip composed of its cells, saved as a
// bitmap and cut back into the same cells, whatever its file name says about its format.

#include <QtTest>

#include "pictures/QtPictureCodec.h"
#include "support/GameFixture.h"

using namespace orr::ui;

namespace {

orr::PictureRef filled(int width, int height, QColor colour) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return pictureOf(image);
}

}  // namespace

class QtPictureCodecTest : public QObject {
    Q_OBJECT

  private slots:
    void aStripIsSavedAndCutBackIntoTheSameCells() {
        orr::test::TempGameFolder game(orr::test::TempGameFolder::Contents::Bare);
        QtPictureCodec codec;
        // Larger than a cell: cut at its edge; a missing picture: a blank cell.
        const std::vector<orr::PictureRef> pictures{filled(200, 150, Qt::red), nullptr,
                                                    filled(10, 10, Qt::blue)};
        std::string error;
        const auto file = game.pictures() / "Sol.jpg";  // a bitmap, whatever the name says
        QVERIFY(codec.saveStrip(file, pictures, &error));
        QVERIFY(orr::test::readBytes(file).starts_with("BM"));

        const std::vector<orr::PictureRef> cells = codec.loadStrip(file, 3, &error);
        QCOMPARE(cells.size(), std::size_t{3});
        const QImage first = imageOf(cells[0]);
        QCOMPARE(first.size(), QSize(QtPictureCodec::kCellWidth, QtPictureCodec::kCellHeight));
        QCOMPARE(first.pixelColor(QtPictureCodec::kCellWidth - 1, 10), QColor(Qt::red));
        QCOMPARE(imageOf(cells[1]).pixelColor(10, 10), QColor(Qt::black));
        QCOMPARE(imageOf(cells[2]).pixelColor(0, 0), QColor(Qt::blue));
        QCOMPARE(imageOf(cells[2]).pixelColor(20, 20), QColor(Qt::black));

        orr::test::writeBytes(game.pictures() / "junk.bmp", "not a picture");
        QVERIFY(codec.loadStrip(game.pictures() / "junk.bmp", 2, &error).empty());
        QVERIFY(QString::fromStdString(error).contains("not a picture"));
    }
};

QTEST_MAIN(QtPictureCodecTest)
#include "QtPictureCodecTest.moc"
