#include "rooms/RoomPicture.h"

#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace orr::ui {

namespace {

constexpr int kTiles = 6;              // floor tiles along one wall
constexpr qreal kDoorwayShare = 0.34;  // the doorway's share of a wall
// A door into a group without messages: the away team would find nothing there.
const QColor kWarningColour(0xB0, 0x3A, 0x00);

}  // namespace

RoomPicture::RoomPicture(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("pnlRoom"));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    lblRoom = new QLabel(this);
    lblRoom->setObjectName(QStringLiteral("lblRoom"));
    lblRoom->setAlignment(Qt::AlignCenter);
    QFont bold = lblRoom->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.25);
    lblRoom->setFont(bold);
    for (int d = 0; d < 4; ++d) {
        auto* label = new QLabel(this);
        label->setObjectName(QStringLiteral("lblDoor%1").arg(d));
        label->setAlignment(Qt::AlignCenter);
        // The pointer of the message editor's clickable labels: this one walks through the door.
        label->setCursor(Qt::PointingHandCursor);
        QFont underlined = label->font();
        underlined.setUnderline(true);
        label->setFont(underlined);
        label->installEventFilter(this);
        label->hide();
        lblDoor[d] = label;
    }
}

void RoomPicture::setRoomName(const QString& name) {
    lblRoom->setText(name);
    lblRoom->setToolTip(name);
}

QString RoomPicture::roomName() const {
    return lblRoom->text();
}

void RoomPicture::setDoor(int d, const QString& destination, bool shown, bool leadsNowhere) {
    QLabel* label = lblDoor[d];
    label->setText(destination);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText,
                     leadsNowhere ? kWarningColour : this->palette().color(QPalette::Link));
    label->setPalette(palette);
    label->setToolTip(leadsNowhere ? QStringLiteral("%1 holds no messages yet: the door leads "
                                                    "nowhere. Click to go there.")
                                         .arg(destination)
                                   : QStringLiteral("Go to %1").arg(destination));
    label->setVisible(shown);
    if (open_[d] != shown) {
        open_[d] = shown;
        update();
    }
}

QSize RoomPicture::sizeHint() const {
    return {260, 260};
}

QSize RoomPicture::minimumSizeHint() const {
    const int line = fontMetrics().height();
    return {line * 11, line * 11};
}

QRectF RoomPicture::roomRect() const {
    const qreal side = std::min(width(), height());
    const qreal margin = std::max<qreal>(4.0, side * 0.03) + wallWidth() / 2;
    const qreal inner = side - 2 * margin;
    return {(width() - inner) / 2, (height() - inner) / 2, inner, inner};
}

qreal RoomPicture::wallWidth() const {
    return std::max<qreal>(3.0, std::min(width(), height()) / 26.0);
}

void RoomPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF room = roomRect();
    const qreal wall = wallWidth();

    // The floor, in tiles, so that the room reads as a place of its own size.
    const QColor floor = palette().color(QPalette::Base);
    painter.fillRect(room, floor);
    painter.setPen(QPen(palette().color(QPalette::Midlight), 1.0));
    for (int i = 1; i < kTiles; ++i) {
        const qreal step = room.width() * i / kTiles;
        painter.drawLine(QPointF(room.left() + step, room.top()),
                         QPointF(room.left() + step, room.bottom()));
        painter.drawLine(QPointF(room.left(), room.top() + step),
                         QPointF(room.right(), room.top() + step));
    }

    // The walls, each broken by a doorway where a door is stored.
    const QColor stone = palette().color(QPalette::Dark).darker(140);
    painter.setPen(QPen(stone, wall, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const std::array<QPointF, 4> corners = {room.topLeft(), room.topRight(), room.bottomRight(),
                                            room.bottomLeft()};
    const qreal gap = room.width() * kDoorwayShare;
    for (int d = 0; d < 4; ++d) {
        const QPointF from = corners[d];
        const QPointF to = corners[(d + 1) % 4];
        if (!open_[d]) {
            painter.drawLine(from, to);
            continue;
        }
        const QPointF middle = (from + to) / 2;
        const QPointF along = (to - from) / room.width();
        painter.drawLine(from, middle - along * (gap / 2));
        painter.drawLine(middle + along * (gap / 2), to);
        // The door's jambs, across the wall.
        const QPointF across(-along.y() * wall, along.x() * wall);
        painter.save();
        painter.setPen(QPen(stone, wall / 2, Qt::SolidLine, Qt::FlatCap));
        for (const int side : {-1, 1}) {
            const QPointF jamb = middle + along * (side * gap / 2);
            painter.drawLine(jamb - across, jamb + across);
        }
        painter.restore();
    }
}

void RoomPicture::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeLabels();
}

void RoomPicture::placeLabels() {
    const QRectF room = roomRect();
    const qreal wall = wallWidth();
    const int line = fontMetrics().height() + 4;
    const qreal gap = room.width() * kDoorwayShare;
    const qreal inset = wall / 2 + 3;
    const qreal sideWidth = room.width() * 0.42;
    const std::array<QRectF, 4> places = {
        QRectF(room.center().x() - gap, room.top() + inset, 2 * gap, line),
        QRectF(room.right() - inset - sideWidth, room.center().y() - line / 2.0, sideWidth, line),
        QRectF(room.center().x() - gap, room.bottom() - inset - line, 2 * gap, line),
        QRectF(room.left() + inset, room.center().y() - line / 2.0, sideWidth, line)};
    for (int d = 0; d < 4; ++d) lblDoor[d]->setGeometry(places[d].toAlignedRect());
    lblDoor[1]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblDoor[3]->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    const qreal nameWidth = room.width() - 2 * sideWidth - 2 * inset;
    lblRoom->setGeometry(QRectF(room.center().x() - std::max(nameWidth, room.width() * 0.3) / 2,
                                room.center().y() + line * 0.9,
                                std::max(nameWidth, room.width() * 0.3), line * 1.4)
                             .toAlignedRect());
}

bool RoomPicture::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        for (int d = 0; d < 4; ++d) {
            if (watched != lblDoor[d]) continue;
            emit doorClicked(d);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace orr::ui
