#pragma once
// The graph watch's samples as a graph data CSV file: the names, the scale minimums and maximums,
// then one line per sample with its index, the four value texts and the time text; lines end in
// CR LF, none after the last, nothing quoted.
//
// One writer for the window and the command-line recorder. It stands alone so that the data
// exchange's writer can take its place without touching either caller.

#include "base/GraphSettings.h"
#include "monitor/GraphStore.h"

#include <QByteArray>
#include <QString>

namespace quillon {

QByteArray GraphCsvText(const CGraphStore& store, const GraphSettings& settings);

// Writes the file through a temporary beside it; false with the reason in `error`.
bool WriteGraphCsv(const CGraphStore& store, const GraphSettings& settings, const QString& path,
                   QString& error);

}  // namespace quillon
