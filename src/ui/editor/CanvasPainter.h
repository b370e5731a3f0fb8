#pragma once
// Paints the open system as seen from above: the star, then orbits, asteroid belts and planet
// discs round it, so planets always stand above the star. Works in canvas units; the caller says
// where the star is and how many units a pixel is.

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QRectF>

#include "store/SystemRecord.h"

class QPainter;

namespace orr::ui {

class CanvasPainter {
  public:
    // The 16 colours of the classic palette the class colours index into.
    static QColor paletteColour(int index);

    static constexpr int kOrbitColour = 3;        // cyan
    static constexpr int kBeltColour = 8;         // dark grey
    static constexpr int kHighlightColour = 12;   // light red
    static constexpr int kLockedColour = 13;      // light magenta
    static constexpr int kBackgroundColour = 0;   // black: space
    static constexpr double kSmallestDisc = 1.5;  // pixels: a planet's disc is never smaller

    struct Scene {
        const SystemRecord* record = nullptr;
        int highlighted = 0;  // 0 none
        bool locked = false;  // the highlighted planet's context menu is open
        bool displayAsteroids = true;
        QPointF starCentre;  // in pixels
        double unitsPerPixel = 15;
        QImage star;  // drawn under the planets, in starRect (pixels)
        QRectF starRect;
    };

    // Clears the painter's whole area to space and draws the scene.
    static void paint(QPainter& painter, const QRectF& area, const Scene& scene);

  private:
    static QColor ringColour(const Scene& scene, int planet, int normalColour);
    static void paintBelt(QPainter& painter, const Scene& scene, int planet, const QColor& colour);
};

}  // namespace orr::ui
