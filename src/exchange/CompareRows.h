#pragma once
// The comparison of a project's rows under one of three choices: default against set value,
// default against read value, set value against read value. Values are display text and are
// compared byte for byte, so "50.0" and "50.00" differ although they mean the same number: the
// drive shows them differently, and the person wants to see that. Gap rows take part like the
// others.

#include "params/ParamTypes.h"

#include <QByteArray>
#include <QString>
#include <vector>

namespace quillon {

class CM330Doc;

enum CompareMode : int {
    kCompareDefaultSet = 0,   // "出厂值和编辑值比较"
    kCompareDefaultRead = 1,  // "出厂值和读取值比较"
    kCompareSetRead = 2,      // "编辑值和读取值比较"
};
inline constexpr int kCompareModeCount = 3;

// What a mode sets side by side: the choice's text, the two values and their headings.
struct CompareColumns {
    const char* choice;
    const char* leftHeading;
    const char* rightHeading;
    QString ParamRow::*left;
    QString ParamRow::*right;
};
const CompareColumns& ColumnsOf(int mode);  // a mode outside 0..2 is taken as 0

// The groups with at least one difference, each with its title and only the rows that differ,
// in the document's order.
using CompareResult = std::vector<ParamGroup>;
CompareResult CompareRows(const CM330Doc& doc, int mode);

// The saved text: per group its title, then per row the whole code text, the left and the
// right value, separated by tabs; every line ends in CR LF. No heading line.
QByteArray CompareText(const CompareResult& result, int mode);

// The compare window's four columns: the code (first five characters), the list text, left and
// right value.
QString CompareCodeColumn(const ParamRow& row);

}  // namespace quillon
