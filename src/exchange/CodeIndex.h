#pragma once
// The rows of a document found by the first five characters of their code ("00-05"), for the
// imports that match a line to its row by code rather than by position. Only rows the row-exists
// table has are found; a code that stands more than once is handed out in document order.

#include "params/M330Doc.h"

#include <QHash>
#include <QString>
#include <optional>
#include <vector>

namespace quillon {

// A row by its place: what the document's setters take.
struct RowRef {
    int group;
    int row;
};

class CCodeIndex {
public:
    // All groups, or only group `group` when it is not negative.
    explicit CCodeIndex(CM330Doc& doc, int group = -1);

    // The next row not yet taken whose code begins with the first five characters of `code`;
    // nullopt when there is none or `code` is shorter than five characters.
    std::optional<RowRef> Take(const QString& code);

private:
    struct Slot {
        std::vector<RowRef> rows;
        size_t next = 0;
    };
    QHash<QString, Slot> m_slots;
};

}  // namespace quillon
