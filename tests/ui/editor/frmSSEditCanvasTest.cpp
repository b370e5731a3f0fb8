// The system canvas in the main window: what it draws at any size, which planet the pointer
// picks and how the highlight follows it, the info panel, and when the picture is rendered
// again.

#include <QtTest>

#include "editor/CanvasPainter.h"
#include "editor/InfoPanel.h"
#include "editor/StarView.h"
#include "editor/SystemCanvas.h"
#include "platform/Settings.h"
#include "store/Tables.h"
#include "support/MainWindowHarness.h"

using namespace orr;
using namespace orr::ui;
using orr::test::MainWindowHarness;

namespace {

// "Nova": planets on the orbits 400, 700, 1000, 1300. Planet 2 is inhabited by animals and
// named; planet 3 is an asteroid belt; planet 4 is large and of class K.
void openNova(MainWindowHarness& h) {
    SystemRecord record = MainWindowHarness::spacedSystem("Nova", 4);
    record.planet(2).Attributes = PlanetAttributes{2, 3, 1, 2, 0}.pack();
    record.planet(3).PlanetClass = 0;
    record.planet(3).Size = 0;
    record.planet(4).PlanetClass = 11;
    record.planet(4).Size = 5;
    QVERIFY(h.open(record, "[Names]\r\nS=A restless ember\r\n2=Halcyon\r\n"));
}

// A point straight above the star, `units` beyond planet n's orbit: far from every disc.
OrbitGeometry::Point outsideOrbit(MainWindowHarness& h, int n, double units) {
    return {0, -(h.record().planet(n).Position + units)};
}

QColor pixel(SystemCanvas* canvas, OrbitGeometry::Point units) {
    const QImage picture = canvas->grab().toImage();
    return picture.pixelColor((canvas->toPixels(units) * picture.devicePixelRatio()).toPoint());
}

}  // namespace

class frmSSEditCanvasTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        QStandardPaths::setTestModeEnabled(true);
        Settings::setDisplayAsteroids(true);
    }

    // What the canvas draws at any shape, which planet the pointer picks, the info panel, when
    // the picture is rendered again, and the highlight after a menu or dialog. (A drag is
    // checked with its undo.)
    void theCanvasDrawsAndPicks() {
        MainWindowHarness h;
        openNova(h);
        QCOMPARE(pixel(h.canvas(), h.planetCentre(4)),
                 CanvasPainter::paletteColour(Tables::ClassColours[11]));
        QCOMPARE(pixel(h.canvas(), {1900, -1900}), QColor(Qt::black));

        // The belt is drawn as rocks, the same every time, or as a dotted ring.
        const auto beltPixels = [&h] {
            const QImage picture = h.canvas()->grab().toImage();
            int lit = 0;
            for (int degrees = 200; degrees < 340; ++degrees) {
                const double a = degrees * OrbitGeometry::kPi / 180;
                for (double r = 970; r <= 1030; r += 5) {
                    const QPointF at = h.canvas()->toPixels({r * std::cos(a), r * std::sin(a)});
                    lit += picture.pixelColor((at * picture.devicePixelRatio()).toPoint()) !=
                           QColor(Qt::black);
                }
            }
            return lit;
        };
        const int rocks = beltPixels();
        QVERIFY(rocks > 0);
        h.action("mnuPDetail")->trigger();
        const int ring = beltPixels();
        QVERIFY(ring > 0 && ring != rocks);
        h.action("mnuPDetail")->trigger();
        QCOMPARE(beltPixels(), rocks);

        // Whatever the window's shape, the star stays in the middle and the outermost orbit fits.
        for (const QSize size : {QSize(600, 900), QSize(1200, 500)}) {
            h.window().resize(size);
            QCoreApplication::processEvents();
            SystemCanvas* c = h.canvas();
            const QPointF off = c->starCentre() - QPointF(c->width() / 2.0, c->height() / 2.0);
            QVERIFY(off.manhattanLength() <= 1);
            QVERIFY(c->toPixels({0, -OrbitGeometry::drawingExtent()}).y() >= 0);
            QVERIFY(c->toPixels({OrbitGeometry::drawingExtent(), 0}).x() <= c->width());
        }

        auto* info = h.find<InfoPanel>("picInfo");
        // How near an orbit must be is the core's rule; here the pointer's units.
        h.mouse(QEvent::MouseMove, outsideOrbit(h, 2, 50));
        QCOMPARE(h.canvas()->highlightedPlanet(), 2);
        QVERIFY(info->isVisible());
        h.mouse(QEvent::MouseMove, outsideOrbit(h, 2, 150));
        QCOMPARE(h.canvas()->highlightedPlanet(), 0);
        QVERIFY(!info->isVisible());
        h.mouse(QEvent::MouseMove, h.planetCentre(4));
        QCOMPARE(h.canvas()->highlightedPlanet(), 4);

        // Leaving the canvas clears the highlight unless it is locked.
        QEvent leave(QEvent::Leave);
        h.canvas()->setHighlightLocked(true);
        QApplication::sendEvent(h.canvas(), &leave);
        QCOMPARE(h.canvas()->highlightedPlanet(), 4);
        h.canvas()->setHighlightLocked(false);
        QApplication::sendEvent(h.canvas(), &leave);
        QCOMPARE(h.canvas()->highlightedPlanet(), 0);

        // The picture is rendered again only when the highlight changed.
        const int start = h.canvas()->renderCount();
        for (const double units : {10, 20, -20})
            h.mouse(QEvent::MouseMove, outsideOrbit(h, 2, units));
        QCOMPARE(h.canvas()->renderCount(), start + 1);
        h.mouse(QEvent::MouseMove, outsideOrbit(h, 2, 150));
        QCOMPARE(h.canvas()->renderCount(), start + 2);

        // The info panel describes the highlighted planet, by the name every window uses.
        h.mouse(QEvent::MouseMove, h.planetCentre(2));
        const auto shown = [info] {
            return QStringList({info->lblPName->text(), info->lblInh->text(), info->lblAdv->text(),
                                info->lblAtt->text(), info->lblEnr->text()});
        };
        QCOMPARE(shown(), QStringList({"Halcyon", "Animal", "Sub-Warp", "Fr Social", "Nuclear"}));
        h.mouse(QEvent::MouseMove, h.planetCentre(1));
        QCOMPARE(shown(), QStringList({"Planet 1", "No Life", "---", "---", "No Energy"}));
        QCOMPARE(h.find<StarView>("picStar")->toolTip(), QStringLiteral("A restless ember"));
        // A long name is shortened to the label's width.
        QLabel label;
        label.setFixedWidth(label.fontMetrics().horizontalAdvance(QStringLiteral("Halcyon...")));
        QCOMPARE(InfoPanel::FitName(&label, QStringLiteral("Halcyon")), QStringLiteral("Halcyon"));
        QCOMPARE(InfoPanel::FitName(&label, QStringLiteral("Halcyon Harbour of the Kelvari")),
                 QStringLiteral("Halcyon..."));
        label.setFixedWidth(label.fontMetrics().horizontalAdvance(QStringLiteral("..")));
        QCOMPARE(InfoPanel::FitName(&label, QStringLiteral("Halcyon")), QString());

        // After a menu or a dialog the highlight is where the pointer is now, not where it was.
        const auto pointAt = [&h](OrbitGeometry::Point units) {
            QCursor::setPos(h.canvas()->mapToGlobal(h.canvas()->toPixels(units).toPoint()));
        };
        h.whileMenuOpen([&] { pointAt({1900, -1900}); });
        h.pickPlanetMenu(2, nullptr);
        QCOMPARE(h.canvas()->highlightedPlanet(), 0);
        QVERIFY(!info->isVisible());

        h.whileMenuOpen([&] { pointAt(h.planetCentre(1)); });
        h.pickPlanetMenu(2, nullptr);
        QCOMPARE(h.canvas()->highlightedPlanet(), 1);
        QCOMPARE(info->lblPName->text(), QStringLiteral("Planet 1"));

        h.onDialog([&](QDialog& dialog) {
            pointAt({1900, -1900});
            dialog.reject();
        });
        h.pickPlanetMenu(2, "mnuProperties");
        QCOMPARE(h.canvas()->highlightedPlanet(), 0);
        QVERIFY(!info->isVisible());

        // The same when the window is active again after a dialog of its own (here: told so).
        h.mouse(QEvent::MouseMove, h.planetCentre(3));
        QCOMPARE(h.canvas()->highlightedPlanet(), 3);
        pointAt({1900, -1900});
        QEvent activated(QEvent::ActivationChange);
        QApplication::sendEvent(&h.window(), &activated);
        QVERIFY(!info->isVisible());

        // A planet renamed while the pointer stays on it shows its new name at once.
        h.prompts.answerInput(QStringLiteral("Zephyr"));
        h.pickPlanetMenu(1, "mnuDescription");
        QCOMPARE(h.canvas()->highlightedPlanet(), 1);
        QCOMPARE(info->lblPName->text(), QStringLiteral("Zephyr"));
    }

    // At the smallest size, with the innermost orbit allowed and the largest disc, the star
    // stays in sight and the pointer picks the planet wherever its disc is (planet 1 of eight
    // stands on the star's diagonal); the smallest planet is still seen.
    void aSmallWindowKeepsTheInnerPlanetInReach() {
        MainWindowHarness h;
        SystemRecord record = MainWindowHarness::spacedSystem("Nova", 8);
        for (int n = 1; n <= 8; ++n) record.planet(n).Position = static_cast<std::int16_t>(200 * n);
        record.planet(1).Size = 5;
        record.planet(2).Size = 1;
        QVERIFY(h.open(record));
        h.window().resize(h.window().minimumSizeHint());
        QCoreApplication::processEvents();
        SystemCanvas* canvas = h.canvas();
        QVERIFY(std::min(canvas->width(), canvas->height()) <= 300);
        QVERIFY(h.find<StarView>("picStar")->width() >= 8);
        QCOMPARE(pixel(canvas, h.planetCentre(2)),
                 CanvasPainter::paletteColour(Tables::ClassColours[1]));
        const QPointF centre = canvas->toPixels(h.planetCentre(1));
        const QPointF inward =
            (canvas->starCentre() - centre) / QLineF(canvas->starCentre(), centre).length();
        const double radius = OrbitGeometry::discRadius(record.planet(1)) / canvas->unitsPerPixel();
        for (const QPointF at : {centre, centre + inward * (radius - 0.5)}) {
            h.mouse(QEvent::MouseMove, {1900, -1900});
            QTest::mouseMove(canvas, at.toPoint());
            QCOMPARE(canvas->highlightedPlanet(), 1);
        }
    }
};

QTEST_MAIN(frmSSEditCanvasTest)
#include "frmSSEditCanvasTest.moc"
