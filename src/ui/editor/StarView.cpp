#include "editor/StarView.h"

#include <QMouseEvent>

namespace orr::ui {

StarView::StarView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picStar"));
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_NoSystemBackground);
}

void StarView::setPicture(const QImage& picture, bool ownPicture) {
    picture_ = picture;
    ownPicture_ = ownPicture && !picture.isNull();
    emit pictureChanged();
}

void StarView::clearPicture() {
    picture_ = QImage();
    ownPicture_ = false;
    setToolTip(QString());
    emit pictureChanged();
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
