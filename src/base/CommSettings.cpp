#include "base/CommSettings.h"

#include "base/Globals.h"
#include "base/SessionPlaces.h"
#include "base/TextConv.h"
#include "base/TextFile.h"

namespace quillon {

std::array<QString, 3> CommSettingsPlaces() {
    return SessionFilePlaces(g_strAppDir, QLatin1String(kCommSettingsName));
}
QString CommSettingsPrimaryPath() { return CommSettingsPlaces()[0]; }

void SaveCommSettings() {
    const QByteArray content =
        QString::asprintf("%d\n%d\n%d%d%d\n", g_nComPort, g_nBaudIndex, g_nDataBitsIndex,
                          g_nParityIndex, g_nStopBitsIndex)
            .toUtf8() +
        g_strStationList.toUtf8() + '\n';
    SaveSessionFileAt(CommSettingsPlaces(), content);
}

void ApplyCommSettingsLines(const std::vector<QString>& lines) {
    if (lines.size() > 0) g_nComPort = Atoi(lines[0]);
    if (lines.size() > 1) g_nBaudIndex = Atoi(lines[1]);
    // The three indices only come from a line of exactly three characters.
    if (lines.size() > 2 && lines[2].size() == 3) {
        const int dps = Atoi(lines[2]);
        g_nDataBitsIndex = dps / 100;
        g_nParityIndex = dps / 10 % 10;
        g_nStopBitsIndex = dps % 10;
    }
    if (lines.size() > 3) g_strStationList = lines[3];
}

void LoadCommSettings() {
    const auto lines = ReadSessionFileAt(CommSettingsPlaces(),
                                         [](const QString& path) { return ReadTextLines(path); });
    if (lines) ApplyCommSettingsLines(*lines);
}

}  // namespace quillon
