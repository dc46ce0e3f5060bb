#pragma once
// The rows of the parameter table, written page by page as the editor shows them; the table
// (ParamTable.h) sorts them by group and row once and answers every question about them.

#include "params/ParamTable.h"

#include <vector>

namespace quillon {

std::vector<ParamSpec> BuildParamRows();

}  // namespace quillon
