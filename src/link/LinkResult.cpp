#include "link/LinkResult.h"

#include "base/Prompt.h"

#include <array>

namespace quillon {

QString ErrTypeText(int result)
{
    switch (result) {
    case ErrNone:
        return QString();
    case ErrCrc:
        return QStringLiteral("CRC parity error!");
    case ErrTimeout:
        return QStringLiteral("TimeOut!");
    default:
        return QStringLiteral("Communication error!");
    }
}

namespace {

struct ExceptionEntry {
    unsigned char code;
    const char* text;
};

constexpr std::array kExceptionTexts{
    ExceptionEntry{'Q', "Function Code Error "},
    ExceptionEntry{'R', "Address Error "},
    ExceptionEntry{'S', "Data Amount Error"},
    ExceptionEntry{'T', "DATA Over Range"},
};

}  // namespace

QString ExceptionText(unsigned char code)
{
    for (const auto& e : kExceptionTexts) {
        if (e.code == code)
            return QString::fromLatin1(e.text);
    }
    return QStringLiteral("Writing Mode Error ");
}

QString ExceptionErrorText(unsigned char code, int station)
{
    return QStringLiteral("Station Num %1").arg(station) + QLatin1Char('\n') + ExceptionText(code);
}

void ShowExceptionError(unsigned char code, int station)
{
    Prompt().Message(ExceptionErrorText(code, station));
}

}  // namespace quillon
