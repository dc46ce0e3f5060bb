#include "monitor/GraphCsv.h"

#include <QSaveFile>
#include <QStringList>

#include <algorithm>

namespace quillon {

QByteArray GraphCsvText(const CGraphStore& store, const GraphSettings& settings)
{
    QStringList lines;
    const auto head = [&](const QString& first, const std::array<QString, kGraphChannels>& f) {
        lines << QStringList{first, f[0], f[1], f[2], f[3]}.join(u',');
    };
    head(QString(), settings.channelName);
    head(QStringLiteral("Min"), settings.minimum);
    head(QStringLiteral("Max"), settings.maximum);
    std::size_t rows = store.timeTexts.size();
    for (const auto& texts : store.valueTexts)
        rows = std::min(rows, texts.size());
    for (std::size_t i = 0; i < rows; ++i) {
        QStringList fields{QString::number(i)};
        for (const auto& texts : store.valueTexts)
            fields << texts[i];
        fields << store.timeTexts[i];
        lines << fields.join(u',');
    }
    return lines.join(QStringLiteral("\r\n")).toUtf8();
}

bool WriteGraphCsv(const CGraphStore& store, const GraphSettings& settings, const QString& path,
                   QString& error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        error = file.errorString();
        return false;
    }
    const QByteArray text = GraphCsvText(store, settings);
    if (file.write(text) != text.size() || !file.commit()) {
        error = file.errorString();
        return false;
    }
    return true;
}

}  // namespace quillon
