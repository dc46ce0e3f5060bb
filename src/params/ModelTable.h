#pragma once
// The R770 models the program knows: a whole-number code, the display name and the capacity
// code printed on the drive. A project and a connected drive are both identified by the code.

#include <QString>
#include <span>

namespace quillon {

struct ModelRow {
    int code;
    const char* name;
    const char* capacity;
};

// The 19 models in their fixed order.
std::span<const ModelRow> ModelTable();

// Display name of the first row with `code`; sets `capacity`. Unknown code: empty name,
// `capacity` left alone.
QString ModelNameFromCode(int code, QString& capacity);

// First row with display name `name`: sets `code` and `capacity`; with no such row both stay.
void ModelFromName(const QString& name, int& code, QString& capacity);

// The code a capacity text stands for: "2P5" -> 1000 + 100*2 + 5 = 1205, "201" -> 201.
// -1 for a text that is neither form.
int CodeFromCapacity(const QString& capacity);

}  // namespace quillon
