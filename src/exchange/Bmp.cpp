#include "exchange/Bmp.h"

#include <QtEndian>

namespace quillon {
namespace {

void Put16(QByteArray& out, quint16 v) {
    const quint16 le = qToLittleEndian(v);
    out.append(reinterpret_cast<const char*>(&le), 2);
}
void Put32(QByteArray& out, quint32 v) {
    const quint32 le = qToLittleEndian(v);
    out.append(reinterpret_cast<const char*>(&le), 4);
}

}  // namespace

QByteArray BuildBmp32(int width, int height, const unsigned char* pixels, qsizetype bytesPerLine) {
    if (width <= 0 || height <= 0 || !pixels) width = height = 0;
    const qsizetype rowBytes = qsizetype(width) * 4;
    const auto imageBytes = static_cast<quint32>(rowBytes * height);
    QByteArray out;
    out.reserve(54 + imageBytes);
    Put16(out, 0x4D42);             // "BM"
    Put32(out, imageBytes + 54);    // file size
    Put32(out, 0);                  // reserved
    Put32(out, 54);                 // offset of the pixels
    Put32(out, 40);                 // information head
    Put32(out, static_cast<quint32>(width));
    Put32(out, static_cast<quint32>(height));  // positive: rows bottom up
    Put16(out, 1);                  // planes
    Put16(out, 32);                 // bits per pixel
    Put32(out, 0);                  // no compression
    Put32(out, imageBytes);
    Put32(out, 0);                  // pixels per metre, x and y: unspecified
    Put32(out, 0);
    Put32(out, 0);                  // colours used, important
    Put32(out, 0);
    for (int y = height - 1; y >= 0; --y)
        out.append(reinterpret_cast<const char*>(pixels + y * bytesPerLine), rowBytes);
    return out;
}

}  // namespace quillon
