#include "platform/QtText.h"

#include <QStringList>

#include "text/Cp1252.h"

namespace orr::ui {

QString toQString(std::string_view cp1252) {
    const std::string utf8 = orr::text::cp1252ToUtf8(cp1252);
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string toBytes(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    return orr::text::utf8ToCp1252(std::string_view(utf8.constData(), utf8.size()));
}

QString unstorableCharacters(const QString& text) {
    QString found;
    // Whole code points, so a character outside the basic plane is judged (and named) once.
    for (const char32_t codePoint : text.toUcs4()) {
        const QString character = QString::fromUcs4(&codePoint, 1);
        if (toQString(toBytes(character)) != character && !found.contains(character)) {
            found += character;
        }
    }
    return found;
}

QString unstorableMessage(const QString& characters) {
    QStringList named;
    for (const char32_t codePoint : characters.toUcs4()) {
        named << QString::fromUcs4(&codePoint, 1);
    }
    return QStringLiteral(
               "The game cannot store these characters: %1\nPlease use other characters.")
        .arg(named.join(QStringLiteral(" ")));
}

std::optional<std::string> toStorableBytes(const QString& text) {
    if (!unstorableCharacters(text).isEmpty()) return std::nullopt;
    return toBytes(text);
}

}  // namespace orr::ui
