#pragma once
// The parameter records of a project. Every value is kept as display text, exactly as the
// drive's register reads as text; consumers convert when they need a number.

#include <QString>
#include <array>
#include <stdexcept>
#include <vector>

namespace quillon {

inline constexpr int kGroupCount = 15;      // groups 00..13 and the simplified group
inline constexpr int kRowsPerGroup = 100;   // bound of the 15 x 100 flag tables
inline constexpr int kSimplifiedGroup = 14; // group index of the Fxx rows

struct ParamRow {
    QString m_strCode;       // "00-11 ..." or "F05 ...": group, number, then the list text
    QString m_strDefault;    // factory default as displayed
    QString m_strSetValue;   // the project's value: what a file keeps and a write sends
    QString m_strReadValue;  // last value read from a drive; empty until a read
    QString m_strName;       // display text
    int m_bExists = 0;       // 1: row stands in the catalogue, 0: gap row
};

// A row's list text stands in its code text from the seventh character on: "00-11 Initial ..."
// and "F05   Frequency ..." alike. Compare, print and export show it.
inline constexpr int kListTextColumn = 6;
inline QString ListText(const ParamRow& row) { return row.m_strCode.mid(kListTextColumn); }

struct ParamGroup {
    QString m_strName;
    std::vector<ParamRow> m_rows;  // index equals the row number
};

struct InitRecord {
    QString m_strKey;
    std::vector<QString> m_values;
};

struct MotorParam {
    QString m_strCode;  // five characters, e.g. "02-00"
    QString m_strName;
};

using FlagTable = std::array<std::array<int, kRowsPerGroup>, kGroupCount>;

// The one error of indexed access: a group, row or record index outside its container.
[[noreturn]] inline void ThrowRangeFailure() {
    throw std::out_of_range("invalid vector<T> subscript");
}

template <typename Vec>
auto& CheckedAt(Vec& v, long long i) {
    if (i < 0 || i >= static_cast<long long>(v.size())) ThrowRangeFailure();
    return v[static_cast<size_t>(i)];
}

}  // namespace quillon
