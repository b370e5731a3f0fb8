#include "rooms/WizardPicture.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace orr::ui {

WizardPicture::WizardPicture(int step, QWidget* parent) : QWidget(parent), step_(step) {
    setObjectName(QStringLiteral("imgStep%1").arg(step));
    setMinimumSize(96, 120);
}

void WizardPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette& colours = palette();
    painter.fillRect(rect(), colours.color(QPalette::Dark));
    const qreal side = std::min(width(), height()) * 0.7;
    const QRectF square((width() - side) / 2, (height() - side) / 2, side, side);
    const QColor ink = colours.color(QPalette::Light);
    const QColor accent = colours.color(QPalette::Highlight).lighter(140);
    painter.setPen(QPen(ink, std::max<qreal>(1.5, side / 40)));
    if (step_ == 1) {
        // A compass: the four doors and the way up.
        const QPointF c = square.center();
        const qreal r = side / 2;
        painter.drawEllipse(c, r * 0.9, r * 0.9);
        painter.setBrush(accent);
        for (int d = 0; d < 4; ++d) {
            const qreal a = d * M_PI / 2;
            const QPointF tip(c.x() + std::sin(a) * r * 0.8, c.y() - std::cos(a) * r * 0.8);
            const QPointF left(c.x() + std::sin(a - 0.5) * r * 0.2,
                               c.y() - std::cos(a - 0.5) * r * 0.2);
            const QPointF right(c.x() + std::sin(a + 0.5) * r * 0.2,
                                c.y() - std::cos(a + 0.5) * r * 0.2);
            painter.drawPolygon(QPolygonF({tip, left, c, right}));
        }
        return;
    }
    // A grid of areas; on the last step the first area is marked as the way in.
    const int cells = 3;
    const qreal cell = side / cells;
    for (int x = 0; x < cells; ++x) {
        for (int y = 0; y < cells; ++y) {
            const QRectF area(square.left() + x * cell, square.top() + y * cell, cell, cell);
            painter.setBrush(step_ == 2 && x == 0 && y == 0 ? accent : Qt::NoBrush);
            painter.drawRect(area.adjusted(cell * 0.12, cell * 0.12, -cell * 0.12, -cell * 0.12));
        }
    }
    painter.setBrush(Qt::NoBrush);
    for (int i = 0; i < cells; ++i) {
        for (int j = 0; j + 1 < cells; ++j) {
            const qreal a = square.left() + (j + 1) * cell;
            const qreal b = square.top() + (i + 0.5) * cell;
            painter.drawLine(QPointF(a - cell * 0.12, b), QPointF(a + cell * 0.12, b));
            const qreal c = square.left() + (i + 0.5) * cell;
            const qreal d = square.top() + (j + 1) * cell;
            painter.drawLine(QPointF(c, d - cell * 0.12), QPointF(c, d + cell * 0.12));
        }
    }
}

}  // namespace orr::ui
