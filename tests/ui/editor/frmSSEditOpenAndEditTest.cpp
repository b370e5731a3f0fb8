// The main window opening damaged systems and systems with a backup, and the edits that must
// not lose or invent anything: names the game cannot store, an unchanged display name, and one
// picture slot per planet.

#include <QtTest>

#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QStandardPaths>

#include "editor/CanvasPainter.h"
#include "editor/SystemCanvas.h"
#include "platform/QtText.h"
#include "platform/Settings.h"
#include "store/SystemOperations.h"
#include "store/Tables.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;
using orr::test::TempGameFolder;

namespace {

const QString kSnowman = QString::fromUtf8("\u2603");

QColor colourAt(MainWindowHarness& h, OrbitGeometry::Point units) {
    const QImage picture = h.window().picSolarSystem->grab().toImage();
    const QPointF at = h.window().picSolarSystem->toPixels(units) * picture.devicePixelRatio();
    return picture.pixelColor(at.toPoint());
}

}  // namespace

class frmSSEditOpenAndEditTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        QStandardPaths::setTestModeEnabled(true);
        Settings::setDisplayAsteroids(true);
    }

    void aDamagedSystemShowsItsReadablePlanetsOnly() {
        MainWindowHarness h;
        h.addSystem(MainWindowHarness::spacedSystem("Aaa", 3));
        // Bbb's second planet line is damaged: the first is kept, nothing after the damage.
        h.game.write(
            "ORBDescriptor/Bbb.orb",
            TempGameFolder::crlf({"[General]", ";SolarSystem", ";\"Bbb\",2,3", ";550,3,0,0,11,0",
                                  ";700,x,0,0,1,0", ";1300,3,0,0,11,0"}));
        QVERIFY(h.start());
        h.choose("Aaa");
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
        QCOMPARE(QGuiApplication::overrideCursor(), nullptr);

        QCOMPARE(h.record().PlanetCount, 1);
        QCOMPARE(h.window().lblName->text(), QStringLiteral("Bbb"));
        const QColor classK = CanvasPainter::paletteColour(Tables::ClassColours[11]);
        QCOMPARE(colourAt(h, h.planetCentre(1)), classK);
        // Aaa's third planet stood at 1000 units on the right; nothing of Aaa is drawn.
        QCOMPARE(colourAt(h, {1000, 0}), QColor(Qt::black));
    }

    void theBackupQuestionIsAskedWithTheNormalCursor() {
        MainWindowHarness h;
        h.addSystem(TempGameFolder::systemRecord("Nova", 2));
        h.game.write("ORBDescriptor/Nova.edt",
                     newDescriptorText(TempGameFolder::systemRecord("Nova", 3)));
        QVERIFY(h.start());
        bool hourglassAtQuestion = true;
        h.prompts.answerMessageWith([&](const MessagePrompt& asked) {
            const QCursor* cursor = QGuiApplication::overrideCursor();
            hourglassAtQuestion = cursor && cursor->shape() == Qt::WaitCursor;
            return asked.caption == QStringLiteral("Backup Exists") ? PromptAnswer::Yes
                                                                    : PromptAnswer::Cancel;
        });
        h.choose("Nova");
        QCOMPARE(h.prompts.asked().size(), std::size_t(1));
        QVERIFY(!hourglassAtQuestion);
        QCOMPARE(h.record().PlanetCount, 3);
        QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
    }

    void namesTheGameCannotStoreAreAskedForAgain() {
        MainWindowHarness h;
        h.addSystem(MainWindowHarness::spacedSystem("Nova", 2));
        QVERIFY(h.start());
        h.choose("Nova");
        h.prompts.answerInput(QStringLiteral("Zeph") + kSnowman + QStringLiteral("r"));
        h.prompts.answerMessage(PromptAnswer::Ok);
        h.prompts.answerInput(QStringLiteral("Zephyr"));
        h.pickPlanetMenu(2, "mnuDescription");
        QCOMPARE(h.prompts.messageTexts(), QStringList({unstorableMessage(kSnowman)}));
        QCOMPARE(planetName(h.store(), 2), std::string("Zephyr"));

        // The star's description: refused, then left as it was.
        h.prompts.answerInput(kSnowman);
        h.prompts.answerMessage(PromptAnswer::Ok);
        h.prompts.answerInput(std::nullopt);
        h.pickStarMenu("mnuStarDesc");
        QCOMPARE(h.store().GetName(0, ""), std::string(kNotUsed));

        // The display name box stays open with the text until it can be stored.
        QLineEdit* box = h.window().txtName;
        QTest::mouseClick(h.window().lblName, Qt::LeftButton);
        box->setText(QStringLiteral("Hel") + kSnowman + QStringLiteral("os"));
        h.prompts.answerMessage(PromptAnswer::Ok);
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(h.prompts.messageTexts().size(), 3);
        QVERIFY(box->isVisible());
        QCOMPARE(h.record().trimmedDisplayName(), std::string("Nova"));
        box->setText(QStringLiteral("Helios"));
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!box->isVisible());
        QCOMPARE(h.record().trimmedDisplayName(), std::string("Helios"));
        QCOMPARE(h.prompts.unexpectedCount(), 0);
    }

    void enterOnTheUnchangedDisplayNameWritesNothing() {
        MainWindowHarness h;
        h.addSystem(TempGameFolder::systemRecord("Nova", 1));
        QVERIFY(h.start());
        h.choose("Nova");
        const std::string before = h.descriptor("Nova");
        QTest::mouseClick(h.window().lblName, Qt::LeftButton);
        QTest::keyClick(h.window().txtName, Qt::Key_Return);
        QVERIFY(!h.window().txtName->isVisible());
        QCOMPARE(h.descriptor("Nova"), before);
        QVERIFY(!h.store().IsModified());
    }

    void everyPlanetHasAPictureSlot() {
        MainWindowHarness h;
        h.addSystem(TempGameFolder::systemRecord("Empty", 0));
        QVERIFY(h.start());
        h.choose("Empty");
        PictureStrip& pictures = h.window().pictures();
        QCOMPARE(pictures.count(), 1);  // the first slot is always there
        for (int planets = 1; planets <= 3; ++planets) {
            h.action("mnuPAdd")->trigger();
            QCOMPARE(h.record().PlanetCount, planets);
            QCOMPARE(pictures.count(), planets);
        }

        h.prompts.answerMessage(PromptAnswer::Yes);
        h.action("mnuFClear")->trigger();
        QCOMPARE(h.record().PlanetCount, 0);
        QCOMPARE(pictures.count(), 1);
        h.action("mnuPAdd")->trigger();
        QCOMPARE(pictures.count(), 1);
        h.action("mnuPAdd")->trigger();
        QCOMPARE(pictures.count(), 2);

        // Deleting the single planet left empties its slot.
        h.pickPlanetMenu(2, "mnuDelete");
        pictures.setPicture(1, QImage(4, 4, QImage::Format_RGB32));
        h.pickPlanetMenu(1, "mnuDelete");
        QCOMPARE(h.record().PlanetCount, 0);
        QCOMPARE(pictures.count(), 1);
        QVERIFY(!pictures.hasAnyPicture());
    }
};

QTEST_MAIN(frmSSEditOpenAndEditTest)
#include "frmSSEditOpenAndEditTest.moc"
