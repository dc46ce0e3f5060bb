#include "params/Overlays.h"

#include "params/ModelTable.h"

#include <array>
#include <optional>

namespace quillon {
namespace {

ParamRow& Row(std::vector<ParamGroup>& groups, int g, int r) {
    return CheckedAt(CheckedAt(groups, g).m_rows, r);
}

// Column of IntialParam.DAT per model: set A for most rows, set B for the 08-01..08-03 records.
struct ModelColumns {
    int model;
    int a;
    int b;
};
constexpr std::array<ModelColumns, 8> kColumns{{
    {1205, 15, 4}, {201, 17, 6}, {202, 18, 7}, {203, 19, 8},
    {401, 23, 12}, {402, 24, 13}, {403, 25, 14}, {405, 26, 15},
}};

enum class ColumnSet { A, B };
struct InitTarget {
    int group;
    int row;
    ColumnSet set;
};
// Indexed by record number; records 11 to 14 carry no target.
constexpr std::array<std::optional<InitTarget>, 22> kInitTargets{{
    InitTarget{1, 1, ColumnSet::A}, InitTarget{1, 5, ColumnSet::A}, InitTarget{1, 7, ColumnSet::A},
    InitTarget{1, 9, ColumnSet::A}, InitTarget{2, 0, ColumnSet::A}, InitTarget{2, 1, ColumnSet::A},
    InitTarget{2, 4, ColumnSet::A}, InitTarget{8, 4, ColumnSet::A}, InitTarget{11, 14, ColumnSet::A},
    InitTarget{1, 14, ColumnSet::A}, InitTarget{2, 5, ColumnSet::A},
    std::nullopt, std::nullopt, std::nullopt, std::nullopt,
    InitTarget{3, 20, ColumnSet::A}, InitTarget{3, 21, ColumnSet::A}, InitTarget{7, 7, ColumnSet::A},
    InitTarget{8, 1, ColumnSet::B}, InitTarget{8, 2, ColumnSet::B}, InitTarget{8, 3, ColumnSet::B},
    InitTarget{kSimplifiedGroup, 11, ColumnSet::A},
}};

// Rated values that differ between the 50 Hz and the 60 Hz class.
struct RatedValue {
    int group;
    int row;
    const char* hz50;
    const char* hz60;
};
constexpr std::array<RatedValue, 7> kRatedValues{{
    {0, 11, "50.00", "60.00"}, {0, 12, "50.00", "60.00"}, {1, 0, "1", "4"},
    {1, 2, "50.00", "60.00"},  {1, 4, "2.50", "3.00"},    {1, 6, "2.50", "3.00"},
    {1, 8, "1.30", "1.50"},
}};

// Rated motor speed 02-03 of the models that have one.
struct RatedSpeed {
    int model;
    const char* hz50;
    const char* hz60;
};
constexpr std::array<RatedSpeed, 8> kRatedSpeeds{{
    {1205, "1430", "1710"}, {201, "1430", "1710"}, {401, "1430", "1710"},
    {202, "1430", "1715"},  {402, "1430", "1715"},
    {203, "1455", "1735"},  {403, "1455", "1735"},
    {405, "1445", "1745"},
}};

}  // namespace

void ApplyInitialTableTo(std::vector<ParamGroup>& groups, const std::vector<InitRecord>& table,
                         int modelCode, bool applyToSetValue) {
    const ModelColumns* columns = nullptr;
    for (const ModelColumns& c : kColumns)
        if (c.model == modelCode) columns = &c;

    QString text;  // a model without a column keeps what the previous record left here
    for (size_t i = 0; i < kInitTargets.size(); ++i) {
        const auto& target = kInitTargets[i];
        if (!target) continue;
        if (columns) {
            const int column = target->set == ColumnSet::A ? columns->a : columns->b;
            text = CheckedAt(CheckedAt(table, static_cast<long long>(i)).m_values, column);
        }
        ParamRow& row = Row(groups, target->group, target->row);
        row.m_strDefault = text;
        if (applyToSetValue) row.m_strSetValue = text;
    }
}

void ApplyRatedDefaultsTo(std::vector<ParamGroup>& groups, const QString& modelName,
                          int modelCode, int freqClass, bool bothColumns) {
    if (freqClass != 0 && freqClass != 1) return;
    int code = modelCode;
    QString capacity;
    ModelFromName(modelName, code, capacity);

    auto put = [&](int g, int r, const QString& value) {
        ParamRow& row = Row(groups, g, r);
        row.m_strDefault = value;
        if (bothColumns) row.m_strSetValue = value;
    };
    auto pick = [freqClass](const char* hz50, const char* hz60) {
        return QString::fromLatin1(freqClass == 0 ? hz50 : hz60);
    };

    for (const RatedValue& v : kRatedValues) put(v.group, v.row, pick(v.hz50, v.hz60));
    for (const RatedSpeed& s : kRatedSpeeds)
        if (s.model == code) put(2, 3, pick(s.hz50, s.hz60));
    // The rated frequency of the motor follows the class only in a new project: a loaded
    // project keeps the catalogue's default for it.
    if (bothColumns) put(2, 6, pick("50.0", "60.0"));
    put(12, 3, pick("1500", "1800"));
    put(13, 0, capacity);
}

}  // namespace quillon
