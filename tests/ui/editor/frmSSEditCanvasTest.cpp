// The system canvas in the main window: what it draws, which planet the mouse picks, how an
// orbit is dragged, the info panel and when the picture is rendered again.

#include <QtTest>

#include <QLabel>
#include <QStandardPaths>

#include "editor/CanvasPainter.h"
#include "editor/InfoPanel.h"
#include "editor/StarView.h"
#include "editor/SystemCanvas.h"
#include "platform/Settings.h"
#include "store/FileIo.h"
#include "store/Tables.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;

namespace {

// "Nova": planets on the orbits 400, 700, 1000, 1300. Planet 2 is inhabited by animals and
// named; planet 3 is an asteroid belt.
void addNova(MainWindowHarness& h) {
    SystemRecord record = MainWindowHarness::spacedSystem("Nova", 4);
    record.planet(2).Attributes = PlanetAttributes{2, 3, 1, 2, 0}.pack();
    record.planet(3).PlanetClass = 0;
    record.planet(3).Size = 0;
    record.planet(4).PlanetClass = 11;  // K: light red
    record.planet(4).Size = 5;
    h.game.writeDescriptor(record, "[Names]\r\nS=A restless ember\r\n2=Halcyon\r\n");
}

// A point straight above the star, `units` beyond planet n's orbit: far from every disc.
OrbitGeometry::Point outsideOrbit(MainWindowHarness& h, int n, double units) {
    return {0, -(h.record().planet(n).Position + units)};
}

SystemCanvas* canvas(MainWindowHarness& h) {
    return h.window().picSolarSystem;
}

}  // namespace

class frmSSEditCanvasTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        QStandardPaths::setTestModeEnabled(true);
        Settings::setDisplayAsteroids(true);
    }

    void canvasShowsTheSystemItsBeltAndKeepsTheStarCentred() {
        MainWindowHarness h;
        addNova(h);
        QVERIFY(h.start());
        h.choose("Nova");
        const QImage picture = canvas(h)->grab().toImage();

        // Planet 4's disc is filled with its class colour, the sky around is black.
        const QPointF centre = canvas(h)->toPixels(h.planetCentre(4));
        const qreal ratio = picture.devicePixelRatio();
        QCOMPARE(picture.pixelColor((centre * ratio).toPoint()),
                 CanvasPainter::paletteColour(Tables::ClassColours[11]));
        QCOMPARE(picture.pixelColor(2, 2), QColor(Qt::black));

        // The belt is drawn as rocks, the same every time, or as a dotted ring.
        auto beltPixels = [&h] {
            // Count lit pixels on a thin band round the belt's orbit, away from any planet.
            const QImage picture = canvas(h)->grab().toImage();
            const qreal ratio = picture.devicePixelRatio();
            int lit = 0;
            for (int degrees = 200; degrees < 340; ++degrees) {
                const double a = degrees * OrbitGeometry::kPi / 180;
                for (double r = 970; r <= 1030; r += 5) {
                    const QPointF at = canvas(h)->toPixels({r * std::cos(a), r * std::sin(a)});
                    lit += picture.pixelColor((at * ratio).toPoint()) != QColor(Qt::black);
                }
            }
            return lit;
        };
        const int rocks = beltPixels();
        QVERIFY(rocks > 0);
        QCOMPARE(beltPixels(), rocks);  // the same rocks every time
        h.action("mnuPDetail")->trigger();
        const int ring = beltPixels();
        QVERIFY(ring > 0);
        QVERIFY(ring != rocks);
        h.action("mnuPDetail")->trigger();
        QCOMPARE(beltPixels(), rocks);

        // Whatever the window's shape, the star stays in the middle and the outermost orbit fits.
        for (const QSize size : {QSize(600, 900), QSize(1200, 500)}) {
            h.window().resize(size);
            QCoreApplication::processEvents();
            SystemCanvas* c = canvas(h);
            const QPointF off = c->starCentre() - QPointF(c->width() / 2.0, c->height() / 2.0);
            QVERIFY(std::abs(off.x()) <= 0.5 && std::abs(off.y()) <= 0.5);
            QVERIFY(c->toPixels({0, -OrbitGeometry::drawingExtent()}).y() >= 0);
            QVERIFY(c->toPixels({OrbitGeometry::drawingExtent(), 0}).x() <= c->width());
        }
    }

    void theMousePicksAnOrbitCloserThanSixtyUnitsAndTheInfoPanelDescribesIt() {
        MainWindowHarness h;
        addNova(h);
        QVERIFY(h.start());
        h.choose("Nova");
        h.mouse(QEvent::MouseMove, outsideOrbit(h, 2, 59));
        QCOMPARE(canvas(h)->highlightedPlanet(), 2);
        QVERIFY(h.window().picInfo->isVisible());
        // Just past 60 units (the last bit guards against rounding in the pixel mapping).
        h.mouse(QEvent::MouseMove, outsideOrbit(h, 2, 60.001));
        QCOMPARE(canvas(h)->highlightedPlanet(), 0);
        QVERIFY(!h.window().picInfo->isVisible());
        h.mouse(QEvent::MouseMove, outsideOrbit(h, 2, -59));
        QCOMPARE(canvas(h)->highlightedPlanet(), 2);
        // On a disc, the disc wins.
        h.mouse(QEvent::MouseMove, h.planetCentre(4));
        QCOMPARE(canvas(h)->highlightedPlanet(), 4);

        // Leaving the canvas clears the highlight unless it is locked.
        QEvent leave(QEvent::Leave);
        canvas(h)->setHighlightLocked(true);
        QApplication::sendEvent(canvas(h), &leave);
        QCOMPARE(canvas(h)->highlightedPlanet(), 4);
        canvas(h)->setHighlightLocked(false);
        QApplication::sendEvent(canvas(h), &leave);
        QCOMPARE(canvas(h)->highlightedPlanet(), 0);

        // The picture is rendered again only when the highlight or the system changed.
        const int start = canvas(h)->renderCount();
        h.mouse(QEvent::MouseMove, outsideOrbit(h, 2, 10));
        h.mouse(QEvent::MouseMove, outsideOrbit(h, 2, 20));
        h.mouse(QEvent::MouseMove, outsideOrbit(h, 2, -20));
        QCOMPARE(canvas(h)->renderCount(), start + 1);
        h.mouse(QEvent::MouseMove, outsideOrbit(h, 2, 150));
        QCOMPARE(canvas(h)->renderCount(), start + 2);
        h.window().DrawSystem();
        QCOMPARE(canvas(h)->renderCount(), start + 2);
        h.window().DrawSystem(true);
        QCOMPARE(canvas(h)->renderCount(), start + 3);

        // The info panel describes the highlighted planet.
        InfoPanel* info = h.window().picInfo;
        h.mouse(QEvent::MouseMove, h.planetCentre(2));
        QCOMPARE(info->lblPName->text(), QStringLiteral("Halcyon"));
        QCOMPARE(info->lblInh->text(), QStringLiteral("Animal"));
        QCOMPARE(info->lblAtt->text(), QStringLiteral("Fr Social"));
        QCOMPARE(info->lblEnr->text(), QStringLiteral("Nuclear"));
        // No name of its own, and no life: no attitude, no technology.
        h.mouse(QEvent::MouseMove, h.planetCentre(1));
        QCOMPARE(info->lblPName->text(), QStringLiteral("Planet 1"));
        QCOMPARE(info->lblInh->text(), QStringLiteral("No Life"));
        QCOMPARE(info->lblAtt->text(), QStringLiteral("---"));
        QCOMPARE(h.window().picStar->toolTip(), QStringLiteral("A restless ember"));
    }

    void fitNameShortensToTheLabelWidth() {
        QLabel label;
        label.setFixedWidth(label.fontMetrics().horizontalAdvance(QStringLiteral("Halcyon...")));
        QCOMPARE(InfoPanel::FitName(&label, QStringLiteral("Halcyon")), QStringLiteral("Halcyon"));
        const QString fitted =
            InfoPanel::FitName(&label, QStringLiteral("Halcyon Harbour of the Kelvari"));
        QCOMPARE(fitted, QStringLiteral("Halcyon..."));
        label.setFixedWidth(label.fontMetrics().horizontalAdvance(QStringLiteral("..")));
        QCOMPARE(InfoPanel::FitName(&label, QStringLiteral("Halcyon")), QString());
    }

    void dragMovesTheOrbitWithinItsLimits() {
        MainWindowHarness h;
        addNova(h);
        QVERIFY(h.start());
        h.choose("Nova");
        const auto edt = h.game.path("ORBDescriptor/Nova.edt");

        // Planet 1 towards the star stops at 200.
        h.mouse(QEvent::MouseButtonPress, h.planetCentre(1), Qt::LeftButton);
        QCOMPARE(canvas(h)->draggedPlanet(), 1);
        QVERIFY(h.store().IsModified());
        const auto marked = modificationTime(edt);
        const std::string markedText = h.descriptor("Nova");
        h.mouse(QEvent::MouseMove, {0, -250});
        QCOMPARE(h.record().planet(1).Position, 250);
        QVERIFY(!h.window().picInfo->isVisible());
        h.mouse(QEvent::MouseMove, {0, -20});
        QCOMPARE(h.record().planet(1).Position, 200);
        h.mouse(QEvent::MouseButtonRelease, {0, -20}, Qt::LeftButton);
        QCOMPARE(canvas(h)->draggedPlanet(), 0);
        // One mark for the whole drag; the moves themselves do not write.
        QCOMPARE(modificationTime(edt), marked);
        QCOMPARE(h.descriptor("Nova"), markedText);

        // The last planet outwards stops at 2000.
        h.mouse(QEvent::MouseButtonPress, h.planetCentre(4), Qt::LeftButton);
        h.mouse(QEvent::MouseMove, {5000, 0});
        QCOMPARE(h.record().planet(4).Position, 2000);
        h.mouse(QEvent::MouseButtonRelease, {5000, 0}, Qt::LeftButton);

        // A middle planet never reaches its neighbours' orbits.
        const double pixel = canvas(h)->unitsPerPixel();
        h.mouse(QEvent::MouseButtonPress, h.planetCentre(2), Qt::LeftButton);
        h.mouse(QEvent::MouseMove, {0, 1500});
        const int outer = h.record().planet(2).Position;
        QVERIFY(outer < 1000);
        QVERIFY(outer >= 1000 - std::ceil(pixel));
        h.mouse(QEvent::MouseMove, {0, 0});
        const int inner = h.record().planet(2).Position;
        QVERIFY(inner > 200);
        QVERIFY(inner <= 200 + std::ceil(pixel));
        h.mouse(QEvent::MouseButtonRelease, {0, 0}, Qt::LeftButton);

        // The new orbits reach the file with the next save.
        h.action("mnuFSave")->trigger();
        QVERIFY(h.descriptor("Nova", ".orb").find(";200,2,0,0,1,0\r\n") != std::string::npos);
    }
};

QTEST_MAIN(frmSSEditCanvasTest)
#include "frmSSEditCanvasTest.moc"
