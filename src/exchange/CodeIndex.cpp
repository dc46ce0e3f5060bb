#include "exchange/CodeIndex.h"

namespace quillon {

CCodeIndex::CCodeIndex(CM330Doc& doc, int group) {
    for (size_t g = 0; g < doc.m_groups.size() && g < kGroupCount; ++g) {
        if (group >= 0 && static_cast<size_t>(group) != g) continue;
        auto& rows = doc.m_groups[g].m_rows;
        for (size_t r = 0; r < rows.size() && r < kRowsPerGroup; ++r)
            if (doc.m_rowExists[g][r] && rows[r].m_strCode.size() >= 5)
                m_slots[rows[r].m_strCode.left(5)].rows.push_back(
                    RowRef{static_cast<int>(g), static_cast<int>(r)});
    }
}

std::optional<RowRef> CCodeIndex::Take(const QString& code) {
    if (code.size() < 5) return std::nullopt;
    const auto it = m_slots.find(code.left(5));
    if (it == m_slots.end() || it->next >= it->rows.size()) return std::nullopt;
    return it->rows[it->next++];
}

}  // namespace quillon
