#include "testmode/UpgradeShape.h"

#include <QPainter>

#include "testmode/StandardColour.h"
#include "testmode/TestOptions.h"

namespace orr::ui {

UpgradeShape::UpgradeShape(QWidget* parent) : QWidget(parent) {
    setFixedSize(sizeHint());
}

void UpgradeShape::setLevel(int level) {
    if (level == level_) return;
    level_ = level;
    update();
}

QColor UpgradeShape::fill() const {
    const int colour = TestOptions::UpgradeFill(level_);
    return colour < 0 ? palette().color(QPalette::Window) : standardColour(colour);
}

QColor UpgradeShape::border() const {
    return standardColour(TestOptions::UpgradeBorder(level_));
}

void UpgradeShape::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(border(), 2));
    painter.setBrush(fill());
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5, 5);
}

}  // namespace orr::ui
