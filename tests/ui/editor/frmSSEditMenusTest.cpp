// The main window's menus and the context menus of planets and the star: what they offer and
// what their commands do to the working copy, the names, flags, sections and pictures.

#include <QtTest>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QStandardPaths>

#include "editor/PlanetCommands.h"
#include "editor/StarStrip.h"
#include "editor/StarView.h"
#include "editor/SystemCanvas.h"
#include "editor/frmOrder.h"
#include "editor/frmPlanet.h"
#include "platform/QtText.h"
#include "platform/Settings.h"
#include "store/SystemOperations.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;
using orr::test::TempGameFolder;

namespace {

const char* const kNames[] = {"Ash", "Birch", "Cedar", "Dune"};
const char* const kInfos[] = {"ash", "birch", "cedar", "dune"};

// [Names] for the first `planets` planets and message sections for planets 2..`planets`.
std::string namesAndSections(int planets) {
    std::string text = "[Names]\r\n";
    for (int n = 1; n <= planets && n <= 4; ++n)
        text += std::to_string(n) + "=" + kNames[n - 1] + "\r\n";
    for (int n = 2; n <= planets && n <= 4; ++n)
        text += "[" + std::to_string(n) + "]\r\nInfo=" + kInfos[n - 1] + "\r\n";
    return text;
}

// "Nova" with `planets` named planets (Ash, Birch, Cedar, Dune) on spaced orbits, message
// sections for planets 2..4, opened, with the "Messages" flag set for planet 2 and a picture of
// its own colour for every planet.
void openNova(MainWindowHarness& h, int planets = 4) {
    h.game.writeDescriptor(MainWindowHarness::spacedSystem("Nova", planets),
                           namesAndSections(planets));
    QVERIFY(h.start());
    h.choose("Nova");
    QVERIFY(h.store().SetGeneralFlag(kMessagesFlag, 2, planets, true));
    h.window().pictures().SetupPics(planets);
    for (int n = 1; n <= planets; ++n) {
        QImage picture(8, 8, QImage::Format_RGB32);
        picture.fill(QColor::fromHsv(n * 60, 255, 255));
        h.window().pictures().setPicture(n, picture);
    }
}

QColor pictureColour(MainWindowHarness& h, int n) {
    const QImage picture = h.window().pictures().picture(n);
    return picture.isNull() ? QColor() : picture.pixelColor(0, 0);
}

std::string names(MainWindowHarness& h) {
    std::string all;
    for (int n = 1; n <= h.record().PlanetCount; ++n) all += planetLabel(h.store(), n) + ",";
    return all;
}

}  // namespace

class frmSSEditMenusTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        QStandardPaths::setTestModeEnabled(true);
        Settings::setDisplayAsteroids(true);
    }

    void classAndNameEntriesChangeThePlanet() {
        MainWindowHarness h;
        openNova(h);
        h.store().record().planet(2).Moons = 3;
        h.pickPlanetMenu(2, "mnuPClass", 0);
        QVERIFY(h.wasChecked("mnuPClass", 1));
        QCOMPARE(h.record().planet(2).PlanetClass, 0);
        QCOMPARE(h.record().planet(2).Size, 0);
        QCOMPARE(h.record().planet(2).Moons, 0);
        QVERIFY(!h.window().picSolarSystem->highlightLocked());

        h.pickPlanetMenu(2, "mnuPClass", 3);
        QVERIFY(h.wasChecked("mnuPClass", 0));
        QCOMPARE(h.record().planet(2).PlanetClass, 3);
        QCOMPARE(h.record().planet(2).Size, 2);

        // The name question stores the name, or the default name for "default" in any case.
        h.prompts.answerInput(QStringLiteral("Zephyr"));
        h.pickPlanetMenu(2, "mnuDescription");
        const auto& asked = h.prompts.asked().back();
        QCOMPARE(asked.text, QStringLiteral("Please enter the name for Nova II.  Enter "
                                            "\"default\" or \"none\" to use the default name."));
        QCOMPARE(asked.defaultText, QStringLiteral("Birch"));
        QCOMPARE(planetName(h.store(), 2), std::string("Zephyr"));

        h.prompts.answerInput(std::nullopt);  // cancelled: no change
        h.pickPlanetMenu(2, "mnuDescription");
        // A name the game cannot store is refused and asked for again.
        h.prompts.answerInput(QString::fromUtf8("Zeph\u2603r"));
        h.prompts.answerMessage(PromptAnswer::Ok);
        h.prompts.answerInput(std::nullopt);
        h.pickPlanetMenu(2, "mnuDescription");
        QCOMPARE(h.prompts.messageTexts(),
                 QStringList({unstorableMessage(QString::fromUtf8("\u2603"))}));
        QCOMPARE(planetName(h.store(), 2), std::string("Zephyr"));

        h.prompts.answerInput(QStringLiteral("DEFAULT"));
        h.pickPlanetMenu(2, "mnuDescription");
        QCOMPARE(planetName(h.store(), 2), std::string("Nova II"));
        QCOMPARE(h.prompts.unexpectedCount(), 0);
    }

    void theEleventhPlanetIsRefused() {
        MainWindowHarness h;
        h.game.writeDescriptor(TempGameFolder::systemRecord("Nova", 10), namesAndSections(4));
        QVERIFY(h.start());
        h.choose("Nova");
        h.action("mnuPAdd")->trigger();
        QCOMPARE(h.prompts.messageTexts(), QStringList({QString::fromLatin1(kMaxPlanetsMessage)}));
        QCOMPARE(h.record().PlanetCount, 10);

        h.pickPlanetMenu(2, "mnuInsert");
        QVERIFY(!h.wasEnabled("mnuInsert"));
    }

    void insertMovesLaterPlanetsOutWithEverythingTheyOwn() {
        MainWindowHarness h;
        openNova(h, 3);
        const QColor birch = pictureColour(h, 2);
        const QColor cedar = pictureColour(h, 3);
        h.pickPlanetMenu(2, "mnuInsert");
        QVERIFY(h.wasEnabled("mnuInsert"));
        QCOMPARE(h.record().PlanetCount, 4);
        QCOMPARE(names(h), std::string("Ash,Planet 2,Birch,Cedar,"));
        // Orbits stay: the new planet takes Birch's, the later planets move out by one.
        QCOMPARE(h.record().planet(3).Position, 1000);
        QCOMPARE(pictureColour(h, 3), birch);
        QCOMPARE(pictureColour(h, 4), cedar);
        QVERIFY(!h.window().pictures().hasPicture(2));
    }

    void deleteMovesLaterPlanetsInWithEverythingTheyOwn() {
        MainWindowHarness h;
        openNova(h, 4);
        QVERIFY(h.store().SetGeneralFlag(kMessagesFlag, 3, 4, true));
        const QColor cedar = pictureColour(h, 3);
        h.pickPlanetMenu(2, "mnuDelete");
        QCOMPARE(h.prompts.asked().size(), std::size_t(0));
        QCOMPARE(h.record().PlanetCount, 3);
        QVERIFY(h.descriptor("Nova").find("[2]\r\nInfo=cedar\r\n") != std::string::npos);
        QCOMPARE(h.store().GetGeneralFlag(kMessagesFlag, 2), 1);
        QCOMPARE(h.window().pictures().count(), 3);
        QCOMPARE(pictureColour(h, 2), cedar);
    }

    void messagesAndPropertiesOpenTheirWindows() {
        MainWindowHarness h;
        openNova(h, 3);
        h.pickPlanetMenu(2, nullptr);
        QVERIFY(!h.wasEnabled("mnuMessages"));
        QVERIFY(!h.wasEnabled("mnuPicture"));

        int opened = 0;
        bool customMessages = false;
        h.window().setMessageEditorOpener([&](int planet, bool custom) {
            opened = planet;
            customMessages = custom;
            return custom;
        });
        h.pickPlanetMenu(3, "mnuMessages");
        QCOMPARE(opened, 3);
        QVERIFY(!customMessages);
        h.pickPlanetMenu(2, "mnuMessages");  // planet 2 uses custom messages
        QCOMPARE(opened, 2);
        QVERIFY(customMessages);

        // Properties open after the menu has closed, with the highlight locked meanwhile, and
        // their "Edit" reaches the same editor.
        QString title;
        bool lockedMeanwhile = false;
        bool editEnabled = false;
        h.onDialog([&](QDialog& dialog) {
            auto* properties = qobject_cast<frmPlanet*>(&dialog);
            QVERIFY(properties);
            title = dialog.windowTitle();
            lockedMeanwhile = h.window().picSolarSystem->highlightLocked();
            editEnabled = properties->cmdMsg->isEnabled();
            properties->findChild<QAbstractButton*>("gpInh2")->click();
            properties->cmdOK->click();
        });
        h.pickPlanetMenu(2, "mnuProperties");
        QCOMPARE(h.dialogsRun(), 1);
        QCOMPARE(title, QStringLiteral("Planet Properties - Birch"));
        QVERIFY(lockedMeanwhile);
        QVERIFY(editEnabled);
        QVERIFY(!h.window().picSolarSystem->highlightLocked());
        QCOMPARE(PlanetAttributes::unpack(h.record().planet(2).Attributes).Inhabited, 2);
    }

    void starMenuChangesTypeAndDescriptionButNoTypeForAnOwnPicture() {
        MainWindowHarness h;
        openNova(h, 2);
        h.pickStarMenu("mnuStarType", 5);
        QVERIFY(h.wasChecked("mnuStarType", 0));
        QVERIFY(h.wasEnabled("mnuType"));
        QVERIFY(!h.wasChecked("mnuStarPic"));
        QCOMPARE(h.record().StarType, 5);
        QCOMPARE(h.window().picStar->picture(), h.window().clpStars->cell(5));
        QCOMPARE(h.window().picStar->toolTip(), QStringLiteral("Neutron Star"));

        // The star's description: stored, or the type's name again for "none".
        h.prompts.answerInput(QStringLiteral("Twin embers"));
        h.pickStarMenu("mnuStarDesc");
        QCOMPARE(h.prompts.asked().back().text,
                 QStringLiteral("Please enter the description for Nova.  Enter \"default\" or "
                                "\"none\" to use the default name."));
        QCOMPARE(h.prompts.asked().back().defaultText, QStringLiteral("Neutron Star"));
        QCOMPARE(h.window().picStar->toolTip(), QStringLiteral("Twin embers"));
        h.prompts.answerInput(QStringLiteral("None"));
        h.pickStarMenu("mnuStarDesc");
        QCOMPARE(h.window().picStar->toolTip(), QStringLiteral("Neutron Star"));

        MainWindowHarness own;
        QImage star(16, 16, QImage::Format_RGB32);
        star.fill(Qt::cyan);
        QVERIFY(star.save(QString::fromStdString(own.game.path("PICTURES/novasun.BMP").string())));
        openNova(own, 2);
        QVERIFY(own.window().picStar->showsOwnPicture());
        own.pickStarMenu(nullptr);
        QVERIFY(!own.wasEnabled("mnuType"));
        QVERIFY(own.wasChecked("mnuStarPic"));
    }

    void setOrderExchangesPlanetsEverywhereButTheEndsStay() {
        MainWindowHarness h;
        openNova(h, 3);
        const QColor cedar = pictureColour(h, 3);
        QStringList listed;
        h.onDialog([&](QDialog& dialog) {
            auto* order = qobject_cast<frmOrder*>(&dialog);
            QVERIFY(order);
            for (int i = 0; i < order->lstPlanets->count(); ++i)
                listed << order->lstPlanets->item(i)->text();
            const std::string before = h.descriptor("Nova");
            order->lstPlanets->setCurrentRow(0);
            order->cmdUp->click();
            order->lstPlanets->setCurrentRow(2);
            order->cmdDown->click();
            QCOMPARE(h.descriptor("Nova"), before);  // the ends do not move further
            order->cmdUp->click();
            QCOMPARE(order->lstPlanets->currentRow(), 1);
            order->cmdClose->click();
        });
        h.action("mnuPOrder")->trigger();
        QCOMPARE(h.dialogsRun(), 1);
        QCOMPARE(listed, QStringList({"Ash", "Birch", "Cedar"}));
        // The names and pictures went with the planets; the orbits stayed.
        QCOMPARE(names(h), std::string("Ash,Cedar,Birch,"));
        QCOMPARE(pictureColour(h, 2), cedar);
        QCOMPARE(h.record().planet(2).Position, 700);
    }

    void displayNameIsEditedInPlaceAndOnePlanetHasNoOrder() {
        MainWindowHarness h;
        openNova(h, 1);
        QVERIFY(!h.action("mnuPOrder")->isEnabled());
        QLabel* label = h.window().lblName;
        QLineEdit* box = h.window().txtName;
        QTest::mouseClick(label, Qt::LeftButton);
        QVERIFY(box->isVisible());
        QCOMPARE(box->text(), QStringLiteral("Nova"));
        QCOMPARE(box->selectedText(), QStringLiteral("Nova"));
        box->setText(QStringLiteral("Helios"));
        QTest::keyClick(box, Qt::Key_Escape);
        QVERIFY(!box->isVisible());
        QCOMPARE(label->text(), QStringLiteral("Nova"));

        // Enter on the unchanged name writes nothing.
        const std::string before = h.descriptor("Nova");
        QTest::mouseClick(label, Qt::LeftButton);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!box->isVisible());
        QCOMPARE(h.descriptor("Nova"), before);

        // A name the game cannot store keeps the box open with the text.
        QTest::mouseClick(label, Qt::LeftButton);
        box->setText(QString::fromUtf8("Hel\u2603os"));
        h.prompts.answerMessage(PromptAnswer::Ok);
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(h.prompts.messageTexts().size(), 1);
        QVERIFY(box->isVisible());
        box->setText(QStringLiteral("Helios"));
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!box->isVisible());
        QCOMPARE(label->text(), QStringLiteral("Helios"));
        QCOMPARE(h.record().DisplayName, std::string("Helios              "));
        h.action("mnuPAdd")->trigger();
        QVERIFY(h.action("mnuPOrder")->isEnabled());
    }
};

QTEST_MAIN(frmSSEditMenusTest)
#include "frmSSEditMenusTest.moc"
