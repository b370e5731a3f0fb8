// The main window's system lifecycle: start-up, opening with the revert, save and backup
// questions, Save, Save As, New, Delete, Clear Planets and the ways the program ends.

#include <QtTest>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStandardPaths>

#include "editor/StarStrip.h"
#include "editor/StarView.h"
#include "editor/frmNewSS.h"
#include "platform/Settings.h"
#include "store/SystemOperations.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;
using orr::test::TempGameFolder;

namespace {

// Nova (3 planets, planet 2 named and with a section) and Vega (2 planets), both saved.
void addNovaAndVega(MainWindowHarness& h) {
    h.addSystem(TempGameFolder::systemRecord("Nova", 3),
                "[Names]\r\n2=Halcyon\r\n[2]\r\nInfo=harbour\r\n");
    h.addSystem(TempGameFolder::systemRecord("Vega", 2));
}

// A change to the working copy that makes the open system modified.
void modify(MainWindowHarness& h) {
    h.action("mnuPAdd")->trigger();
    QVERIFY(h.store().IsModified());
}

// Starts the window on Nova and Vega and opens Nova, modified if asked.
void openNova(MainWindowHarness& h, bool modified = false) {
    addNovaAndVega(h);
    QVERIFY(h.start());
    h.choose("Nova");
    if (modified) modify(h);
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

class frmSSEditLifecycleTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void startUpRefusesAFolderWithoutTheGame() {
        MainWindowHarness h;
        std::filesystem::remove(h.game.path("voidrunner.exe"));
        QVERIFY(!h.start());
        QCOMPARE(h.prompts.asked().size(), std::size_t(1));
        const auto& asked = h.prompts.asked().front();
        QCOMPARE(asked.text, QStringLiteral("This software must be installed in the same folder "
                                            "as Voidrunner for Windows 9x."));
        QCOMPARE(asked.buttons, PromptButtons::Ok);
    }

    void startUpListsSavedSystemsAndOpeningMakesAWorkingCopy() {
        MainWindowHarness h;
        addNovaAndVega(h);
        h.game.write("ORBDescriptor/Old.edt", "leftover working copy");
        h.game.write("ORBDescriptor/notes.txt", "not a system");
        QVERIFY(h.start());
        QCOMPARE(h.window().cboSystems->count(), 2);
        QVERIFY(h.indexOf("Nova") >= 0 && h.indexOf("Vega") >= 0);
        QCOMPARE(h.window().cboSystems->currentIndex(), -1);
        QVERIFY(!h.window().cmdSave->isEnabled());
        QVERIFY(!h.window().cmdDelete->isEnabled());
        QVERIFY(!h.action("mnuFSaveAs")->isEnabled());
        QVERIFY(!h.window().mnuPlanet->isEnabled());
        QVERIFY(h.action("mnuFNew")->isEnabled());

        h.choose("Nova");
        QCOMPARE(h.record().PlanetCount, 3);
        QVERIFY(h.game.exists("ORBDescriptor/Nova.edt"));
        QVERIFY(!h.store().IsModified());
        QCOMPARE(h.window().lblName->text(), QStringLiteral("Nova"));
        QVERIFY(h.window().cmdSave->isEnabled());
        QVERIFY(h.action("mnuPOrder")->isEnabled());
        // The star shows its strip cell: the system has no star picture of its own.
        QVERIFY(!h.window().picStar->showsOwnPicture());
        QCOMPARE(h.window().picStar->picture(), h.window().clpStars->cell(0));

        h.choose("Vega");  // unchanged: no question, the old working copy goes
        QVERIFY(!h.game.exists("ORBDescriptor/Nova.edt"));
        QVERIFY(h.game.exists("ORBDescriptor/Vega.edt"));
        QCOMPARE(h.prompts.unexpectedCount(), 0);
    }

    void choosingTheOpenSystemAgainAsksToRevert() {
        MainWindowHarness h;
        openNova(h, true);
        h.prompts.answerMessage(PromptAnswer::Cancel);
        h.choose("Nova");
        const auto& asked = h.prompts.asked().back();
        QCOMPARE(asked.text,
                 QStringLiteral("This will revert to the last saved version of 'Nova'."));
        QCOMPARE(asked.buttons, PromptButtons::OkCancel);
        QCOMPARE(asked.icon, PromptIcon::Information);
        QCOMPARE(h.record().PlanetCount, 4);
        QVERIFY(h.store().IsModified());

        h.prompts.answerMessage(PromptAnswer::Ok);
        h.choose("Nova");
        QCOMPARE(h.record().PlanetCount, 3);
        QVERIFY(!h.store().IsModified());
        QCOMPARE(h.descriptor("Nova"), h.descriptor("Nova", ".orb"));
        QCOMPARE(h.prompts.unexpectedCount(), 0);
    }

    void choosingAnotherSystemAsksToSave() {
        MainWindowHarness h;
        openNova(h, true);
        const std::string saved = h.descriptor("Nova", ".orb");
        // Cancel: the list goes back to Nova, which stays open and modified.
        h.prompts.answerMessage(PromptAnswer::Cancel);
        h.choose("Vega");
        QCOMPARE(h.prompts.asked().back().text,
                 QStringLiteral("Do you want to save the current system before loading 'Vega'?"));
        QCOMPARE(h.prompts.asked().back().buttons, PromptButtons::YesNoCancel);
        QCOMPARE(h.selected(), QStringLiteral("Nova"));
        QCOMPARE(h.record().Name, std::string("Nova"));
        QVERIFY(h.store().IsModified());
        QVERIFY(!h.game.exists("ORBDescriptor/Vega.edt"));

        // No: the change is dropped.
        h.prompts.answerMessage(PromptAnswer::No);
        h.choose("Vega");
        QCOMPARE(h.record().Name, std::string("Vega"));
        QCOMPARE(h.descriptor("Nova", ".orb"), saved);
        QVERIFY(!h.game.exists("ORBDescriptor/Nova.edt"));

        // Yes: the change reaches the saved descriptor.
        modify(h);
        h.prompts.answerMessage(PromptAnswer::Yes);
        h.choose("Nova");
        QCOMPARE(h.record().Name, std::string("Nova"));
        QVERIFY(contains(h.descriptor("Vega", ".orb"), ",0,3\r\n"));
        QVERIFY(!h.game.exists("ORBDescriptor/Vega.edt"));
        QCOMPARE(h.prompts.unexpectedCount(), 0);
    }

    void aLeftoverWorkingCopyIsOfferedAsBackup() {
        // Yes edits the backup (5 planets); No starts again from the saved file (3 planets).
        for (const auto& [answer, planets] :
             {std::pair{PromptAnswer::Yes, 5}, std::pair{PromptAnswer::No, 3}}) {
            MainWindowHarness h;
            addNovaAndVega(h);
            h.game.write("ORBDescriptor/Nova.edt",
                         newDescriptorText(TempGameFolder::systemRecord("Nova", 5)));
            QVERIFY(h.start());
            h.prompts.answerMessage(answer);
            h.choose("Nova");
            QCOMPARE(h.prompts.asked().size(), std::size_t(1));
            QCOMPARE(h.prompts.asked().back().caption, QStringLiteral("Backup Exists"));
            QCOMPARE(h.prompts.asked().back().text,
                     QStringLiteral(
                         "There is a backup for this solar system, would you like to edit it?"));
            QCOMPARE(h.prompts.asked().back().buttons, PromptButtons::YesNo);
            QCOMPARE(h.record().PlanetCount, planets);
        }
    }

    void saveCommitsAndWritesTheStarPictureAsBitmap() {
        MainWindowHarness h;
        QImage star(16, 16, QImage::Format_RGB32);
        star.fill(Qt::magenta);
        QVERIFY(star.save(QString::fromStdString(h.game.path("PICTURES/NovaSun.png").string())));
        h.game.write("PICTURES/NovaSunrise.bmp", "another system's strip");
        openNova(h, true);
        QVERIFY(h.window().picStar->showsOwnPicture());
        QVERIFY(h.window().mnuStarPic->isChecked());

        h.window().cmdSave->click();
        QVERIFY(contains(h.descriptor("Nova", ".orb"), ",0,4\r\n"));
        QVERIFY(h.store().IsEditing());  // a fresh working copy
        QVERIFY(!h.store().IsModified());
        QVERIFY(!h.game.exists("PICTURES/NovaSun.png"));
        QVERIFY(h.game.exists("PICTURES/NovaSunrise.bmp"));
        const QImage saved(QString::fromStdString(h.game.path("PICTURES/NovaSun.bmp").string()));
        QCOMPARE(saved.size(), QSize(16, 16));
        QCOMPARE(saved.pixelColor(5, 5), QColor(Qt::magenta));
        QCOMPARE(h.prompts.asked().size(), std::size_t(0));
    }

    void saveAsAsksAgainAfterNoAndKeepsTheOldSystem() {
        MainWindowHarness h;
        QImage strip(3 * 160, 120, QImage::Format_RGB32);
        strip.fill(Qt::darkGreen);
        QVERIFY(strip.save(QString::fromStdString(h.game.path("PICTURES/Nova.bmp").string())));
        openNova(h, true);
        const std::string oldSaved = h.descriptor("Nova", ".orb");
        const std::string oldStrip = h.game.read("PICTURES/Nova.bmp");

        h.prompts.answerInput(QStringLiteral("Vega"));
        h.prompts.answerMessage(PromptAnswer::No);
        h.prompts.answerInput(QStringLiteral("Orion"));
        h.action("mnuFSaveAs")->trigger();
        const auto& asked = h.prompts.asked();
        QCOMPARE(asked.size(), std::size_t(3));
        QCOMPARE(asked[0].text, QStringLiteral("Please enter the new name of this system."));
        QCOMPARE(asked[0].defaultText, QStringLiteral("Nova"));
        QCOMPARE(asked[1].text, QStringLiteral("This system aready exists.  Are you sure you "
                                               "want to overwrite?"));
        QCOMPARE(asked[1].icon, PromptIcon::Exclamation);
        QCOMPARE(asked[2].kind, ScriptedPrompts::Kind::Input);

        QCOMPARE(h.record().Name, std::string("Orion"));
        QCOMPARE(h.selected(), QStringLiteral("Orion"));
        QCOMPARE(h.window().lblName->text(), QStringLiteral("Orion"));  // it showed the old name
        QVERIFY(contains(h.descriptor("Orion", ".orb"), ",0,4\r\n"));
        QCOMPARE(h.descriptor("Nova", ".orb"), oldSaved);
        QVERIFY(!h.game.exists("ORBDescriptor/Nova.edt"));
        QVERIFY(h.game.exists("ORBDescriptor/Orion.edt"));
        QCOMPARE(h.window().cboSystems->count(), 3);
        // The pictures go with the new name; the old system keeps its own.
        QVERIFY(h.game.exists("PICTURES/Orion.bmp"));
        QCOMPARE(h.game.read("PICTURES/Nova.bmp"), oldStrip);

        // Under its own name it asks to overwrite too, and nothing new is listed.
        h.prompts.answerInput(QStringLiteral("Orion"));
        h.prompts.answerMessage(PromptAnswer::Yes);
        h.action("mnuFSaveAs")->trigger();
        QCOMPARE(h.prompts.messageTexts().size(), 2);
        QCOMPARE(h.record().Name, std::string("Orion"));
        QCOMPARE(h.window().cboSystems->count(), 3);
        QCOMPARE(h.prompts.unexpectedCount(), 0);
    }

    void newCustomSystemIsCreatedAndOpened() {
        MainWindowHarness h;
        openNova(h);
        auto typeName = [](const QString& name) {
            return [name](QDialog& dialog) {
                auto* add = qobject_cast<frmNewSS*>(&dialog);
                QVERIFY(add);
                add->refresh();
                if (!add->chkCustom->isChecked()) add->chkCustom->click();
                add->txtName->setText(name);
                add->cmdOK->click();
            };
        };
        h.onDialog(typeName(QStringLiteral("Orion")));
        h.window().cmdAdd->click();
        QCOMPARE(h.dialogsRun(), 1);
        QCOMPARE(h.selected(), QStringLiteral("Orion"));
        QCOMPARE(h.record().PlanetCount, 0);
        QVERIFY(h.game.exists("ORBDescriptor/Orion.orb"));
        QVERIFY(h.game.exists("ORBDescriptor/Orion.edt"));
        QVERIFY(!h.game.exists("ORBDescriptor/Nova.edt"));

        // An existing name is refused and nothing is overwritten.
        const std::string vega = h.descriptor("Vega", ".orb");
        h.onDialog(typeName(QStringLiteral("Vega")));
        h.action("mnuFNew")->trigger();
        QVERIFY(!h.prompts.messageTexts().isEmpty());
        QCOMPARE(h.descriptor("Vega", ".orb"), vega);
        QCOMPARE(h.record().Name, std::string("Orion"));
        QCOMPARE(h.window().cboSystems->count(), 3);
    }

    void deleteRemovesOnlyThisSystemsFiles() {
        MainWindowHarness h;
        h.addSystem(TempGameFolder::systemRecord("NovaPrime", 1));
        for (const char* picture : {"Nova.bmp", "NovaSun.bmp", "NovaPrime.bmp", "NovaPrimeSun.bmp"})
            h.game.write(std::string("PICTURES/") + picture, "picture");
        openNova(h);

        h.prompts.answerMessage(PromptAnswer::No);
        h.window().cmdDelete->click();
        const auto& asked = h.prompts.asked().back();
        QCOMPARE(asked.text, QStringLiteral("Are you sure you want to delete Nova?"));
        QCOMPARE(asked.buttons, PromptButtons::YesNo);
        QCOMPARE(asked.icon, PromptIcon::Exclamation);
        QCOMPARE(asked.defaultButton, std::optional<PromptAnswer>(PromptAnswer::No));
        QVERIFY(h.game.exists("ORBDescriptor/Nova.orb"));
        QCOMPARE(h.selected(), QStringLiteral("Nova"));

        h.prompts.answerMessage(PromptAnswer::Yes);
        h.action("mnuFDelete")->trigger();
        for (const char* gone : {"ORBDescriptor/Nova.orb", "ORBDescriptor/Nova.edt",
                                 "PICTURES/Nova.bmp", "PICTURES/NovaSun.bmp"})
            QVERIFY2(!h.game.exists(gone), gone);
        for (const char* kept :
             {"ORBDescriptor/NovaPrime.orb", "PICTURES/NovaPrime.bmp", "PICTURES/NovaPrimeSun.bmp"})
            QVERIFY2(h.game.exists(kept), kept);
        QCOMPARE(h.indexOf("Nova"), -1);
        QCOMPARE(h.window().cboSystems->currentIndex(), -1);
        QVERIFY(!h.window().cmdSave->isEnabled());
        QVERIFY(!h.window().picStar->hasPicture());
        QCOMPARE(h.window().lblName->text(), QString());
    }

    void clearPlanetsAsksForConfirmation() {
        MainWindowHarness h;
        openNova(h);
        h.store().SetName(1, "Cinder");
        const std::string before = h.descriptor("Nova");

        h.prompts.answerMessage(PromptAnswer::No);
        h.action("mnuFClear")->trigger();
        QCOMPARE(h.prompts.asked().back().caption, QStringLiteral("Confirmation"));
        QCOMPARE(h.prompts.asked().back().text,
                 QStringLiteral(
                     "Are you sure you want to clear all planets, their messages, and pictures?"));
        QCOMPARE(h.descriptor("Nova"), before);

        h.prompts.answerMessage(PromptAnswer::Yes);
        h.action("mnuFClear")->trigger();
        QCOMPARE(h.record().PlanetCount, 0);
        const std::string after = h.descriptor("Nova");
        QVERIFY(!contains(after, "[2]"));
        QVERIFY(!contains(after, "Halcyon"));
        QVERIFY(!contains(after, "Cinder"));
        QVERIFY(contains(after, "PlanetPics = NNN"));
        QVERIFY(!h.action("mnuPOrder")->isEnabled());
    }

    void exitAsksToSave() {
        MainWindowHarness h;
        openNova(h, true);
        h.prompts.answerMessage(PromptAnswer::Cancel);
        QVERIFY(!h.window().close());  // the close box
        QVERIFY(h.window().isVisible());
        QCOMPARE(h.prompts.asked().back().text,
                 QStringLiteral("Do you want to save before exiting?"));
        QVERIFY(h.store().IsModified());
        h.prompts.answerMessage(PromptAnswer::No);
        QVERIFY(h.window().close());
        QVERIFY(!h.game.exists("ORBDescriptor/Nova.edt"));
        QVERIFY(contains(h.descriptor("Nova", ".orb"), ",0,3\r\n"));

        MainWindowHarness again;
        openNova(again, true);
        again.prompts.answerMessage(PromptAnswer::Yes);
        again.action("mnuFExit")->trigger();
        QVERIFY(!again.window().isVisible());
        QVERIFY(contains(again.descriptor("Nova", ".orb"), ",0,4\r\n"));
        QVERIFY(!again.game.exists("ORBDescriptor/Nova.edt"));
        QCOMPARE(again.prompts.unexpectedCount(), 0);
    }

    void displayAsteroidsIsRemembered() {
        Settings::setDisplayAsteroids(true);
        MainWindowHarness h;
        openNova(h);
        QVERIFY(h.action("mnuPDetail")->isChecked());
        h.action("mnuPDetail")->trigger();
        QCOMPARE(Settings::text(Settings::kDisplayAsteroids, QString()), QStringLiteral("0"));
        MainWindowHarness again;
        QVERIFY(again.start());
        QVERIFY(!again.action("mnuPDetail")->isChecked());
        Settings::setDisplayAsteroids(true);
    }

    // Last: the application quitting closes every window.
    void quittingAsksNothingAndKeepsTheWorkingCopy() {
        MainWindowHarness h;
        openNova(h, true);
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
        QVERIFY(!h.window().isVisible());
        QCOMPARE(h.prompts.asked().size(), std::size_t(0));
        QVERIFY(contains(h.descriptor("Nova"), ",0,4\r\n"));
        QVERIFY(contains(h.descriptor("Nova", ".orb"), ",0,3\r\n"));
    }
};

QTEST_MAIN(frmSSEditLifecycleTest)
#include "frmSSEditLifecycleTest.moc"
