#include "monitor/ParamSetFields.h"

#include <cstdlib>

namespace quillon {

double LimitValue(const QString& text) { return std::atof(text.toLatin1().constData()); }

QString FilterLimitText(const QString& previous, const QString& text)
{
    for (const QChar ch : text)
        if ((ch < u'0' || ch > u'9') && ch != u'.')
            return previous;
    if (LimitValue(text) >= kLimitCeiling)
        return previous;
    const qsizetype dot = text.indexOf(u'.');
    if (dot >= 0 && text.size() - dot - 1 > 2)
        return text.left(text.size() - 1);
    return text;
}

int CheckLimits(GraphSettings& settings)
{
    for (int c = 0; c < kGraphChannels; ++c) {
        const double minimum = LimitValue(settings.minimum[c]);
        const double maximum = LimitValue(settings.maximum[c]);
        if (!(maximum > minimum))
            return c;
        settings.minimum[c] = QString::number(minimum, 'f', 2);
        settings.maximum[c] = QString::number(maximum, 'f', 2);
    }
    return -1;
}

}  // namespace quillon
