#include "testmode/StandardColour.h"

#include <array>

namespace orr::ui {

QColor standardColour(int index) {
    static const std::array<QColor, 16> palette = {
        QColor(0, 0, 0),       QColor(0, 0, 128),   QColor(0, 128, 0),   QColor(0, 128, 128),
        QColor(128, 0, 0),     QColor(128, 0, 128), QColor(128, 128, 0), QColor(192, 192, 192),
        QColor(128, 128, 128), QColor(0, 0, 255),   QColor(0, 255, 0),   QColor(0, 255, 255),
        QColor(255, 0, 0),     QColor(255, 0, 255), QColor(255, 255, 0), QColor(255, 255, 255),
    };
    return palette[static_cast<std::size_t>(index & 15)];
}

}  // namespace orr::ui
