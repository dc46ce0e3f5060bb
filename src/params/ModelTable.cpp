#include "params/ModelTable.h"

#include <array>

namespace quillon {
namespace {

constexpr std::array<ModelRow, 19> kModels{{
    {1102, "R770-1P2-Kxx", "1P2"}, {1105, "R770-1P5-Kxx", "1P5"}, {101, "R770-101-Kxx", "101"},
    {1202, "R770-2P2-Kxx", "2P2"}, {1205, "R770-2P5-Kxx", "2P5"}, {1207, "R770-2P7-Kxx", "2P7"},
    {201, "R770-201-Kxx", "201"},  {202, "R770-202-Kxx", "202"},  {203, "R770-203-Kxx", "203"},
    {205, "R770-205-Kxx", "205"},  {208, "R770-208-Kxx", "208"},  {210, "R770-210-Kxx", "210"},
    {401, "R770-401-Kxx", "401"},  {402, "R770-402-Kxx", "402"},  {403, "R770-403-Kxx", "403"},
    {405, "R770-405-Kxx", "405"},  {408, "R770-408-Kxx", "408"},  {410, "R770-410-Kxx", "410"},
    {415, "R770-415-Kxx", "415"},
}};

}  // namespace

std::span<const ModelRow> ModelTable() { return kModels; }

QString ModelNameFromCode(int code, QString& capacity) {
    for (const ModelRow& row : kModels) {
        if (row.code == code) {
            capacity = QString::fromLatin1(row.capacity);
            return QString::fromLatin1(row.name);
        }
    }
    return {};
}

void ModelFromName(const QString& name, int& code, QString& capacity) {
    for (const ModelRow& row : kModels) {
        if (name == QLatin1String(row.name)) {
            code = row.code;
            capacity = QString::fromLatin1(row.capacity);
            return;
        }
    }
}

int CodeFromCapacity(const QString& capacity) {
    if (capacity.size() != 3) return -1;
    const QChar a = capacity[0], mid = capacity[1], b = capacity[2];
    if (!a.isDigit() || !b.isDigit()) return -1;
    if (mid == u'P') return 1000 + 100 * a.digitValue() + b.digitValue();
    if (!mid.isDigit()) return -1;
    return capacity.toInt();
}

}  // namespace quillon
