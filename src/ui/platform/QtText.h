#pragma once
// The one place where the game's 8-bit Windows-1252 texts become Qt strings and back: a thin
// bridge over the core's conversion (text/Cp1252.h). The core keeps bytes; windows show QStrings.

#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace orr::ui {

QString toQString(std::string_view cp1252);
// Characters that Windows-1252 cannot hold become '?'. Use only for texts already checked
// with unstorableCharacters, or where a lossy form is wanted (display, file dialogs).
std::string toBytes(const QString& text);

// The distinct characters of text that Windows-1252 cannot hold, in order of appearance;
// empty when the whole text can be stored.
QString unstorableCharacters(const QString& text);

// The sentence a window shows when a typed text cannot be stored, naming the characters.
QString unstorableMessage(const QString& characters);

// The bytes of text, or nullopt when a character cannot be stored.
std::optional<std::string> toStorableBytes(const QString& text);

}  // namespace orr::ui
