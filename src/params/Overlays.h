#pragma once
// The two overlays that put model- and frequency-dependent values on the catalogue rows.

#include "params/ParamTypes.h"

#include <QString>
#include <vector>

namespace quillon {

// IntialParam.DAT: record i of the table carries, per model, the factory value of one row. The
// model code picks the column. Defaults always receive the value; set values only when
// `applyToSetValue` is set (a new project, not a loaded one). For a model without a column the
// text of the previous record (empty at first) is stored. Too few records or values raise the
// range failure.
void ApplyInitialTableTo(std::vector<ParamGroup>& groups, const std::vector<InitRecord>& table,
                         int modelCode, bool applyToSetValue);

// The rated values of the model's capacity and the mains frequency class: base frequencies,
// V/f points, rated speed, capacity code. With `bothColumns` the set values too (new project),
// else only the defaults. 02-06 is written only with `bothColumns`. A class other than 0 or 1
// changes nothing. The model is found by display name; `modelCode` stands when it is not.
void ApplyRatedDefaultsTo(std::vector<ParamGroup>& groups, const QString& modelName,
                          int modelCode, int freqClass, bool bothColumns);

}  // namespace quillon
