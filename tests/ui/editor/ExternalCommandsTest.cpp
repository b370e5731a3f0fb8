// The main window's star picture, pictures window, Make Package and Test in Voidrunner, with
// stand-ins for the paint program, the zip program and the game's launcher (scripts the test
// writes): every question, what reaches the files, and the working copy open in every path.

#include <QtTest>

#include "pictures/frmPictures.h"
#include "platform/Settings.h"
#include "session/PictureStrip.h"
#include "session/SystemEdits.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;

namespace {

void openNova(MainWindowHarness& h) {
    h.game.writeDescriptor(MainWindowHarness::spacedSystem("Nova", 2));
    h.game.write("ORBInst.dat", "installer");
    QVERIFY(h.start());
    h.choose("Nova");
}

// A stand-in program that writes its arguments, one a line, to `log` and then runs `then`.
QString standIn(MainWindowHarness& h, const std::string& name, const std::string& then = {}) {
    const auto log = h.game.path(name + ".log").string();
    test::writeProgram(h.game.path(name), "printf '%s\\n' \"$@\" > '" + log + "'\n" + then);
    return QString::fromStdString(h.game.path(name).string());
}

QStringList logged(MainWindowHarness& h, const std::string& name) {
    return QString::fromStdString(h.game.read(name + ".log")).split('\n', Qt::SkipEmptyParts);
}

}  // namespace

class ExternalCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void theStarPictureIsPaintedChosenOrRemoved() {
        MainWindowHarness h;
        openNova(h);
        const std::string cyan = h.game.path("cyan.bmp").string();
        QImage star(kStarPictureSize, kStarPictureSize, QImage::Format_RGB32);
        star.fill(Qt::cyan);
        QVERIFY(star.save(QString::fromStdString(cyan)));
        QVERIFY(star.scaled(20, 20).save(h.game.path("big.png").c_str()));
        Settings::setPaintProgram(standIn(h, "paint", "cp '" + cyan + "' \"$1\""));
        // Each row: the answer, a file to choose, then the step and the check mark afterwards.
        const std::tuple<PromptAnswer, QString, QString, bool> steps[] = {
            {PromptAnswer::Yes, "", "Change Star Picture", true},  // painted
            {PromptAnswer::No, "", "Remove Star Picture", false},
            {PromptAnswer::No, h.game.path("big.png").c_str(), "Remove Star Picture", false},
            {PromptAnswer::Cancel, "", "Remove Star Picture", false},
        };
        for (const auto& [answer, file, step, own] : steps) {
            h.prompts.answerMessage(answer);
            if (!file.isEmpty()) h.prompts.answerFile(file);
            if (!file.isEmpty()) h.prompts.answerMessage(PromptAnswer::Ok);
            h.pickStarMenu("mnuStarPic");
            QCOMPARE(h.session().undoName(), step.toStdString());
            QCOMPARE(h.action("mnuStarPic")->isChecked(), own);
            QVERIFY(!h.game.exists("PICTURES/NovaSun.bmp"));  // only Save writes it
        }
        // Only a star with its own picture is asked whether to edit it; the 20 x 20 one is refused.
        const QStringList asked = h.prompts.messageTexts();
        QCOMPARE(asked.filter(QStringLiteral("Do you want to edit the star picture?")).size(), 1);
        QCOMPARE(asked.filter(QStringLiteral("Do you want to make a new star picture?")).size(), 3);
        QVERIFY(asked.contains(kStarPictureSizeMessage));
        QVERIFY(h.session().undo() && h.session().save());  // the painted picture back
        QVERIFY(h.game.exists("PICTURES/NovaSun.bmp"));

        // The planet's Picture entry opens the pictures window at that planet.
        int shownPlanet = 0;
        h.onDialog([&](QDialog& dialog) {
            shownPlanet = qobject_cast<frmPictures*>(&dialog)->planet();
            dialog.reject();
        });
        h.pickPlanetMenu(2, "mnuPicture");
        QCOMPARE(shownPlanet, 2);
    }

    void makePackageSavesAsksAndZips() {
        MainWindowHarness h;
        openNova(h);
        QVERIFY(setPlanetName(h.session(), 1, "Ash"));
        const QString parent = h.game.path("out").c_str();
        QDir().mkpath(parent);
        QAction* package = h.action("mnuFPackage");
        h.prompts.answerMessage(PromptAnswer::Cancel);
        package->trigger();  // the save question cancelled: nothing
        QCOMPARE(h.lastQuestion(), QStringLiteral("Confirmation: This system will be saved before "
                                                  "making a package. [OkCancel Information]"));
        h.prompts.answerMessage(PromptAnswer::Ok);
        h.prompts.answerFolder(QString());  // the folder chooser cancelled: saved, still open
        package->trigger();
        QCOMPARE(h.prompts.asked().back().text,
                 QStringLiteral("Please choose a location to make the package.  The package will "
                                "be named 'Nova'."));
        QVERIFY(!h.session().isModified() && h.session().isOpen());

        // Built in: the archive beside the folder (its entries are the writer's own test's).
        h.prompts.answerFolder(parent);
        package->trigger();
        QVERIFY(h.game.exists("out/Nova/SETUP.LST") && h.game.exists("out/Nova.zip"));

        // The user's zip program, and a folder that exists already.
        Settings::setZipProgram(standIn(h, "zipper"));
        std::filesystem::remove_all(h.game.path("out/Nova"));
        h.prompts.answerFolder(parent);
        package->trigger();
        const QString folder = parent + QStringLiteral("/Nova");
        QCOMPARE(logged(h, "zipper"), (QStringList{"-min", "-a", folder + ".zip", folder}));
        h.prompts.answerFolder(parent);
        h.prompts.answerMessage(PromptAnswer::Ok);
        package->trigger();
        QVERIFY(h.prompts.messageTexts().last().contains("exists already"));
        QVERIFY(h.session().isOpen() && h.game.exists("ORBDescriptor/Nova.edt"));
    }

    void testInVoidrunnerSavesAndStartsTheGame() {
        MainWindowHarness h;
        openNova(h);
        QVERIFY(setPlanetName(h.session(), 1, "Ash"));
        Settings::setGameLauncher(standIn(h, "launcher"));
        h.prompts.answerMessage(PromptAnswer::Cancel);
        h.action("mnuFTest")->trigger();
        QCOMPARE(h.lastQuestion(),
                 QStringLiteral("Orrerion: Click OK to save this system and run Voidrunner. Any "
                                "games you\ncreate during this session will begin next to the "
                                "Nova system. [OkCancel]"));
        QVERIFY(h.session().isModified());
        h.prompts.answerMessage(PromptAnswer::Ok);
        h.action("mnuFTest")->trigger();
        QVERIFY(!h.session().isModified() && h.session().isOpen());
        QTRY_COMPARE(logged(h, "launcher").size(), 2);
        QCOMPARE(logged(h, "launcher").first().toStdString(),
                 h.game.folder().executable().string());
        QVERIFY(logged(h, "launcher").last().startsWith("/star:"));

        // A name the game would see cut is refused before anything is asked or saved.
        QVERIFY(h.session().saveAs("Nova" + std::string(17, 'a')));
        h.prompts.answerMessage(PromptAnswer::Ok);
        h.action("mnuFTest")->trigger();
        QVERIFY(h.prompts.messageTexts().last().contains("too long"));
    }
};

QTEST_MAIN(ExternalCommandsTest)
#include "ExternalCommandsTest.moc"
