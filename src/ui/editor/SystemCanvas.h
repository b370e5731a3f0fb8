#pragma once
// The system canvas: the open system seen from above with the star in the middle. The mouse
// highlights a planet, drags its orbit in and out, and asks for the planet's context menu. The
// canvas shows the record it is given and never changes it: a drag is reported as orbit moves,
// which the window makes commands of.
//
// The picture is rendered once into a cache and only rendered again when something it shows has
// changed: the open system, the highlight, the lock or the drag; the window forces a redraw for
// everything else (a changed record, the asteroid option). A resize renders again by itself.

#include <QPixmap>
#include <QWidget>

#include "store/OrbitGeometry.h"
#include "store/SystemRecord.h"

namespace orr::ui {

class StarView;

class SystemCanvas : public QWidget {
    Q_OBJECT
  public:
    explicit SystemCanvas(QWidget* parent = nullptr);

    // The record shown; nullptr shows an empty sky.
    void setRecord(const SystemRecord* record);
    // Which system is open (the list index); part of what decides whether to redraw.
    void setSystemIndex(int index) { systemIndex_ = index; }
    void setDisplayAsteroids(bool on) { displayAsteroids_ = on; }
    bool displayAsteroids() const { return displayAsteroids_; }

    int highlightedPlanet() const { return highlighted_; }
    void setHighlightedPlanet(int planet) { highlighted_ = planet; }
    bool highlightLocked() const { return locked_; }
    void setHighlightLocked(bool locked) { locked_ = locked; }
    int draggedPlanet() const { return dragged_; }
    // Drops the highlight unless it is locked; redraws when that changed anything.
    void clearHighlight();
    // The highlight follows the pointer where it is now (after a menu or dialog closed).
    void trackPointer();

    // Renders again when the system, highlight, lock or drag changed since the last rendering, or
    // always when forced. Returns whether it rendered.
    bool drawSystem(bool force = false);
    int renderCount() const { return renderCount_; }

    StarView* star() const { return picStar_; }

    // The mapping between widget pixels and canvas units (origin at the star's centre).
    double unitsPerPixel() const;
    QPointF starCentre() const;
    QPointF toPixels(OrbitGeometry::Point units) const;
    OrbitGeometry::Point toUnits(const QPointF& pixels) const;

    QSize sizeHint() const override { return {560, 560}; }
    QSize minimumSizeHint() const override { return {240, 240}; }

  signals:
    // After each rendering: the window brings the info panel, name and star tip up to date.
    void redrawn();
    // A left press on a planet: its orbit follows the mouse until the button is released.
    void dragStarted(int planet);
    // During a drag: the planet's orbit should now be `position`.
    void orbitDragged(int planet, int position);
    void dragFinished(int planet);
    void planetMenuRequested(int planet, const QPoint& globalPos);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    struct Shown {
        int systemIndex = -1;
        int highlighted = 0;
        bool locked = false;
        int dragged = 0;
        bool operator==(const Shown&) const = default;
    };

    void render();
    void placeStar();
    void trackMouse(const QPointF& pixels);
    Shown current() const { return {systemIndex_, highlighted_, locked_, dragged_}; }

    const SystemRecord* record_ = nullptr;
    StarView* picStar_;
    QPixmap cache_;
    Shown lastShown_;
    bool rendered_ = false;
    int renderCount_ = 0;
    int systemIndex_ = -1;
    int highlighted_ = 0;
    bool locked_ = false;
    int dragged_ = 0;
    bool displayAsteroids_ = true;
};

}  // namespace orr::ui
