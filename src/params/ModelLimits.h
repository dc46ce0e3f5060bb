#pragma once
// Limits that depend on the drive model of the project: the voltage class of a model, and the
// range text and limits of the few parameters whose bounds follow the model. The editing pages
// take them when they open, from the session's model code alone (the frequency class plays no
// part), and the Write command compares voltage classes.
//
// Limits are kept as 32-bit floats, as the pages hold them, and widened to double for each test.
// Some rows are tested with other limits at the write button than in the page check, and those
// differences are deliberate; LimitCheck says which test is asked for.

#include <QString>
#include <optional>

namespace quillon {

// 100 for 1205 and for every code below 400, else 400. So the 1xxx codes other than 1205
// (1102, 1105, 1202, 1207) count as class 400.
int VoltageClass(int modelCode);

// Where a value is tested.
enum class LimitCheck {
    Page,        // CheckPage and OnEditChange
    Button,      // the row's write button
    EditFilter,  // the keystroke filter of the edit (01-01 only differs)
};

struct RangeLimit {
    QString text;  // the range shown beside the field, "170.0~264.0"
    float lower = 0.0f;
    float upper = 0.0f;
};

// The range of row `row` of group `group` (14 = simplified group) for `modelCode`, for the given
// test. nullopt for a row whose range doesn't depend on the model, and for F11 with a model the
// rated table doesn't list (the page keeps its own range then).
//
// Model-dependent rows: 01-01, 08-04, 11-14 by voltage class; 03-20, 03-21 by code; the rated
// data 02-00, 02-01, 02-04, 02-05 and F11 by the rated table. A code the rated table doesn't list
// leaves 02-00, 02-01, 02-05 with the texts the page was built with ("0.0~6553.5", "0.1~6553.5",
// "0.0~22.0") and the limits set when the page object was built (0.0~2.5, 0.2~2.6, 0.1~0.8).
std::optional<RangeLimit> ModelRangeLimit(int group, int row, int modelCode,
                                          LimitCheck check = LimitCheck::Page);

// The range test of the pages: lower - margin < v and v < upper + margin, the margin 0.000001
// but where a page says otherwise.
inline constexpr double kRangeMargin = 0.000001;
bool WithinRange(double value, double lower, double upper, double margin = kRangeMargin);
inline bool WithinRange(double value, const RangeLimit& limit) {
    return WithinRange(value, limit.lower, limit.upper);
}

}  // namespace quillon
