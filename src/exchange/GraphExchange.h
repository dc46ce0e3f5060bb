#pragma once
// The graph window's Export and Import of its samples, without windows: the same file dialogs
// and format choice as the parameters', and the graph files' own messages. The window stops its
// sampling before it calls Export, and repaints after an Import.

#include "exchange/GraphData.h"
#include "exchange/ParamExchange.h"

#include <QString>

namespace quillon {

// Asks for the file ("Cancel" ends in silence) and writes the store. CSV: no message on success;
// a workbook says "Export success.". A file that can't be written says "Opening the file is fail.".
void ExportGraph(const GraphData& data, ExportFormat format);

// Replaces `data` with the file's samples, the format from the extension (NotRun for any other).
// `read` tells whether the file could be read at all: a file that was read replaces what the
// window held even when its heading lines were wrong (Failed, `data` then empty).
ImportResult ImportGraphFile(const QString& path, GraphData& data, bool* read = nullptr);

// The Import of the graph window: asks for the file ("Cancel" gives NotRun), then ImportGraphFile.
ImportResult ImportGraph(GraphData& data, bool* read = nullptr);

}  // namespace quillon
