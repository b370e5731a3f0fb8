#include "editor/CanvasPainter.h"

#include <QPainter>
#include <QPen>
#include <algorithm>
#include <array>

#include "store/OrbitGeometry.h"
#include "store/Tables.h"

namespace orr::ui {

QColor CanvasPainter::paletteColour(int index) {
    static const std::array<QColor, 16> palette = {
        QColor(0, 0, 0),       QColor(0, 0, 128),   QColor(0, 128, 0),   QColor(0, 128, 128),
        QColor(128, 0, 0),     QColor(128, 0, 128), QColor(128, 128, 0), QColor(192, 192, 192),
        QColor(128, 128, 128), QColor(0, 0, 255),   QColor(0, 255, 0),   QColor(0, 255, 255),
        QColor(255, 0, 0),     QColor(255, 0, 255), QColor(255, 255, 0), QColor(255, 255, 255),
    };
    return palette[static_cast<std::size_t>(index & 15)];
}

QColor CanvasPainter::ringColour(const Scene& scene, int planet, int normalColour) {
    if (planet != scene.highlighted) return paletteColour(normalColour);
    return paletteColour(scene.locked ? kLockedColour : kHighlightColour);
}

void CanvasPainter::paintBelt(QPainter& painter, const Scene& scene, int planet,
                              const QColor& colour) {
    const SystemRecord& record = *scene.record;
    const double angle = OrbitGeometry::planetAngle(planet, record.PlanetCount);
    const double degreesPerRadian = 180.0 / OrbitGeometry::kPi;
    // Canvas angles turn clockwise on screen (y grows downwards); Qt's arcs turn the other way.
    for (const auto& arc : OrbitGeometry::beltArcs(record.planet(planet).Position, angle)) {
        const QRectF box(-arc.radius, -arc.radius, 2 * arc.radius, 2 * arc.radius);
        const int start = static_cast<int>(-arc.startAngle * degreesPerRadian * 16);
        const int span = static_cast<int>(-arc.sweep * degreesPerRadian * 16);
        painter.setPen(QPen(colour, 0));
        painter.drawArc(box, start, span);
    }
}

void CanvasPainter::paint(QPainter& painter, const QRectF& area, const Scene& scene) {
    painter.fillRect(area, paletteColour(kBackgroundColour));
    if (!scene.star.isNull()) {
        // Nearest neighbour: a 16 x 16 picture stays pixel-sharp when enlarged.
        painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
        painter.drawImage(scene.starRect, scene.star);
    }
    if (!scene.record || scene.unitsPerPixel <= 0) return;
    const SystemRecord& record = *scene.record;
    const int count = std::clamp<int>(record.PlanetCount, 0, kMaxPlanets);

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.translate(scene.starCentre);
    painter.scale(1.0 / scene.unitsPerPixel, 1.0 / scene.unitsPerPixel);
    painter.setBrush(Qt::NoBrush);

    for (int i = 1; i <= count; ++i) {
        const PlanetRecord& planet = record.planet(i);
        const double radius = planet.Position;
        if (planet.PlanetClass != 0) {
            QPen pen(ringColour(scene, i, kOrbitColour), 0);  // 0: one pixel at any scale
            painter.setPen(pen);
            painter.drawEllipse(QPointF(0, 0), radius, radius);
        } else if (scene.displayAsteroids) {
            paintBelt(painter, scene, i, ringColour(scene, i, kBeltColour));
        } else {
            QPen pen(ringColour(scene, i, kBeltColour), 0, Qt::DotLine);
            painter.setPen(pen);
            painter.drawEllipse(QPointF(0, 0), radius, radius);
        }
    }

    for (int i = 1; i <= count; ++i) {
        const PlanetRecord& planet = record.planet(i);
        if (OrbitGeometry::discRadius(planet) <= 0) continue;
        // In a small window a small planet would shrink below a pixel and vanish: it keeps the
        // size of the smallest planet at the game's own scale.
        const double radius =
            std::max(OrbitGeometry::discRadius(planet), kSmallestDisc * scene.unitsPerPixel);
        const int classIndex = std::clamp<int>(planet.PlanetClass, 0, 14);
        const QColor colour = paletteColour(Tables::ClassColours[classIndex]);
        const auto centre = OrbitGeometry::planetCentre(record, i);
        painter.setPen(QPen(colour, 0));
        painter.setBrush(colour);
        painter.drawEllipse(QPointF(centre.x, centre.y), radius, radius);
    }
    painter.restore();
}

}  // namespace orr::ui
