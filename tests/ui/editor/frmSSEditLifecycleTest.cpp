// The main window's system lifecycle: start-up, opening with the revert, save and backup
// questions, Save, Save As, New, Delete, Clear Planets and the ways the program ends. The files
// these commands write are checked where the operations live; here one effect each.

#include <QtTest>

#include <QCheckBox>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStandardPaths>

#include "editor/StarStrip.h"
#include "editor/StarView.h"
#include "editor/frmNewSS.h"
#include "platform/QtText.h"
#include "platform/Settings.h"
#include "store/SystemOperations.h"
#include "support/MainWindowHarness.h"
#include "support/ReadOnlyFolder.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;
using orr::test::TempGameFolder;

namespace {

// Nova (3 planets, planet 2 named and with a section) and Vega (2 planets), both saved.
void addNovaAndVega(MainWindowHarness& h) {
    h.game.writeDescriptor(TempGameFolder::systemRecord("Nova", 3),
                           "[Names]\r\n2=Halcyon\r\n[2]\r\nInfo=harbour\r\n");
    h.game.writeDescriptor(TempGameFolder::systemRecord("Vega", 2));
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

QStringList entries(const QComboBox* box) {
    QStringList texts;
    for (int i = 0; i < box->count(); ++i) texts << box->itemText(i);
    texts.sort();
    return texts;
}

// The Add System dialog's answer: a custom system of the given name.
std::function<void(QDialog&)> typeCustomName(const QString& name) {
    return [name](QDialog& dialog) {
        auto* add = qobject_cast<frmNewSS*>(&dialog);
        QVERIFY(add);
        add->refresh();
        if (!add->chkCustom->isChecked()) add->chkCustom->click();
        add->txtName->setText(name);
        add->cmdOK->click();
    };
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
        QCOMPARE(entries(h.window().cboSystems), QStringList({"Nova", "Vega"}));
        QCOMPARE(h.window().cboSystems->currentIndex(), -1);
        QVERIFY(!h.window().cmdSave->isEnabled());
        QVERIFY(!h.window().cmdDelete->isEnabled());
        QVERIFY(!h.action("mnuFSaveAs")->isEnabled());
        QVERIFY(!h.window().mnuPlanet->isEnabled());
        QVERIFY(h.action("mnuFNew")->isEnabled());

        h.choose("Nova");
        QCOMPARE(h.record().PlanetCount, 3);
        QVERIFY(h.game.exists("ORBDescriptor/Nova.edt"));
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

    void choosingASystemAsksToRevertOrToSave() {
        MainWindowHarness h;
        openNova(h, true);
        // The open system again: revert, Cancel keeps the change.
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

        modify(h);
        const std::string saved = h.descriptor("Nova", ".orb");
        // Cancel: the list goes back to Nova, which stays open and modified.
        h.prompts.answerMessage(PromptAnswer::Cancel);
        h.choose("Vega");
        QCOMPARE(h.prompts.asked().back().text,
                 QStringLiteral("Do you want to save the current system before loading 'Vega'?"));
        QCOMPARE(h.prompts.asked().back().buttons, PromptButtons::YesNoCancel);
        QCOMPARE(h.selected(), QStringLiteral("Nova"));
        QVERIFY(h.store().IsModified());

        // No: the change is dropped.
        h.prompts.answerMessage(PromptAnswer::No);
        h.choose("Vega");
        QCOMPARE(h.record().Name, std::string("Vega"));
        QCOMPARE(h.descriptor("Nova", ".orb"), saved);

        // Yes: the change reaches the saved descriptor.
        modify(h);
        h.prompts.answerMessage(PromptAnswer::Yes);
        h.choose("Nova");
        QVERIFY(contains(h.descriptor("Vega", ".orb"), ",0,3\r\n"));
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
            bool hourglassAtQuestion = true;
            h.prompts.answerMessageWith([&](const MessagePrompt&) {
                const QCursor* cursor = QGuiApplication::overrideCursor();
                hourglassAtQuestion = cursor && cursor->shape() == Qt::WaitCursor;
                return answer;
            });
            h.choose("Nova");
            QVERIFY(!hourglassAtQuestion);
            QCOMPARE(h.prompts.asked().size(), std::size_t(1));
            QCOMPARE(h.prompts.asked().back().caption, QStringLiteral("Backup Exists"));
            QCOMPARE(h.prompts.asked().back().text,
                     QStringLiteral(
                         "There is a backup for this solar system, would you like to edit it?"));
            QCOMPARE(h.prompts.asked().back().buttons, PromptButtons::YesNo);
            QCOMPARE(h.record().PlanetCount, planets);
        }
    }

    void aDamagedSystemWarnsAndShowsWhatCouldBeRead() {
        MainWindowHarness h;
        h.game.write("ORBDescriptor/Bbb.orb",
                     TempGameFolder::crlf({"[General]", ";SolarSystem", ";\"Bbb\",2,3",
                                           ";550,3,0,0,11,0", ";700,99999,0,0,1,0"}));
        QVERIFY(h.start());
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);  // to see the hourglass go
        Qt::CursorShape cursorAtWarning = Qt::WaitCursor;
        h.prompts.answerMessageWith([&](const MessagePrompt&) {
            cursorAtWarning = QGuiApplication::overrideCursor()->shape();
            return PromptAnswer::Ok;
        });
        h.choose("Bbb");
        QCOMPARE(h.prompts.messageTexts().size(), 1);
        QVERIFY(h.prompts.messageTexts().front().contains(QStringLiteral("Bbb is damaged")));
        QCOMPARE(cursorAtWarning, Qt::ArrowCursor);
        QGuiApplication::restoreOverrideCursor();
        QCOMPARE(h.record().PlanetCount, 1);
        QCOMPARE(h.window().lblName->text(), QStringLiteral("Bbb"));
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

        QCOMPARE(h.selected(), QStringLiteral("Orion"));
        QCOMPARE(h.window().lblName->text(), QStringLiteral("Orion"));  // it showed the old name
        QVERIFY(contains(h.descriptor("Orion", ".orb"), ",0,4\r\n"));
        QCOMPARE(h.descriptor("Nova", ".orb"), oldSaved);
        QCOMPARE(h.window().cboSystems->count(), 3);
        // The pictures go with the new name; the old system keeps its own.
        QVERIFY(h.game.exists("PICTURES/Orion.bmp"));
        QCOMPARE(h.game.read("PICTURES/Nova.bmp"), oldStrip);

        // Over a listed name in another letter case: that entry takes the new spelling.
        h.prompts.answerInput(QStringLiteral("VEGA"));
        h.prompts.answerMessage(PromptAnswer::Yes);
        h.action("mnuFSaveAs")->trigger();
        QCOMPARE(h.prompts.messageTexts().size(), 2);
        QCOMPARE(entries(h.window().cboSystems), QStringList({"Nova", "Orion", "VEGA"}));
        QVERIFY(h.game.exists("PICTURES/VEGA.bmp"));  // the pictures replaced too

        // A name the game cannot store is refused and asked for again as typed.
        const QString snowman = QString::fromUtf8("Nova \u2603");
        h.prompts.answerInput(snowman);
        h.prompts.answerMessage(PromptAnswer::Ok);
        h.prompts.answerInput(std::nullopt);
        h.action("mnuFSaveAs")->trigger();
        QCOMPARE(h.prompts.messageTexts().last(), unstorableMessage(QString::fromUtf8("\u2603")));
        QCOMPARE(h.prompts.asked().back().defaultText, snowman);
        QCOMPARE(h.record().Name, std::string("VEGA"));
        QCOMPARE(h.prompts.unexpectedCount(), 0);
    }

    void aFreshWorkingCopyThatCannotBeMadeLeavesTheSystem() {
        MainWindowHarness h;
        openNova(h, true);
        // After the commit the working copy's name leads into a folder that cannot be written,
        // to a stale file that must not be taken for the fresh copy.
        const std::filesystem::path locked = h.game.path("locked");
        h.game.write("locked/Nova.edt", "stale");
        std::filesystem::create_symlink(locked / "Nova.edt", h.game.path("ORBDescriptor/NOVA.EDT"));
        const orr::test::ReadOnlyFolder readOnly(locked);
        if (!readOnly.enforced()) QSKIP("the folder cannot be made read-only here");

        h.window().cmdSave->click();
        QVERIFY(contains(h.descriptor("Nova", ".orb"), ",0,4\r\n"));
        QCOMPARE(h.prompts.messageTexts().size(), 1);
        QVERIFY(h.prompts.messageTexts().front().contains(QStringLiteral("working copy")));
        // No system is open: nothing can write into the saved descriptor behind a working copy.
        QVERIFY(!h.store().IsEditing());
        QCOMPARE(h.window().cboSystems->currentIndex(), -1);
        QVERIFY(!h.window().mnuPlanet->isEnabled());
    }

    void newCustomSystemIsCreatedAndOpened() {
        MainWindowHarness h;
        h.game.writeSystemList({"\"Sol\",3,2", "400,2,0,0,1,0", "430,3,1,0,13,0"});
        openNova(h);
        h.onDialog(typeCustomName(QStringLiteral("Orion")));
        h.window().cmdAdd->click();
        QCOMPARE(h.dialogsRun(), 1);
        QCOMPARE(h.selected(), QStringLiteral("Orion"));
        QVERIFY(h.game.exists("ORBDescriptor/Orion.edt"));
        QVERIFY(!h.game.exists("ORBDescriptor/Nova.edt"));

        // A custom name equal to a key of the game's list still makes a custom system.
        h.onDialog(typeCustomName(QStringLiteral("2Sol")));
        h.action("mnuFNew")->trigger();
        QCOMPARE(h.record().Name, std::string("2Sol"));
        QCOMPARE(h.record().PlanetCount, 0);
    }

    void clearPlanetsAndDeleteAskFirst() {
        MainWindowHarness h;
        h.game.writeDescriptor(TempGameFolder::systemRecord("NovaPrime", 1));
        h.game.write("PICTURES/NovaPrime.bmp", "picture");
        openNova(h);

        h.prompts.answerMessage(PromptAnswer::No);
        h.window().cmdDelete->click();
        const auto& asked = h.prompts.asked().back();
        QCOMPARE(asked.text, QStringLiteral("Are you sure you want to delete Nova?"));
        QCOMPARE(asked.buttons, PromptButtons::YesNo);
        QCOMPARE(asked.icon, PromptIcon::Exclamation);
        QCOMPARE(asked.defaultButton, std::optional<PromptAnswer>(PromptAnswer::No));
        QVERIFY(h.game.exists("ORBDescriptor/Nova.orb"));

        // Clear Planets asks too; its first picture slot stays, for the next planet added.
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
        QVERIFY(!contains(h.descriptor("Nova"), "Halcyon"));
        QVERIFY(!h.action("mnuPOrder")->isEnabled());
        QCOMPARE(h.window().pictures().count(), 1);
        h.action("mnuPAdd")->trigger();
        h.action("mnuPAdd")->trigger();
        QCOMPARE(h.window().pictures().count(), 2);

        h.prompts.answerMessage(PromptAnswer::Yes);
        h.action("mnuFDelete")->trigger();
        QVERIFY(!h.game.exists("ORBDescriptor/Nova.orb"));
        QVERIFY(h.game.exists("PICTURES/NovaPrime.bmp"));
        QCOMPARE(h.indexOf("Nova"), -1);
        QVERIFY(!h.window().cmdSave->isEnabled());
        QVERIFY(!h.window().picStar->hasPicture());
        QCOMPARE(h.prompts.unexpectedCount(), 0);
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
        QVERIFY(contains(h.descriptor("Nova", ".orb"), ",0,3\r\n"));

        MainWindowHarness again;
        openNova(again, true);
        again.prompts.answerMessage(PromptAnswer::Yes);
        again.action("mnuFExit")->trigger();
        QVERIFY(!again.window().isVisible());
        QVERIFY(contains(again.descriptor("Nova", ".orb"), ",0,4\r\n"));
        QVERIFY(!again.game.exists("ORBDescriptor/Nova.edt"));
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
