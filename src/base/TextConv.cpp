#include "base/TextConv.h"

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

}  // namespace quillon
