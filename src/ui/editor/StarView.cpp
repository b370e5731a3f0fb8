#include "editor/StarView.h"

#include <QMouseEvent>
#include <QPainter>

#include "editor/StarStrip.h"

namespace orr::ui {

StarView::StarView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picStar"));
    setFixedSize(sizeHint());
    setAttribute(Qt::WA_TranslucentBackground);
}

QSize StarView::sizeHint() const {
    return {StarStrip::kCellSize * kZoom, StarStrip::kCellSize * kZoom};
}

void StarView::setPicture(const QImage& picture, bool ownPicture) {
    picture_ = picture;
    ownPicture_ = ownPicture && !picture.isNull();
    update();
}

void StarView::clearPicture() {
    picture_ = QImage();
    ownPicture_ = false;
    setToolTip(QString());
    update();
}

void StarView::paintEvent(QPaintEvent*) {
    if (picture_.isNull()) return;
    QPainter painter(this);
    // Nearest neighbour: a 16 x 16 picture must stay pixel-sharp when enlarged.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(rect(), picture_);
}

void StarView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        emit rightClicked(event->globalPosition().toPoint());
        event->accept();
        return;
    }
    QWidget::mousePressEvent(event);
}

void StarView::enterEvent(QEnterEvent* event) {
    emit hovered();
    QWidget::enterEvent(event);
}

}  // namespace orr::ui
