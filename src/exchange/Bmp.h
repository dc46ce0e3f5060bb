#pragma once
// The picture file of the scope: a BMP of 32 bits per pixel with the 14-byte file head (type
// "BM", size = image bytes + 54, data at 54) and the 40-byte information head (width, height,
// one plane, 32 bits, no compression), rows from the bottom up, width x 4 bytes each.

#include <QByteArray>

namespace quillon {

// `pixels` holds `height` rows of `width` 32-bit pixels (blue, green, red, unused in memory
// order, as a 32-bit RGB image keeps them) from the top down, `bytesPerLine` apart.
QByteArray BuildBmp32(int width, int height, const unsigned char* pixels, qsizetype bytesPerLine);

}  // namespace quillon
