#include "messages/DirectionPicture.h"

#include <QPainter>
#include <QPainterPath>
#include <QTimer>

namespace orr::ui {

DirectionPicture::DirectionPicture(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picDirection"));
    tmrAnim_ = new QTimer(this);
    tmrAnim_->setObjectName(QStringLiteral("tmrAnim"));
    tmrAnim_->setInterval(kIntervalMs);
    connect(tmrAnim_, &QTimer::timeout, this, &DirectionPicture::advance);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize DirectionPicture::sizeHint() const {
    return {120, 36};
}

QSize DirectionPicture::minimumSizeHint() const {
    return sizeHint();
}

void DirectionPicture::setDirection(Direction direction) {
    direction_ = direction;
    frame_ = 0;
    update();
}

void DirectionPicture::start() {
    tmrAnim_->start();
}

void DirectionPicture::stop() {
    tmrAnim_->stop();
}

void DirectionPicture::advance() {
    frame_ = (frame_ + 1) % (kSteps * 4);
    update();
}

bool DirectionPicture::questionMarkShown() const {
    return (frame_ / 4) % 2 == 0;
}

void DirectionPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = rect();
    painter.fillRect(area, QColor(8, 10, 28));

    // The planet on the left, the ship on the right.
    const qreal mid = area.height() / 2;
    const qreal planetRadius = area.height() * 0.32;
    const QPointF planet(planetRadius + 4, mid);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(60, 140, 200));
    painter.drawEllipse(planet, planetRadius, planetRadius);

    const qreal shipX = area.width() - 6;
    QPainterPath ship;
    ship.moveTo(shipX - 18, mid - 7);
    ship.lineTo(shipX, mid);
    ship.lineTo(shipX - 18, mid + 7);
    ship.lineTo(shipX - 13, mid);
    ship.closeSubpath();
    painter.setBrush(QColor(200, 200, 210));
    painter.drawPath(ship);

    const qreal from = planet.x() + planetRadius + 6;
    const qreal to = shipX - 22;
    if (direction_ == Direction::Information) {
        if (!questionMarkShown()) return;
        QFont font = painter.font();
        font.setBold(true);
        font.setPixelSize(static_cast<int>(area.height() * 0.7));
        painter.setFont(font);
        painter.setPen(QColor(255, 220, 90));
        painter.drawText(QRectF(from, 0, to - from, area.height()), Qt::AlignCenter,
                         QStringLiteral("?"));
        return;
    }
    // Three circles a third of the way apart, travelling towards the receiving end.
    painter.setBrush(QColor(255, 220, 90));
    for (int i = 0; i < 3; ++i) {
        const int step = (frame_ + i * kSteps / 3) % kSteps;
        qreal t = static_cast<qreal>(step) / (kSteps - 1);
        if (direction_ == Direction::Response) t = 1 - t;
        painter.drawEllipse(QPointF(from + t * (to - from), mid), 2.5, 2.5);
    }
}

}  // namespace orr::ui
