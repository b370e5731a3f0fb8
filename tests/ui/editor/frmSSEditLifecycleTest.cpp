// The main window's system lifecycle: start-up and the about window, opening with the revert,
// save and backup questions, Save, Save As, New, Delete and the ways the program
// ends, with the title and status line that tell the user what happened. What the session
// writes is checked with the session; here the questions, the list, the enabling and one effect
// each.

#include <QtTest>

#include "editor/StarStrip.h"
#include "editor/StarView.h"
#include "editor/frmAbout.h"
#include "platform/QtText.h"
#include "platform/Settings.h"
#include "store/SystemStore.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;
using orr::test::TempGameFolder;

namespace {

// Nova (3 planets) and Vega (2 planets), both saved; Nova opened, and modified if asked (an
// added planet).
void openNova(MainWindowHarness& h, bool modified = false) {
    h.game.writeDescriptor(TempGameFolder::systemRecord("Vega", 2));
    QVERIFY(h.open(TempGameFolder::systemRecord("Nova", 3)));
    if (modified) h.action("mnuPAdd")->trigger();
    QCOMPARE(h.window().isWindowModified(), modified);
}

// The planet count in a saved descriptor's block (its display name is the system's name).
int savedPlanets(MainWindowHarness& h, const std::string& name) {
    const std::string text = h.descriptor(name, ".orb");
    const std::size_t header = text.find(";\"" + name + " ");  // the display name, 20 wide
    if (header == std::string::npos) return -1;
    return std::atoi(text.c_str() + text.rfind(',', text.find('\r', header)) + 1);
}

QStringList entries(MainWindowHarness& h) {
    QStringList texts = MainWindowHarness::texts(h.find<QWidget>("cboSystems"));
    texts.sort();
    return texts;
}

}  // namespace

class frmSSEditLifecycleTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    // Start-up refuses a folder without the game; the about window shows the version and is
    // shown while its box says so.
    void startUpAndTheAboutWindow() {
        {
            MainWindowHarness h;
            std::filesystem::remove(h.game.path("voidrunner.exe"));
            h.prompts.answerMessage(PromptAnswer::Ok);
            QVERIFY(!h.start());
            QCOMPARE(h.lastQuestion(),
                     QStringLiteral("Orrerion: This software must be installed in "
                                    "the same folder as Voidrunner for Windows 9x. [Ok]"));
        }
        QVERIFY(QRegularExpression(QStringLiteral("^\\d+\\.\\d+\\.\\d+$"))
                    .match(frmAbout::version())
                    .hasMatch());
        QVERIFY(frmAbout::version() != QStringLiteral("0.0.0"));  // the build's own version
        Settings::setShowAbout(true);
        MainWindowHarness h;
        QVERIFY(h.start());
        h.onDialog([](QDialog& about) {
            QVERIFY(about.findChild<QLabel*>(QStringLiteral("lblVersion"))
                        ->text()
                        .contains(frmAbout::version()));
            auto* box = about.findChild<QCheckBox*>(QStringLiteral("chkShowAbout"));
            if (box->isChecked()) box->click();
            about.accept();
        });
        h.window().showAboutIfWanted();
        QVERIFY(!Settings::showAbout());
        h.window().showAboutIfWanted();
        QCOMPARE(h.dialogsRun(), 1);
        h.action("mnuHAbout")->trigger();
        QCOMPARE(h.dialogsRun(), 2);
    }

    void openingNewAndDeletingSystems() {
        Settings::setDisplayAsteroids(true);
        MainWindowHarness h;
        openNova(h);
        QCOMPARE(entries(h), QStringList({"Nova", "Vega"}));
        QCOMPARE(h.find<QLabel>("lblName")->text(), QStringLiteral("Nova"));
        QCOMPARE(h.window().windowTitle(), QStringLiteral("Nova[*] - Orrerion"));
        // The star shows its strip cell: the system has no star picture of its own.
        QCOMPARE(h.find<StarView>("picStar")->picture(), StarStrip().cell(0));
        h.choose("Vega");  // unchanged: no question, the old working copy goes
        QVERIFY(!h.game.exists("ORBDescriptor/Nova.edt"));

        // New opens the system the dialog answers; a custom name equal to a key of the game's
        // list still makes a custom system.
        h.onDialog([](QDialog& dialog) {
            dialog.findChild<QCheckBox*>(QStringLiteral("chkCustom"))->click();
            dialog.findChild<QLineEdit*>(QStringLiteral("txtName"))
                ->setText(QStringLiteral("9Sol"));
            dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
        });
        h.find<QPushButton>("cmdAdd")->click();
        QCOMPARE(h.selected(), QStringLiteral("9Sol"));
        QCOMPARE(int(h.record().PlanetCount), 0);
        QVERIFY(!h.game.exists("ORBDescriptor/Vega.edt"));
        h.onDialog([](QDialog& dialog) { dialog.reject(); });  // Cancel changes nothing
        h.action("mnuFNew")->trigger();
        QCOMPARE(h.dialogsRun(), 2);
        QCOMPARE(h.record().Name, std::string("9Sol"));

        // Display Asteroids is remembered for the next window.
        QVERIFY(h.action("mnuPDetail")->isChecked());
        h.action("mnuPDetail")->trigger();
        {
            MainWindowHarness again;
            QVERIFY(again.start());
            QVERIFY(!again.action("mnuPDetail")->isChecked());
        }

        for (const PromptAnswer answer : {PromptAnswer::No, PromptAnswer::Yes}) {
            h.prompts.answerMessage(answer);
            h.find<QPushButton>("cmdDelete")->click();
            QCOMPARE(h.lastQuestion(), QStringLiteral("Orrerion: Are you sure you want to delete "
                                                      "9Sol? [YesNo Exclamation, default No]"));
            QCOMPARE(entries(h).size(), answer == PromptAnswer::No ? 3 : 2);
        }
        QCOMPARE(h.window().statusBar()->currentMessage(), QStringLiteral("Deleted 9Sol."));
        QCOMPARE(h.find<QComboBox>("cboSystems")->currentIndex(), -1);
        QCOMPARE(h.window().windowTitle(), QStringLiteral("Orrerion"));
        QVERIFY(!h.find<StarView>("picStar")->hasPicture());
        QVERIFY(h.find<QLabel>("lblName")->text().isEmpty());
        for (const char* name : {"cmdSave", "cmdDelete", "mnuPlanet"})
            QVERIFY2(!h.find<QWidget>(name)->isEnabled(), name);
        for (const char* name : {"mnuFSave", "mnuFSaveAs", "mnuFClear", "mnuFDelete"})
            QVERIFY2(!h.action(name)->isEnabled(), name);
        QVERIFY(h.action("mnuFNew")->isEnabled());
    }

    void choosingASystemAsksToRevertOrToSave() {
        const QString revert = QStringLiteral(
            "Orrerion: This will revert to the last saved version of 'Nova'. [OkCancel "
            "Information]");
        const QString save = QStringLiteral(
            "Orrerion: Do you want to save the current system "
            "before loading 'Vega'? [YesNoCancel Question]");
        // Nova has 3 planets saved and 4 in its working copy. Each row: the system chosen, the
        // answer, then the system open, its planets and Nova's saved planets.
        for (const auto& [chosen, answer, openAfter, planetsAfter, novaSaved] :
             {std::tuple{"Nova", PromptAnswer::Cancel, "Nova", 4, 3},
              std::tuple{"Nova", PromptAnswer::Ok, "Nova", 3, 3},
              std::tuple{"Vega", PromptAnswer::Cancel, "Nova", 4, 3},
              std::tuple{"Vega", PromptAnswer::No, "Vega", 2, 3},
              std::tuple{"Vega", PromptAnswer::Yes, "Vega", 2, 4}}) {
            MainWindowHarness h;
            openNova(h, true);
            h.prompts.answerMessage(answer);
            h.choose(chosen);
            QCOMPARE(h.lastQuestion(), chosen == std::string("Nova") ? revert : save);
            QCOMPARE(h.selected(), QString::fromLatin1(openAfter));
            QCOMPARE(h.record().Name, std::string(openAfter));
            QCOMPARE(int(h.record().PlanetCount), planetsAfter);
            QCOMPARE(savedPlanets(h, "Nova"), novaSaved);
        }
    }

    void aLeftoverWorkingCopyIsOfferedAsBackupWithoutTheHourglass() {
        const auto hourglass = [] {
            const QCursor* cursor = QGuiApplication::overrideCursor();
            return cursor && cursor->shape() == Qt::WaitCursor;
        };
        // Yes edits the backup (5 planets); No starts again from the saved file (3 planets).
        for (const auto& [answer, planets] :
             {std::pair{PromptAnswer::Yes, 5}, std::pair{PromptAnswer::No, 3}}) {
            MainWindowHarness h;
            h.game.writeDescriptor(TempGameFolder::systemRecord("Nova", 3));
            h.game.write("ORBDescriptor/Nova.edt",
                         newDescriptorText(TempGameFolder::systemRecord("Nova", 5)));
            QVERIFY(h.start());
            bool hourglassAtQuestion = true;
            h.prompts.answerMessageWith([&](const MessagePrompt&) {
                hourglassAtQuestion = hourglass();
                return answer;
            });
            h.choose("Nova");
            QVERIFY(!hourglassAtQuestion);
            QCOMPARE(h.lastQuestion(),
                     QStringLiteral("Backup Exists: There is a backup for this "
                                    "solar system, would you like to edit it? [YesNo Question]"));
            QCOMPARE(int(h.record().PlanetCount), planets);
        }
        // A damaged system: the window shows what could be read, then warns.
        MainWindowHarness h;
        h.game.write("ORBDescriptor/Bbb.orb",
                     orr::test::crlf({"[General]", ";SolarSystem", ";\"Bbb\",2,3",
                                      ";550,3,0,0,11,0", ";700,99999,0,0,1,0"}));
        QVERIFY(h.start());
        bool hourglassAtWarning = true;
        QString nameAtWarning;
        h.prompts.answerMessageWith([&](const MessagePrompt&) {
            hourglassAtWarning = hourglass();
            nameAtWarning = h.find<QLabel>("lblName")->text();
            return PromptAnswer::Ok;
        });
        h.choose("Bbb");
        QVERIFY(h.prompts.messageTexts().front().contains(QStringLiteral("Bbb is damaged")));
        QVERIFY(!hourglassAtWarning);
        QCOMPARE(nameAtWarning, QStringLiteral("Bbb"));
    }

    void saveWritesThePicturesAndSaysSoOrWhyNot() {
        MainWindowHarness h;
        QImage star(16, 16, QImage::Format_RGB32);
        star.fill(Qt::magenta);
        QVERIFY(star.save(QString::fromStdString(h.game.path("PICTURES/NovaSun.png").string())));
        openNova(h, true);
        QVERIFY(h.find<StarView>("picStar")->showsOwnPicture());
        h.find<QPushButton>("cmdSave")->click();
        QCOMPARE(savedPlanets(h, "Nova"), 4);
        QVERIFY(!h.window().isWindowModified());
        QCOMPARE(h.window().statusBar()->currentMessage(), QStringLiteral("Saved Nova."));
        // The window gave the session its picture codec: the star picture is saved as bitmap.
        const QImage saved(QString::fromStdString(h.game.path("PICTURES/NovaSun.bmp").string()));
        QCOMPARE(saved.pixelColor(5, 5), QColor(Qt::magenta));

        h.action("mnuPAdd")->trigger();
        {
            const orr::test::ReadOnlyFolder readOnly(h.game.descriptors());
            if (!readOnly.enforced()) QSKIP("the folder cannot be made read-only here");
            h.prompts.answerMessage(PromptAnswer::Ok);
            h.prompts.answerInput(QStringLiteral("Orion"));
            h.prompts.answerMessage(PromptAnswer::Ok);
            h.action("mnuFSave")->trigger();
            QCOMPARE(h.window().statusBar()->currentMessage(),
                     QStringLiteral("Nova was not saved."));
            h.action("mnuFSaveAs")->trigger();
            QCOMPARE(h.window().statusBar()->currentMessage(),
                     QStringLiteral("Nova was not saved as Orion."));
        }
        QCOMPARE(h.prompts.messageTexts().size(), 2);
        QCOMPARE(savedPlanets(h, "Nova"), 4);
        QVERIFY(h.window().isWindowModified());
    }

    void saveAsAsksAgainAfterNoAndKeepsTheOldSystem() {
        MainWindowHarness h;
        openNova(h, true);
        h.prompts.answerInput(QStringLiteral("Vega"));
        h.prompts.answerMessage(PromptAnswer::No);
        h.prompts.answerInput(QStringLiteral("Orion"));
        h.action("mnuFSaveAs")->trigger();
        QCOMPARE(h.prompts.asked()[0].text,
                 QStringLiteral("Please enter the new name of this system."));
        QCOMPARE(h.prompts.asked()[0].defaultText, QStringLiteral("Nova"));
        QCOMPARE(h.prompts.asked()[1].text,
                 QStringLiteral("This system aready exists.  Are you sure you want to overwrite?"));
        QCOMPARE(h.selected(), QStringLiteral("Orion"));
        QCOMPARE(h.find<QLabel>("lblName")->text(), QStringLiteral("Orion"));
        QCOMPARE(h.window().windowTitle(), QStringLiteral("Orion[*] - Orrerion"));
        QCOMPARE(h.window().statusBar()->currentMessage(), QStringLiteral("Saved as Orion."));
        QCOMPARE(savedPlanets(h, "Orion"), 4);
        QCOMPARE(savedPlanets(h, "Nova"), 3);

        // Over a listed name in another letter case: that entry takes the new spelling.
        h.prompts.answerInput(QStringLiteral("VEGA"));
        h.prompts.answerMessage(PromptAnswer::Yes);
        h.action("mnuFSaveAs")->trigger();
        QCOMPARE(entries(h), QStringList({"Nova", "Orion", "VEGA"}));

        // A refused name is asked for again, as typed. (Which names the folder cannot hold is
        // the core's name rule.)
        const QString snowman = QString::fromUtf8("Nova \u2603");
        h.prompts.answerInput(snowman);
        h.prompts.answerMessage(PromptAnswer::Ok);
        h.prompts.answerInput(std::nullopt);
        h.action("mnuFSaveAs")->trigger();
        QCOMPARE(h.prompts.messageTexts().mid(2),
                 QStringList(unstorableMessage(QString::fromUtf8("\u2603"))));
        QCOMPARE(h.prompts.asked().back().defaultText, snowman);
        QCOMPARE(h.record().Name, std::string("VEGA"));
    }

    // Exit asks to save; quitting the application (last: it closes every window) asks nothing
    // and keeps the working copy.
    void exitAsksToSaveAndQuittingDoesNot() {
        // Cancel keeps the window; No and Yes end it with the change dropped or saved.
        for (const auto& [answer, saved] :
             {std::pair{PromptAnswer::Cancel, 3}, std::pair{PromptAnswer::No, 3},
              std::pair{PromptAnswer::Yes, 4}}) {
            MainWindowHarness h;
            openNova(h, true);
            h.prompts.answerMessage(answer);
            if (answer == PromptAnswer::Yes)
                h.action("mnuFExit")->trigger();
            else
                h.window().close();  // the close box
            QCOMPARE(h.lastQuestion(),
                     QStringLiteral("Orrerion: Do you want to save before exiting? "
                                    "[YesNoCancel Question]"));
            QCOMPARE(h.window().isVisible(), answer == PromptAnswer::Cancel);
            QCOMPARE(h.game.exists("ORBDescriptor/Nova.edt"), answer == PromptAnswer::Cancel);
            QCOMPARE(savedPlanets(h, "Nova"), saved);
        }

        MainWindowHarness h;
        openNova(h, true);
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
        QVERIFY(!h.window().isVisible());
        QVERIFY(h.game.exists("ORBDescriptor/Nova.edt"));
        QCOMPARE(savedPlanets(h, "Nova"), 3);
    }
};

QTEST_MAIN(frmSSEditLifecycleTest)
#include "frmSSEditLifecycleTest.moc"
