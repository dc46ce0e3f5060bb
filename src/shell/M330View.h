#pragma once
// The project's parameter list: a hidden first column, then "Parameter Name", "Default" and
// "Set Value". It shows the group the session names (all groups 00 to 13, one group, or the
// simplified group) and marks the rows whose set value the editor changed and no write has sent
// yet. It fills itself again when the document announces a change of a group it shows.

#include "base/SessionState.h"
#include "params/M330Doc.h"

#include <QTableWidget>

namespace quillon {

class CM330View : public QTableWidget {
    Q_OBJECT
public:
    CM330View(CM330Doc& doc, SessionState& session, QWidget* parent = nullptr);

    CM330Doc* Document() const { return m_doc; }
    // The window is going away: the document may be gone before the widget, so let go of it now.
    void Detach();

    // Fills the list with the session's current group (14 while simplified parameters are in
    // force, which also becomes the current group).
    void FillList();
    // The list filled again from the document.
    void OnRefreshList();
    // Focus to the list, its first line selected.
    void FocusFirstLine();

    // How many times the list has been filled: a click that changes nothing must not refill it.
    int FillCount() const { return m_fillCount; }
    // The group and row of a line; row -1 on a heading, nullopt outside the list.
    std::optional<std::pair<int, int>> LineTarget(int line) const;

signals:
    // A double click on a parameter line: the editor opens on `group`, its front tab chosen by
    // `rowIndex`, which counts listed rows (EditorTargetOfItem).
    void RowActivated(int group, int rowIndex);

private:
    // The document changed `group`: one refill after the changes in a row are over.
    void OnGroupChanged(int group);

    CM330Doc* m_doc;
    SessionState& m_session;
    int m_fillCount = 0;
    bool m_bRefillQueued = false;
};

}  // namespace quillon
