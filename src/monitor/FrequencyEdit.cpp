#include "monitor/FrequencyEdit.h"

#include <cstdlib>

namespace quillon {

QString FilterFrequencyText(const QString& previous, const QString& text, double max)
{
    if (text.isEmpty())
        return text;
    const qsizetype dot = text.indexOf(QLatin1Char('.'));
    if (dot == 0 || text.indexOf(QLatin1Char('.'), dot + 1) >= 0)
        return previous;
    for (const QChar c : text) {
        if ((c < QLatin1Char('0') || c > QLatin1Char('9')) && c != QLatin1Char('.'))
            return previous;
    }
    if (std::atof(text.toLatin1().constData()) > max)
        return previous;
    if (dot > 0 && text.size() - dot - 1 > 2)
        return text.left(text.size() - 1);
    return text;
}

std::uint16_t FrequencyCommandValue(const QString& text, double nudge)
{
    const double hundredths = (std::atof(text.toLatin1().constData()) + nudge) * 100.0;
    return static_cast<std::uint16_t>(static_cast<long long>(hundredths) & 0xFFFF);
}

}  // namespace quillon
