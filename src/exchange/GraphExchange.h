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
ImportResult ImportGraphFile(const QString& path, GraphData& data);

}  // namespace quillon
