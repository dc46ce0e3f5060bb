#include "CliCommand.h"

#include "params/M330Doc.h"

namespace quillon::cli {

void PrintRows(const CM330Doc& doc, QTextStream& out) {
    for (size_t g = 0; g < doc.m_groups.size(); ++g) {
        const auto& rows = doc.m_groups[g].m_rows;
        for (size_t r = 0; r < rows.size(); ++r) {
            const ParamRow& row = rows[r];
            out << g << '\t' << r << '\t' << row.m_bExists << '\t' << row.m_strCode << '\t'
                << row.m_strDefault << '\t' << row.m_strSetValue << '\n';
        }
    }
}

}  // namespace quillon::cli
