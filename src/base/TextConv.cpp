#include "base/TextConv.h"

#include <QStringDecoder>

#include <iconv.h>

#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdlib>

namespace quillon {
namespace {

// The C conversions work on bytes; display values are ASCII, anything else simply stops them.
QByteArray Narrow(QStringView text) { return text.toLatin1(); }

}  // namespace

int Atoi(QStringView text) {
    const QByteArray bytes = Narrow(text);
    // strtol instead of atoi: atoi's behaviour on overflow is undefined.
    const long v = std::strtol(bytes.constData(), nullptr, 10);
    if (v > INT_MAX) return INT_MAX;
    if (v < INT_MIN) return INT_MIN;
    return static_cast<int>(v);
}

double Atof(QStringView text) {
    // from_chars rather than strtod: strtod follows the process locale, and a desktop session in
    // a locale with a decimal comma would read "50.00" as 50.
    const QByteArray bytes = Narrow(text);
    const char* p = bytes.constData();
    const char* end = p + bytes.size();
    while (p < end && (*p == ' ' || (*p >= '\t' && *p <= '\r'))) ++p;
    bool negative = false;
    if (p < end && (*p == '+' || *p == '-')) negative = (*p++ == '-');
    if (p == end || *p == '+' || *p == '-') return 0.0;
    double v = 0.0;
    if (std::from_chars(p, end, v, std::chars_format::general).ec != std::errc()) return 0.0;
    return negative ? -v : v;
}

unsigned long Strtoul(QStringView text, int base) {
    const QByteArray bytes = Narrow(text);
    return std::strtoul(bytes.constData(), nullptr, base);
}

QString FormatFixed(double value, int decimals) {
    return QString::asprintf("%.*f", decimals, value);
}

QString DecodeGb18030WithIconv(QByteArrayView bytes) {
    const iconv_t cd = iconv_open("UTF-16LE", "GB18030");
    if (cd == reinterpret_cast<iconv_t>(-1)) return QString::fromLatin1(bytes);
    // GB18030 takes one to four bytes a character, each at most two UTF-16 units.
    QByteArray out(bytes.size() * 4 + 4, Qt::Uninitialized);
    char* in = const_cast<char*>(bytes.data());
    size_t inLeft = static_cast<size_t>(bytes.size());
    char* dst = out.data();
    size_t outLeft = static_cast<size_t>(out.size());
    while (inLeft > 0) {
        if (iconv(cd, &in, &inLeft, &dst, &outLeft) != static_cast<size_t>(-1)) break;
        if (errno == E2BIG) break;  // cannot happen with the size above
        // A byte that starts no character: a replacement character, and on with the next byte.
        if (outLeft < 2) break;
        *dst++ = char(0xFD);
        *dst++ = char(0xFF);
        outLeft -= 2;
        ++in;
        --inLeft;
    }
    iconv_close(cd);
    const qsizetype units = (out.size() - static_cast<qsizetype>(outLeft)) / 2;
    return QString(reinterpret_cast<const QChar*>(out.constData()), units);
}

QString DecodeLegacyText(QByteArrayView bytes) {
    if (bytes.startsWith("\xEF\xBB\xBF")) bytes = bytes.sliced(3);
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(bytes);
    if (!utf8.hasError()) return text;
    QStringDecoder gb("GB18030", QStringDecoder::Flag::Stateless);
    if (gb.isValid()) return gb.decode(bytes);
    return DecodeGb18030WithIconv(bytes);
}

}  // namespace quillon
