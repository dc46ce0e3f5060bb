#pragma once
// Readers of the three catalogue files beside the program:
//  PARAM.DAT           rows "code@default$setvalue*name", each group closed by a line with "#"
//                      and the group's name behind it;
//  IntialParam.DAT     records "key:v0,v1,...", closed by a line "END";
//  R770MOTORPARAM.DAT  "gg-nn name" per line: motor parameters a capacity mismatch leaves alone.

#include "params/ParamTypes.h"

#include <QString>
#include <vector>

namespace quillon {

// Fills `groups` and `rowExists` (both cleared first). Rows are placed by their number: missing
// numbers become gap rows (default and set value "0", m_bExists 0). Rows behind the last "#"
// line are dropped. A row whose group or number lies outside the 15 x 100 tables raises the
// range failure.
void ParseCatalogue(const std::vector<QString>& lines, std::vector<ParamGroup>& groups,
                    FlagTable& rowExists);

// One catalogue row split at its first "@", "$" and "*".
ParamRow SplitCatalogueRow(const QString& line);

std::vector<InitRecord> ParseInitialTable(const std::vector<QString>& lines);
InitRecord ParseInitialRecord(const QString& line);

std::vector<MotorParam> ParseMotorList(const std::vector<QString>& lines);

}  // namespace quillon
