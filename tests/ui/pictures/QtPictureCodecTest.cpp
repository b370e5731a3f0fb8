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
        // Centred in the cell and cut at its edges when larger; a missing picture: a blank cell,
        // read back as no picture.
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
        QCOMPARE(first.pixelColor(0, 0), QColor(Qt::red));
        QVERIFY(!cells[1]);
        QCOMPARE(imageOf(cells[2]).pixelColor(80, 60), QColor(Qt::blue));
        QCOMPARE(imageOf(cells[2]).pixelColor(0, 0), QColor(Qt::black));

        // A strip narrower than its planets, and files that are no picture that can be used:
        // each is refused with its reason, none is decoded in full.
        QVERIFY(codec.loadStrip(file, 500, &error).empty());
        QVERIFY(QString::fromStdString(error).contains("too narrow"));
        QByteArray huge("BM");  // a bitmap header that claims 20000 x 16 pixels
        for (const quint32 field : {0u, 0u, 54u, 40u, 20000u, 16u}) {
            huge += QByteArray(4, '\0');
            qToLittleEndian(field, huge.data() + huge.size() - 4);
        }
        huge += QByteArray("\x01\x00\x18\x00", 4) + QByteArray(24, '\0');
        const std::pair<std::string, QString> bad[] = {{"", "not a picture"},
                                                       {"not a picture", "not a picture"},
                                                       {"GIF89a\x01", "not a picture"},
                                                       {huge.toStdString(), "too large"}};
        for (const auto& [bytes, why] : bad) {
            orr::test::writeBytes(game.pictures() / "bad.gif", bytes);
            QVERIFY(!codec.loadPicture(game.pictures() / "bad.gif", &error));
            QVERIFY2(QString::fromStdString(error).contains(why), error.c_str());
        }
    }
};

QTEST_MAIN(QtPictureCodecTest)
#include "QtPictureCodecTest.moc"
