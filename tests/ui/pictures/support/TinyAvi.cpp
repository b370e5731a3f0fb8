#include "TinyAvi.h"

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QtEndian>

namespace orr::test {

namespace {

QByteArray u32(quint32 value) {
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

QByteArray u16(quint16 value) {
    QByteArray bytes(2, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

QByteArray chunk(const char* id, QByteArray data) {
    const QByteArray head = QByteArray(id, 4) + u32(static_cast<quint32>(data.size()));
    if (data.size() % 2) data += '\0';
    return head + data;
}

QByteArray list(const char* type, const QByteArray& data) {
    return chunk("LIST", QByteArray(type, 4) + data);
}

}  // namespace

QByteArray tinyAvi(int frames, QSize size) {
    const auto w = static_cast<quint32>(size.width());
    const auto h = static_cast<quint32>(size.height());
    QByteArray movi;  // no index: players read the frames in order
    for (int i = 0; i < frames; ++i) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(QColor::fromHsv(i * 360 / frames, 255, 255));
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "JPG");
        movi += chunk("00dc", buffer.data());
    }
    const QByteArray avih = u32(100000) + u32(0) + u32(0) + u32(0) +
                            u32(static_cast<quint32>(frames)) + u32(0) + u32(1) + u32(0) + u32(w) +
                            u32(h) + QByteArray(16, '\0');
    const QByteArray strh = QByteArray("vidsMJPG", 8) + u32(0) + u16(0) + u16(0) + u32(0) + u32(1) +
                            u32(10) + u32(0) + u32(static_cast<quint32>(frames)) + u32(0) +
                            u32(0xFFFFFFFF) + u32(0) + u16(0) + u16(0) + u16(w) + u16(h);
    const QByteArray strf = u32(40) + u32(w) + u32(h) + u16(1) + u16(24) + QByteArray("MJPG", 4) +
                            u32(w * h * 3) + QByteArray(16, '\0');
    const QByteArray body =
        list("hdrl",
             chunk("avih", avih) + list("strl", chunk("strh", strh) + chunk("strf", strf))) +
        list("movi", movi);
    return chunk("RIFF", QByteArray("AVI ", 4) + body);
}

}  // namespace orr::test
