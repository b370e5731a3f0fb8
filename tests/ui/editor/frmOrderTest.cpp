// "Reorder Planets": a move exchanges two planets everywhere they live (list, record,
// descriptor, pictures) while the orbits stay; the ends of the list do not move further.

#include <QtTest>

#include <QListWidget>
#include <QPushButton>

#include "editor/frmOrder.h"
#include "pictures/PictureStrip.h"
#include "platform/ScriptedPrompts.h"
#include "support/TempGameFolder.h"

using namespace orr;
using namespace orr::ui;
using orr::test::TempGameFolder;

namespace {

QStringList entries(const QListWidget* list) {
    QStringList texts;
    for (int i = 0; i < list->count(); ++i) texts << list->item(i)->text();
    return texts;
}

// Three planets told apart by size; 1 "Alpha" and 3 "Gamma" named, 2 unnamed. Planet 3 has
// custom pictures and messages in section [3]; planet 1 a red and planet 3 a blue picture.
struct Trio {
    TempGameFolder game;
    SystemStore store;
    PictureStrip strip;
    bool ok = false;

    Trio() {
        SystemRecord record = TempGameFolder::systemRecord("Trio", 3);
        for (int n = 1; n <= 3; ++n) record.planet(n).Size = static_cast<std::int16_t>(n);
        game.writeDescriptor(record, "[Names]\r\n1=Alpha\r\n3=Gamma\r\n[3]\r\nMessages=2\r\n");
        ok = game.open(store, "Trio") && store.SetGeneralFlag(kPlanetPics, 3, 3, true) &&
             store.SetGeneralFlag(kMessagesFlag, 3, 3, true);
        strip.SetupPics(3);
        QImage red(8, 8, QImage::Format_RGB32), blue(8, 8, QImage::Format_RGB32);
        red.fill(Qt::red);
        blue.fill(Qt::blue);
        strip.setPicture(1, red);
        strip.setPicture(3, blue);
        strip.clearDirty();
    }
};

}  // namespace

class frmOrderTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void aMoveExchangesThePlanetsEverywhereButTheEndsStay() {
        Trio trio;
        QVERIFY(trio.ok);
        ScriptedPrompts prompts;
        frmOrder dialog(trio.store, &trio.strip);
        dialog.fillPlanets();
        QCOMPARE(entries(dialog.lstPlanets), QStringList({"Alpha", "Planet 2", "Gamma"}));
        const std::string before = trio.game.read("ORBDescriptor/Trio.edt");
        dialog.lstPlanets->setCurrentRow(0);
        dialog.cmdUp->click();
        dialog.lstPlanets->setCurrentRow(2);
        dialog.cmdDown->click();
        QCOMPARE(trio.game.read("ORBDescriptor/Trio.edt"), before);
        QVERIFY(!trio.strip.isDirty());

        dialog.cmdUp->click();
        QCOMPARE(entries(dialog.lstPlanets), QStringList({"Alpha", "Gamma", "Planet 2"}));
        QCOMPARE(dialog.lstPlanets->currentRow(), 1);
        // Names, flags and sections went with the planet, and so did its record and picture,
        // while the orbits stayed in their slots.
        SystemStore& store = trio.store;
        QCOMPARE(store.GetName(2, "Trio"), std::string("Gamma"));
        QCOMPARE(store.GetName(3, "Trio"), std::string("Trio III"));
        QCOMPARE(store.GetGeneralFlag(kPlanetPics, 2), 1);
        QCOMPARE(store.GetGeneralFlag(kMessagesFlag, 3), 0);
        QCOMPARE(store.GetPlanetKey(2, "Messages", true), std::string("2"));
        QCOMPARE(store.record().planet(2).Size, 3);
        QCOMPARE(store.record().planet(2).Position, 430);
        QCOMPARE(trio.strip.picture(2).pixelColor(0, 0), QColor(Qt::blue));
        QVERIFY(!trio.strip.hasPicture(3));
        QVERIFY(trio.strip.isDirty());
        QCOMPARE(prompts.unexpectedCount(), 0);
    }

    void closingSavesTheSystemBlock() {
        Trio trio;
        ScriptedPrompts prompts;
        frmOrder dialog(trio.store, &trio.strip);
        QTimer::singleShot(0, &dialog, [&dialog] {
            dialog.lstPlanets->setCurrentRow(0);
            dialog.cmdDown->click();
            dialog.cmdClose->click();
        });
        QVERIFY(dialog.ShowSetOrder());
        QVERIFY(!dialog.isVisible());
        const std::string file = trio.game.read("ORBDescriptor/Trio.edt");
        QVERIFY(file.find(";400,2,0,0,1,0\r\n;430,1,0,0,1,0\r\n") != std::string::npos);
        QCOMPARE(prompts.unexpectedCount(), 0);
    }
};

QTEST_MAIN(frmOrderTest)
#include "frmOrderTest.moc"
