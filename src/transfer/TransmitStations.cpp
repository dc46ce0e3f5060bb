#include "transfer/TransmitStations.h"

#include "base/Prompt.h"
#include "link/ModbusFrame.h"
#include "link/StationList.h"

#include <algorithm>

namespace quillon {

bool IsStationListText(const QString& text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return (c >= u'0' && c <= u'9') || c == u',' || c == u'-'; });
}

TransmitStationsResult TransmitStations(bool allInverter, const QString& text,
                                        const std::vector<int>& linked) {
    TransmitStationsResult result;
    if (allInverter) {
        result.stations = std::vector<int>{kBroadcastStation};
        return result;
    }
    if (text.isEmpty()) {
        Prompt().Message(QStringLiteral("The station num is not empty!"));
        return result;
    }
    std::vector<int> stations;
    if (!ParseStationList(text, stations)) return result;
    for (int station : stations) {
        if (std::find(linked.begin(), linked.end(), station) == linked.end()) {
            Prompt().Message(QStringLiteral("The Station Number %1 hasn't exist!!").arg(station));
            result.selectEdit = true;
            return result;
        }
    }
    result.stations = std::move(stations);
    return result;
}

}  // namespace quillon
