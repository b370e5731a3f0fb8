#pragma once
// The standard 16-colour palette of the game's windows (0 black, 8 grey, 10 light green,
// 11 light cyan, 12 light red, 14 yellow, 15 white), by index.

#include <QColor>

namespace orr::ui {

QColor standardColour(int index);

}  // namespace orr::ui
