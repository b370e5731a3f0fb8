#include "platform/QtText.h"

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

}  // namespace orr::ui
