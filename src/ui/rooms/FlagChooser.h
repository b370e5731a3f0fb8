#pragma once
// The flag chooser as the room windows use it: the message editor's "Choose a Flag" dialog, shown
// over `parent` and opened on `current` (empty: flag "A"); returns the chosen flag's character
// (the one it was opened with when the dialog was closed with its close box).

#include <QString>
#include <functional>

class QWidget;

namespace orr::ui {

using FlagChooser = std::function<QString(QWidget* parent, const QString& current)>;

}  // namespace orr::ui
