#include "monitor/GraphStoreData.h"

#include "monitor/GraphChannels.h"
#include "monitor/GraphRecorder.h"

#include <algorithm>

namespace quillon {

GraphData GraphDataOf(const CGraphStore& store, const GraphSettings& settings)
{
    GraphData data;
    data.names = settings.channelName;
    data.minimum = settings.minimum;
    data.maximum = settings.maximum;
    std::size_t rows = store.timeTexts.size();
    for (const auto& texts : store.valueTexts)
        rows = std::min(rows, texts.size());
    data.samples.reserve(rows);
    std::array<QString, kGraphCurves> values;
    for (std::size_t i = 0; i < rows; ++i) {
        for (int c = 0; c < kGraphCurves; ++c)
            values[c] = store.valueTexts[c][store.valueTexts[c].size() - rows + i];
        data.AddSample(values, store.timeTexts[store.timeTexts.size() - rows + i]);
    }
    return data;
}

void LoadGraphData(CGraphRecorder& recorder, const GraphData& data)
{
    GraphSettings curves = recorder.Settings();
    curves.channelName = data.names;
    curves.minimum = data.minimum;
    curves.maximum = data.maximum;
    for (int c = 0; c < kGraphChannels; ++c)
        curves.channelIndex[c] = ChannelListIndex(curves.channelName[c]);
    std::vector<GraphSampleRow> rows(data.samples.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const GraphSample& s = data.samples[i];
        rows[i].dayTime = rows[i].tick = s.seconds;
        rows[i].timeText = s.time;
        rows[i].valueTexts = s.values;
    }
    recorder.LoadRows(curves, rows);
}

}  // namespace quillon
