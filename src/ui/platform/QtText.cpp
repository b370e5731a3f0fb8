#include "platform/QtText.h"

#include "text/Cp1252.h"

namespace orr::ui {

namespace {

text::Cp1252Conversion converted(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    return text::utf8ToCp1252Strict(std::string_view(utf8.constData(), utf8.size()));
}

QString fromUtf8(const std::string& utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace

QString toQString(std::string_view cp1252) {
    return fromUtf8(text::cp1252ToUtf8(cp1252));
}

std::string toBytes(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    return text::utf8ToCp1252(std::string_view(utf8.constData(), utf8.size()));
}

QString unstorableCharacters(const QString& text) {
    return fromUtf8(converted(text).unstorable);
}

QString unstorableMessage(const QString& characters) {
    const QByteArray utf8 = characters.toUtf8();
    return fromUtf8(text::unstorableMessage(std::string_view(utf8.constData(), utf8.size())));
}

std::optional<std::string> toStorableBytes(const QString& text) {
    text::Cp1252Conversion result = converted(text);
    if (!result.storable()) return std::nullopt;
    return std::move(result.bytes);
}

}  // namespace orr::ui
