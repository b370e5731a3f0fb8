#pragma once
// The one place where the game's 8-bit Windows-1252 texts become Qt strings and back. The core
// keeps bytes; windows show QStrings.

#include <QString>
#include <string>
#include <string_view>

namespace orr::ui {

QString toQString(std::string_view cp1252);
// Characters that Windows-1252 cannot hold become '?'.
std::string toBytes(const QString& text);

}  // namespace orr::ui
