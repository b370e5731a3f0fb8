// The picture codec's strip files, and "Planet Pictures" through its controls: what each planet
// shows and which buttons it offers, the questions, the custom-picture switch, New from a file,
// Edit in a stand-in paint program (one that changes the file and one that leaves it), and an
// animation made by the test, which plays, or says in one line why it cannot.

#include <QtTest>

#include <QCheckBox>
#include <QLabel>
#include <QMediaPlayer>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>

#include "pictures/AnimationView.h"
#include "pictures/QtPictureCodec.h"
#include "pictures/frmPictures.h"
#include "platform/ScriptedPrompts.h"
#include "platform/Settings.h"
#include "session/SystemEdits.h"
#include "store/SystemStore.h"
#include "support/GameFixture.h"
#include "ui/pictures/support/TinyAvi.h"

using namespace orr;
using namespace orr::ui;
using orr::test::TempGameFolder;

namespace {

QImage filled(QColor colour, QSize size = QSize(40, 30)) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

// "Sol": three planets, planet 2 named Birch; a strip in Sol.jpg (a bitmap, whatever the name
// says) with a red planet 1 larger than its cell, none for 2 and a small blue planet 3, whose
// animation Sol3.avi plays.
struct Sol {
    Sol() {
        game.writeDescriptor(TempGameFolder::systemRecord("Sol", 3), "[Names]\r\n2=Birch\r\n");
        std::string error;
        codec.saveStrip(game.pictures() / "Sol.jpg",
                        {pictureOf(filled(Qt::red, QSize(200, 150))), nullptr,
                         pictureOf(filled(Qt::blue, QSize(10, 10)))},
                        &error);
        game.write("PICTURES/Sol3.avi", test::tinyAvi().toStdString());
        session.setPictureCodec(&codec);
        session.open("Sol", [] { return false; });
        window.showPlanet(1);
    }
    ~Sol() { session.close(); }
    template <typename T>
    T* find(const char* name) {
        return window.findChild<T*>(QString::fromLatin1(name));
    }
    void click(const char* button) { find<QPushButton>(button)->click(); }
    QString shown() { return window.display_->currentWidget()->objectName(); }
    QString buttons() {
        QString on;
        for (const char* name : {"cmdNew", "cmdEdit", "cmdRemove", "cmdRemAll"})
            on += find<QPushButton>(name)->isEnabled() ? name[3] : '-';
        return on;
    }

    TempGameFolder game;
    QtPictureCodec codec;
    EditSession session{game.folder()};
    ScriptedPrompts prompts;
    frmPictures window{session};
};

}  // namespace

class frmPicturesTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    // The strip as the window saves it: a bitmap, whatever its name says, cut back into the same
    // cells; a picture is centred in its cell and cut at its edges when larger; a missing
    // picture is a blank cell, read back as no picture.
    void theStripAndWhatEachPlanetShows() {
        Sol sol;
        const auto file = sol.game.pictures() / "Sol.jpg";
        QVERIFY(test::readBytes(file).starts_with("BM"));
        std::string error;
        const std::vector<PictureRef> cells = sol.codec.loadStrip(file, 3, &error);
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
        QVERIFY(sol.codec.loadStrip(file, 500, &error).empty());
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
            test::writeBytes(sol.game.path("bad.gif"), bytes);
            QVERIFY(!sol.codec.loadPicture(sol.game.path("bad.gif"), &error));
            QVERIFY2(QString::fromStdString(error).contains(why), error.c_str());
        }

        // Each planet shows what it has, and the buttons follow.
        const std::tuple<int, QString, QString, QString> planets[] = {
            {1, "Planet 1", "picPlanet", "NERR"},
            {2, "Birch", "lblNoPic", "N--R"},
            {3, "Planet 3", "AVI", "N-RR"},  // the animation in place of its picture
        };
        for (const auto& [n, name, shown, buttons] : planets) {
            sol.window.hsbPlanet->setValue(n);
            QCOMPARE(sol.find<QLabel>("lblName")->text(), name);
            QCOMPARE(sol.shown(), shown);
            QCOMPARE(sol.buttons(), buttons);
        }

        // The switch: a planet without a picture cannot use one; a click stores it.
        auto* custom = sol.find<QCheckBox>("chkCustom");
        sol.window.showPlanet(2);
        custom->click();
        QVERIFY(!custom->isChecked() && !sol.session.store().HasCustomPictures(2));
        sol.window.showPlanet(1);
        custom->click();
        QVERIFY(sol.session.store().HasCustomPictures(1));

        // Remove takes the animation first, then the picture; Remove All asks and No keeps all.
        sol.prompts.answerMessage(PromptAnswer::Yes);
        sol.window.showPlanet(3);
        sol.click("cmdRemove");
        QCOMPARE(sol.shown(), QStringLiteral("picPlanet"));
        sol.prompts.answerMessage(PromptAnswer::Yes);
        sol.window.showPlanet(1);
        sol.click("cmdRemove");
        QVERIFY(!sol.session.pictures().planet(1) && !sol.session.store().HasCustomPictures(1));
        sol.prompts.answerMessage(PromptAnswer::No);
        sol.click("cmdRemAll");
        QCOMPARE(sol.prompts.messageTexts(),
                 (QStringList{"Are you sure you want to remove this animation?",
                              "Are you sure you want to remove this picture?",
                              "Are you sure you want to remove all pictures for this system?\n"
                              "NOTE: Animations will not be removed."}));
        QCOMPARE(sol.prompts.asked().back().caption, QStringLiteral("Confirmation"));

        // New: a file's picture, the switch on; the title carries the unsaved mark.
        const QString green = sol.game.path("green.png").c_str();
        QVERIFY(filled(Qt::green).save(green));
        sol.prompts.answerFile(green);
        sol.window.showPlanet(2);
        sol.click("cmdNew");
        QCOMPARE(sol.prompts.asked().back().text, QStringLiteral("Choose Picture"));
        QVERIFY(sol.session.store().HasCustomPictures(2) && sol.window.isWindowModified());
        QVERIFY(sol.session.save());
        QCOMPARE(test::entryNames(sol.game.pictures()), std::vector<std::string>{"Sol.bmp"});
        QVERIFY(!sol.window.isWindowModified());

        // A strip with fewer cells than planets is cut into as many equal cells as there are
        // planets; one narrower than its planets cannot be cut, so they open without pictures
        // and the opening says why.
        const std::pair<int, QString> strips[] = {{320, "picPlanetNERR"}, {2, "lblNoPicN---"}};
        for (const auto& [width, planet3] : strips) {
            sol.session.close();
            const auto file = sol.game.pictures() / "Sol.bmp";
            QVERIFY(filled(Qt::red, {width, 30}).save(QString::fromStdString(file.string())));
            LoadResult loaded;
            QVERIFY(sol.session.open(
                "Sol", [] { return false; }, &loaded));
            QCOMPARE(QString::fromStdString(loaded.warning).contains("too narrow"), width == 2);
            sol.window.showPlanet(3);
            QCOMPARE(sol.shown() + sol.buttons(), planet3);
        }
    }

    void editRunsThePaintProgramOnAScratchCopy() {
        Sol sol;
        // A temporary folder whose path has blanks, quotes and a letter beyond ASCII.
        const std::filesystem::path temp = sol.game.path("it's \"temp\" \xC3\xBC");
        std::filesystem::create_directories(temp);
        qputenv("TMPDIR", QByteArray::fromStdString(temp.string()));
        const std::filesystem::path log = sol.game.path("args.txt");
        const std::string yellow = sol.game.path("yellow.bmp").string();
        QVERIFY(filled(Qt::yellow).save(QString::fromStdString(yellow)));
        Settings::setPaintOptions(QStringLiteral("/e %1 /x"));
        const std::tuple<std::string, bool, QString> programs[] = {
            {"printf '%s\\n' \"$@\" > '" + log.string() + "'; cp '" + yellow + "' \"$2\"", true,
             ""},
            {"exit 0", false, ""},  // leaves the file as it was
            {"", false, "Cannot find the program '%1'."},
        };
        for (const auto& [body, changes, message] : programs) {
            const std::filesystem::path paint = sol.game.path("paint program");
            std::filesystem::remove(paint);
            if (!body.empty()) test::writeProgram(paint, body);
            Settings::setPaintProgram(QString::fromStdString(paint.string()));
            if (!message.isEmpty()) sol.prompts.answerMessage(PromptAnswer::Ok);
            const std::string before = sol.session.undoName();
            sol.click("cmdEdit");
            QCOMPARE(sol.session.undoName() != before, changes);
            if (!message.isEmpty())
                QCOMPARE(sol.prompts.messageTexts().last(), message.arg(paint.c_str()));
        }
        QCOMPARE(imageOf(sol.session.pictures().planet(1)).pixelColor(0, 0), QColor(Qt::yellow));
        // The scratch file went to the program as one word, and is gone afterwards.
        const QStringList args = QString::fromStdString(test::readBytes(log)).split('\n');
        QCOMPARE(args.size(), 4);
        QCOMPARE(args[0] + args[2], QStringLiteral("/e/x"));
        QVERIFY(args[1].startsWith(QString::fromStdString(temp.string())));
        QVERIFY(args[1].endsWith(QStringLiteral("/Planet1.bmp")) && !QFile::exists(args[1]));
        qunsetenv("TMPDIR");
    }

    void anAnimationPlaysOrSaysWhyNot() {
        Sol sol;
        sol.game.write("PICTURES/Sol2.avi", "not a video");
        sol.window.show();
        sol.window.showPlanet(3);
        AnimationView* player = sol.find<AnimationView>("AVI");
        // Where Qt has no decoder the line says so; otherwise frames arrive.
        QTRY_VERIFY_WITH_TIMEOUT(!player->frame().isNull() || !player->problem().isEmpty(), 10000);
        if (player->problem().isEmpty())
            QCOMPARE(player->player()->playbackState(), QMediaPlayer::PlayingState);
        sol.window.showPlanet(2);
        QTRY_VERIFY_WITH_TIMEOUT(player->problem().contains("Sol2.avi cannot be played"), 10000);
    }
};

QTEST_MAIN(frmPicturesTest)
#include "frmPicturesTest.moc"
