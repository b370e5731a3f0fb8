// The main window's planet and star commands, from its menus, the canvas's context menus, the
// dialogs and the display-name box, and Edit > Undo and Redo as users meet them: each command
// reaches the session as the step Edit names, the keys undo and redo it where they should, and
// the modified mark follows. What each command does to the system is checked with the session.

#include <QtTest>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>

#include "editor/StarView.h"
#include "editor/SystemCanvas.h"
#include "editor/frmPlanet.h"
#include "platform/QtText.h"
#include "platform/Settings.h"
#include "session/SystemEdits.h"
#include "store/SystemStore.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;

namespace {

// "Nova": `planets` planets on spaced orbits, planet 2 named Birch with a section of its own and
// custom messages on.
void openNova(MainWindowHarness& h, int planets = 3) {
    std::string text = newDescriptorText(MainWindowHarness::spacedSystem("Nova", planets));
    if (planets >= 2) text.replace(text.find("Messages = NN"), 13, "Messages = NY");
    h.game.write("ORBDescriptor/Nova.orb", text + "[Names]\r\n2=Birch\r\n[2]\r\nInfo=x\r\n");
    QVERIFY(h.start());
    h.choose("Nova");
}

QStringList listed(const QListWidget* list) {
    QStringList texts;
    for (int i = 0; i < list->count(); ++i) texts << list->item(i)->text();
    return texts;
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
            QCOMPARE(listed(list), QStringList({"Planet 1", "Birch", "Planet 3"}));
            list->setCurrentRow(2);
            dialog.findChild<QPushButton*>(QStringLiteral("cmdUp"))->click();
            // The list names each planet after its new place.
            QCOMPARE(listed(list), QStringList({"Planet 1", "Planet 2", "Birch"}));
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
            QCOMPARE(h.redoText(), QStringLiteral("&Redo ") + row.step);
            QVERIFY2(!h.window().isWindowModified(), qPrintable(row.step));
            QCOMPARE(h.descriptor("Nova"), saved);
        }
        QCOMPARE(h.dialogsRun(), 2);
        QVERIFY(lockedDuringDialog);
        QVERIFY(!h.canvas()->highlightLocked());
    }

    void aDragIsUndoneWholeAndRedoneByEitherKeyButNotFromTheNameBox() {
        MainWindowHarness h;
        openNova(h);
        h.canvas()->setFocus();
        h.drag(2, {{0, 650}, {0, 600}, {0, 560}, {0, 520}});
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
    }

    void namesAreKeptOrRefusedWhereTheyAreTyped() {
        MainWindowHarness h;
        openNova(h, 2);
        auto* label = h.find<QLabel>("lblName");
        auto* box = h.find<QLineEdit>("txtName");
        QTest::mouseClick(label, Qt::LeftButton);
        QCOMPARE(box->selectedText(), QStringLiteral("Nova"));
        box->setText(QStringLiteral("Helios"));
        QTest::keyClick(box, Qt::Key_Escape);
        QVERIFY(!box->isVisible());
        QCOMPARE(label->text(), QStringLiteral("Nova"));

        // Leaving the box for another control closes it and leaves the focus there.
        QTest::mouseClick(label, Qt::LeftButton);
        h.find<QWidget>("cboSystems")->setFocus(Qt::MouseFocusReason);
        QVERIFY(!box->isVisible() && h.find<QWidget>("cboSystems")->hasFocus());

        // Enter on the unchanged name is no step and no change.
        QTest::mouseClick(label, Qt::LeftButton);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!box->isVisible());
        QVERIFY(!h.session().isModified());

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
        QVERIFY(!h.session().isModified());
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
        QCOMPARE(h.find<StarView>("picStar")->toolTip(), QStringLiteral("Yellow Sun"));

        // The pictures, the package and the game's start are offered for an open system.
        for (const char* entry :
             {"mnuFTest", "mnuFPackage", "mnuPPics", "mnuPicture", "mnuStarPic"})
            QVERIFY2(h.action(entry)->isEnabled(), entry);

        // A star with a picture of its own has no type to choose. Messages opens the editor
        // with the planet's custom-messages switch.
        MainWindowHarness own;
        QImage star(16, 16, QImage::Format_RGB32);
        star.fill(Qt::cyan);
        QVERIFY(star.save(QString::fromStdString(own.game.path("PICTURES/novasun.BMP").string())));
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
        full.game.writeDescriptor(orr::test::TempGameFolder::systemRecord("Nova", 10));
        QVERIFY(full.start());
        full.choose("Nova");
        full.prompts.answerMessage(PromptAnswer::Ok);
        full.action("mnuPAdd")->trigger();
        QCOMPARE(full.prompts.messageTexts(), QStringList(QString::fromLatin1(kMaxPlanetsMessage)));
        full.pickPlanetMenu(2, nullptr);
        QVERIFY(!full.wasEnabled("mnuInsert"));
    }
};

QTEST_MAIN(frmSSEditMenusTest)
#include "frmSSEditMenusTest.moc"
