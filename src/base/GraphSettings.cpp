#include "base/GraphSettings.h"

#include "base/TextTable.h"

namespace quillon {

void GraphSettings::Reset() {
    stationIndex = 0;
    const QString unused = LoadText(TextId::NoDisplay);
    for (int i = 0; i < kGraphChannels; ++i) {
        channelIndex[i] = 0;
        channelName[i] = unused;
        maximum[i] = QStringLiteral("10.00");
        minimum[i] = QStringLiteral("0.00");
    }
}

}  // namespace quillon
