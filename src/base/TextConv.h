#pragma once
// Conversions between display text and numbers with the lenient C semantics the drive tool has
// always used: leading blanks skipped, an optional sign, digits up to the first other character,
// 0 when nothing converts. "12a" is 12, "abc" is 0, " 7" is 7.

#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace quillon {

int Atoi(QStringView text);
double Atof(QStringView text);
// Unsigned conversion in base 2, 8, 10 or 16, stopping at the first character that is not a
// digit of the base; saturates at the largest unsigned long.
unsigned long Strtoul(QStringView text, int base);

// printf-style helpers for the fixed formats of display values.
QString FormatFixed(double value, int decimals);  // "%.Nf"

// Text from a file that may come from an older Windows tool: a UTF-8 byte-order mark is dropped;
// bytes that are valid UTF-8 are read as UTF-8, anything else as GB18030 (the Chinese code page
// those tools wrote), so Chinese names arrive intact instead of as replacement characters.
QString DecodeLegacyText(QByteArrayView bytes);
// The GB18030 decoding through glibc's iconv, which DecodeLegacyText falls back on where Qt is
// built without a GB18030 codec. A byte that starts no character becomes U+FFFD.
QString DecodeGb18030WithIconv(QByteArrayView bytes);

}  // namespace quillon
