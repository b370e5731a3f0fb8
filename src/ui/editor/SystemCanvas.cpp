#include "editor/SystemCanvas.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPainter>
#include <QRegion>
#include <algorithm>

#include "editor/CanvasPainter.h"
#include "editor/StarView.h"

namespace orr::ui {

namespace {

// Room kept between the star and the innermost planet's disc (canvas units).
constexpr double kStarMargin = 10;

}  // namespace

SystemCanvas::SystemCanvas(QWidget* parent) : QWidget(parent), picStar_(new StarView(this)) {
    setObjectName(QStringLiteral("picSolarSystem"));
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::ClickFocus);
    connect(picStar_, &StarView::pictureChanged, this, [this] { drawSystem(true); });
}

void SystemCanvas::setRecord(const SystemRecord* record) {
    record_ = record;
    highlighted_ = 0;
    dragged_ = 0;
}

void SystemCanvas::clearHighlight() {
    if (locked_ || dragged_ != 0 || highlighted_ == 0) return;
    highlighted_ = 0;
    drawSystem();
}

double SystemCanvas::unitsPerPixel() const {
    // The outermost allowed orbit with the largest disc, and a few pixels to spare, always fit.
    const double halfSide = std::max(1, std::min(width(), height()) / 2 - 4);
    return OrbitGeometry::drawingExtent() / halfSide;
}

QPointF SystemCanvas::starCentre() const {
    return {width() / 2.0, height() / 2.0};
}

void SystemCanvas::placeStar() {
    // The star stops short of the innermost planet's disc, so a planet is never hidden by it or
    // out of the mouse's reach; whole multiples of the 16-pixel picture while there is room, so
    // it stays sharp.
    double room = OrbitGeometry::kOutermostOrbit;
    if (record_ && record_->PlanetCount > 0) {
        const PlanetRecord& first = record_->planet(1);
        room = first.Position - OrbitGeometry::discRadius(first);
    }
    const double reach = 2 * std::max(0.0, room - kStarMargin) / unitsPerPixel();
    const int side = reach >= 16 ? std::min(48, static_cast<int>(reach) / 16 * 16)
                                 : std::max(8, static_cast<int>(reach));
    const QPointF centre = starCentre();
    picStar_->setGeometry(static_cast<int>(centre.x() - side / 2.0),
                          static_cast<int>(centre.y() - side / 2.0), side, side);
    // The room is a circle: the star takes the pointer only inside its own round, so the corners
    // of its square never hold back a planet from the mouse.
    picStar_->setMask(QRegion(0, 0, side, side, QRegion::Ellipse));
}

QPointF SystemCanvas::toPixels(OrbitGeometry::Point units) const {
    const double upp = unitsPerPixel();
    return starCentre() + QPointF(units.x / upp, units.y / upp);
}

OrbitGeometry::Point SystemCanvas::toUnits(const QPointF& pixels) const {
    const double upp = unitsPerPixel();
    const QPointF offset = pixels - starCentre();
    return {offset.x() * upp, offset.y() * upp};
}

bool SystemCanvas::drawSystem(bool force) {
    if (!force && rendered_ && current() == lastShown_) return false;
    placeStar();
    render();
    emit redrawn();
    return true;
}

void SystemCanvas::render() {
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(size()) * ratio).toSize();
    if (cache_.size() != pixels) cache_ = QPixmap(pixels.expandedTo({1, 1}));
    cache_.setDevicePixelRatio(ratio);

    CanvasPainter::Scene scene;
    const bool anything = record_ && !record_->Name.empty();
    scene.record = anything ? record_ : nullptr;
    scene.highlighted = highlighted_;
    scene.locked = locked_;
    scene.displayAsteroids = displayAsteroids_;
    scene.starCentre = starCentre();
    scene.unitsPerPixel = unitsPerPixel();
    scene.star = picStar_->picture();
    scene.starRect = picStar_->geometry();
    QPainter painter(&cache_);
    CanvasPainter::paint(painter, QRectF(QPointF(0, 0), QSizeF(size())), scene);
    painter.end();

    lastShown_ = current();
    rendered_ = true;
    ++renderCount_;
    update();
}

void SystemCanvas::paintEvent(QPaintEvent*) {
    if (!rendered_ || cache_.devicePixelRatio() != devicePixelRatioF()) render();
    QPainter painter(this);
    painter.drawPixmap(0, 0, cache_);
}

void SystemCanvas::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeStar();
    drawSystem(true);
}

void SystemCanvas::trackMouse(const QPointF& pixels) {
    if (locked_ || !record_ || record_->PlanetCount <= 0) return;
    const OrbitGeometry::Point mouse = toUnits(pixels);
    if (dragged_ == 0) {
        highlighted_ = OrbitGeometry::hitTest(*record_, mouse, unitsPerPixel());
        drawSystem();
        return;
    }
    const double d = OrbitGeometry::distance(mouse, {});
    const int position = OrbitGeometry::dragPosition(*record_, dragged_, d, unitsPerPixel());
    if (position != record_->planet(dragged_).Position) emit orbitDragged(dragged_, position);
}

void SystemCanvas::trackPointer() {
    const QPoint at = mapFromGlobal(QCursor::pos());
    if (rect().contains(at))
        trackMouse(at);
    else
        clearHighlight();
}

void SystemCanvas::mouseMoveEvent(QMouseEvent* event) {
    trackMouse(event->position());
}

void SystemCanvas::mousePressEvent(QMouseEvent* event) {
    trackMouse(event->position());
    if (locked_ || highlighted_ == 0) return;
    if (event->button() == Qt::LeftButton) {
        dragged_ = highlighted_;
        drawSystem();
        emit dragStarted(dragged_);
    } else if (event->button() == Qt::RightButton) {
        emit planetMenuRequested(highlighted_, event->globalPosition().toPoint());
    }
}

void SystemCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || dragged_ == 0) return;
    const int planet = dragged_;
    dragged_ = 0;
    drawSystem();
    emit dragFinished(planet);
}

void SystemCanvas::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    clearHighlight();
}

}  // namespace orr::ui
