#pragma once
// Every control carries its name as its objectName: tests, style sheets and the access-key check
// find it by that name.

#include <QString>

namespace orr::ui {

template <typename Widget>
Widget* named(Widget* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}

}  // namespace orr::ui
