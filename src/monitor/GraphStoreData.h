#pragma once
// The graph watch's store as the samples of a graph data file, and a file's samples back into
// the recorder. The files themselves (CSV and workbook, their lines and messages) belong to the
// data exchange; the window and the command-line recorder both write through it.

#include "base/GraphSettings.h"
#include "exchange/GraphData.h"
#include "monitor/GraphStore.h"

namespace quillon {

class CGraphRecorder;

static_assert(kGraphCurves == kGraphChannels, "a graph file holds one column per curve");

// The curves' names and scale limits, then one sample per stored time text. Should the curves
// hold more or fewer samples than the first (each is trimmed by its own span), the newest are
// paired, as every list grows at the back.
GraphData GraphDataOf(const CGraphStore& store, const GraphSettings& settings);

// A loaded file in place of the recorder's samples: the file's channels and limits on the
// recorder's station, the samples on the file's own scale, shown as a stopped run.
void LoadGraphData(CGraphRecorder& recorder, const GraphData& data);

}  // namespace quillon
