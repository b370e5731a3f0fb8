// The main window's planet and star commands, from its menus, the canvas's context menus, the
// dialogs and the display-name box, and Edit > Undo and Redo as users meet them: each command
// reaches the session as the step Edit names, the keys undo and redo it where they should, and
// the modified mark follows. What each command does to the system is checked with the session.
// Then the star picture, the pictures window, Make Package and Test in Voidrunner, with
// stand-ins for the paint program, the zip program and the game's launcher (scripts the test
// writes): every question, what reaches the files, and the working copy open in every path.

#include <QtTest>

#include "editor/SystemCanvas.h"
#include "editor/frmPlanet.h"
#include "pictures/frmPictures.h"
#include "platform/QtText.h"
#include "platform/Settings.h"
#include "session/PictureStrip.h"
#include "session/SystemEdits.h"
#include "store/SystemStore.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;

namespace {

// "Nova": `planets` planets on spaced orbits, planet 2 named Birch with a section of its own and
// custom messages on; the game's installer is there to be packed.
void openNova(MainWindowHarness& h, int planets = 3) {
    std::string text = newDescriptorText(MainWindowHarness::spacedSystem("Nova", planets));
    if (planets >= 2) text.replace(text.find("Messages = NN"), 13, "Messages = NY");
    h.game.write("ORBDescriptor/Nova.orb", text + "[Names]\r\n2=Birch\r\n[2]\r\nInfo=x\r\n");
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

class frmSSEditMenusTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        QStandardPaths::setTestModeEnabled(true);
        Settings::setDisplayAsteroids(true);
    }

    // Every way to change the system, once: Edit names the step (the command and its planet
    // were the right ones), and Ctrl+Z takes it back to the saved, unmarked state.
    void eachCommandIsOneStepThatEditNamesAndCtrlZUndoes() {
        MainWindowHarness h;
        openNova(h);
        bool lockedDuringDialog = false;
        const auto properties = [&](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Planet Properties - Nova III"));
            lockedDuringDialog = h.canvas()->highlightLocked();
            dialog.findChild<QAbstractButton*>(QStringLiteral("gpInh2"))->click();
            dialog.findChild<QAbstractButton*>(QStringLiteral("spnSizeUp"))->click();
            dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
        };
        const auto order = [&](QDialog& dialog) {
            auto* list = dialog.findChild<QListWidget*>(QStringLiteral("lstPlanets"));
            QCOMPARE(MainWindowHarness::texts(list),
                     QStringList({"Planet 1", "Birch", "Planet 3"}));
            list->setCurrentRow(2);
            dialog.findChild<QPushButton*>(QStringLiteral("cmdUp"))->click();
            // The list names each planet after its new place.
            QCOMPARE(MainWindowHarness::texts(list),
                     QStringList({"Planet 1", "Planet 2", "Birch"}));
            QCOMPARE(list->currentRow(), 1);
            dialog.findChild<QPushButton*>(QStringLiteral("cmdClose"))->click();
        };
        const QString hint =
            QStringLiteral(".  Enter \"default\" or \"none\" to use the default name.");
        struct Row {
            QString step;
            std::function<void()> run;
            QString question = {};  // as lastQuestion() gives it, when one is asked
        };
        const std::vector<Row> rows = {
            {"Add Planet", [&] { h.action("mnuPAdd")->trigger(); }},
            {"Insert Planet 2", [&] { h.pickPlanetMenu(2, "mnuInsert"); }},
            {"Delete Planet 3", [&] { h.pickPlanetMenu(3, "mnuDelete"); }},
            {"Change Class of Planet 2", [&] { h.pickPlanetMenu(2, "mnuPClass", 0); }},
            {"Rename Planet 2",
             [&] {
                 h.prompts.answerInput(QStringLiteral("Zephyr"));
                 h.pickPlanetMenu(2, "mnuDescription");
             },
             "Orrerion: Please enter the name for Nova II" + hint + " [Birch]"},
            {"Change Star Type", [&] { h.pickStarMenu("mnuStarType", 5); }},
            {"Describe Star",
             [&] {
                 h.prompts.answerInput(QStringLiteral("Twin embers"));
                 h.pickStarMenu("mnuStarDesc");
             },
             "Orrerion: Please enter the description for Nova" + hint + " [Yellow Sun]"},
            {"Change Properties of Planet 3",
             [&] {
                 h.onDialog(properties);
                 h.pickPlanetMenu(3, "mnuProperties");
             }},
            {"Move Planet 3 Up",
             [&] {
                 h.onDialog(order);
                 h.action("mnuPOrder")->trigger();
             }},
            {"Change Display Name",
             [&] {
                 QTest::mouseClick(h.find<QLabel>("lblName"), Qt::LeftButton);
                 h.find<QLineEdit>("txtName")->setText(QStringLiteral("Helios"));
                 QTest::keyClick(h.find<QLineEdit>("txtName"), Qt::Key_Return);
             }},
            {"Clear Planets",
             [&] {
                 h.prompts.answerMessage(PromptAnswer::Yes);
                 h.action("mnuFClear")->trigger();
             },
             "Confirmation: Are you sure you want to clear all planets, their messages, and "
             "pictures? [YesNo Exclamation]"},
        };
        const std::string saved = h.descriptor("Nova");
        for (const Row& row : rows) {
            const std::size_t asked = h.prompts.asked().size();
            row.run();
            QCOMPARE(h.undoText(), QStringLiteral("&Undo ") + row.step);
            QCOMPARE(h.prompts.asked().size() > asked ? h.lastQuestion() : QString(), row.question);
            QVERIFY2(h.window().isWindowModified(), qPrintable(row.step));
            h.press(QKeySequence::Undo);
            QCOMPARE(h.action("mnuERedo")->text(), QStringLiteral("&Redo ") + row.step);
            QVERIFY2(!h.window().isWindowModified(), qPrintable(row.step));
            QCOMPARE(h.descriptor("Nova"), saved);
        }
        QVERIFY(lockedDuringDialog);  // the dialogs ran: their steps are named above
        QVERIFY(!h.canvas()->highlightLocked());

        // A drag is undone whole and redone by either key, but not from the name box.
        h.canvas()->setFocus();
        h.mouse(QEvent::MouseButtonPress, h.planetCentre(2), Qt::LeftButton);
        for (const double y : {650, 600, 560, 520}) h.mouse(QEvent::MouseMove, {0, y});
        QVERIFY(!h.find<QWidget>("picInfo")->isVisible());  // no info panel while dragging
        h.mouse(QEvent::MouseButtonRelease, {0, 520}, Qt::LeftButton);
        h.mouse(QEvent::MouseMove, {0, 600});  // released: the orbit stays
        QCOMPARE(int(h.record().planet(2).Position), 520);
        QCOMPARE(h.undoText(), QStringLiteral("&Undo Move Planet 2"));
        for (const QKeySequence& redo :
             {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)}) {
            h.press(QKeySequence(Qt::CTRL | Qt::Key_Z));
            QCOMPARE(int(h.record().planet(2).Position), 700);
            QVERIFY(!h.window().isWindowModified());
            h.press(redo);
            QCOMPARE(int(h.record().planet(2).Position), 520);
            QVERIFY(h.window().isWindowModified());
        }

        // In the display-name box the keys are the box's own.
        QTest::mouseClick(h.find<QLabel>("lblName"), Qt::LeftButton);
        auto* box = h.find<QLineEdit>("txtName");
        QVERIFY(box->hasFocus());
        QTest::keyClicks(box, QStringLiteral("Helios"));
        for (const QKeySequence& keys :
             {QKeySequence(Qt::CTRL | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
              QKeySequence(Qt::CTRL | Qt::Key_Y)})
            h.press(keys);
        QCOMPARE(int(h.record().planet(2).Position), 520);
        QCOMPARE(h.undoText(), QStringLiteral("&Undo Move Planet 2"));
        QVERIFY(box->isVisible());

        // Names are kept or refused where they are typed: Escape keeps the old one.
        auto* label = h.find<QLabel>("lblName");
        QTest::keyClick(box, Qt::Key_Escape);
        QVERIFY(!box->isVisible());
        QCOMPARE(label->text(), QStringLiteral("Nova"));
        QTest::mouseClick(label, Qt::LeftButton);
        QCOMPARE(box->selectedText(), QStringLiteral("Nova"));

        // Leaving the box for another control closes it and leaves the focus there.
        h.find<QWidget>("cboSystems")->setFocus(Qt::MouseFocusReason);
        QVERIFY(!box->isVisible() && h.find<QWidget>("cboSystems")->hasFocus());

        // Enter on the unchanged name is no step and no change.
        QTest::mouseClick(label, Qt::LeftButton);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!box->isVisible());
        QCOMPARE(h.undoText(), QStringLiteral("&Undo Move Planet 2"));

        // A name the game cannot store keeps the box open with the text.
        QTest::mouseClick(label, Qt::LeftButton);
        box->setText(QString::fromUtf8("Hel\u2603os"));
        h.prompts.answerMessage(PromptAnswer::Ok);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(box->isVisible());
        QCOMPARE(box->text(), QString::fromUtf8("Hel\u2603os"));
        QTest::keyClick(box, Qt::Key_Escape);

        // A planet name the game cannot store is asked for again, as typed.
        h.prompts.answerInput(QString::fromUtf8("Zeph\u2603r"));
        h.prompts.answerMessage(PromptAnswer::Ok);
        h.prompts.answerInput(std::nullopt);
        h.pickPlanetMenu(2, "mnuDescription");
        QCOMPARE(h.prompts.messageTexts().last(), unstorableMessage(QString::fromUtf8("\u2603")));
        QCOMPARE(h.prompts.asked().back().defaultText, QString::fromUtf8("Zeph\u2603r"));
        QCOMPARE(h.undoText(), QStringLiteral("&Undo Move Planet 2"));
    }

    void menusOfferWhatThePlanetAndStarAllow() {
        MainWindowHarness h;
        openNova(h, 1);
        QVERIFY(!h.action("mnuPOrder")->isEnabled());  // one planet has no order
        h.pickPlanetMenu(1, "mnuPClass", 3);
        QVERIFY(h.wasChecked("mnuPClass", 1));
        h.pickPlanetMenu(1, nullptr);
        QVERIFY(h.wasChecked("mnuPClass", 3));
        QVERIFY(h.wasEnabled("mnuInsert"));
        QVERIFY(!h.wasEnabled("mnuMessages"));  // no message editor given
        h.pickStarMenu(nullptr);
        QVERIFY(h.wasChecked("mnuStarType", 0));
        QVERIFY(h.wasEnabled("mnuType"));

        // The pictures window is offered for an open system (the other picture entries, the
        // package and the game's start are used below).
        QVERIFY(h.action("mnuPPics")->isEnabled());

        // A star with a picture of its own has no type to choose. Messages opens the editor
        // with the planet's custom-messages switch.
        MainWindowHarness own;
        QVERIFY(QImage(16, 16, QImage::Format_RGB32)
                    .save(own.game.path("PICTURES/novasun.BMP").c_str()));
        openNova(own, 2);
        QList<std::pair<int, bool>> calls;
        own.window().setMessageEditorOpener([&](int planet, bool custom) {
            calls.append({planet, custom});
            return custom;
        });
        own.pickPlanetMenu(1, "mnuMessages");
        own.pickPlanetMenu(2, "mnuMessages");
        QCOMPARE(calls, (QList<std::pair<int, bool>>{{1, false}, {2, true}}));
        own.pickStarMenu(nullptr);
        QVERIFY(!own.wasEnabled("mnuType"));
        QVERIFY(own.wasChecked("mnuStarPic"));

        // Ten planets: Add says why, Insert is not offered.
        MainWindowHarness full;
        QVERIFY(full.open(orr::test::TempGameFolder::systemRecord("Nova", 10)));
        full.prompts.answerMessage(PromptAnswer::Ok);
        full.action("mnuPAdd")->trigger();
        QCOMPARE(full.prompts.messageTexts(), QStringList(QString::fromLatin1(kMaxPlanetsMessage)));
        full.pickPlanetMenu(2, nullptr);
        QVERIFY(!full.wasEnabled("mnuInsert"));
    }

    // The star picture is painted, chosen or removed; Make Package and Test in Voidrunner save
    // first.
    void theStarPictureAndThePackageAndTheGame() {
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

        // The planet's Picture entry opens the pictures window at that planet.
        int shownPlanet = 0;
        h.onDialog([&](QDialog& dialog) {
            shownPlanet = qobject_cast<frmPictures*>(&dialog)->planet();
            dialog.reject();
        });
        h.pickPlanetMenu(2, "mnuPicture");
        QCOMPARE(shownPlanet, 2);

        // Make Package.
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

        // Test in Voidrunner saves and starts the game.
        QVERIFY(setPlanetName(h.session(), 1, "Oak"));
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

QTEST_MAIN(frmSSEditMenusTest)
#include "frmSSEditMenusTest.moc"
