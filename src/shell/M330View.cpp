#include "shell/M330View.h"

#include "shell/ParamList.h"

#include <QHeaderView>

namespace quillon {
namespace {
constexpr int kColumnWidths[4] = {0, 660, 80, 80};
// The hidden first column carries each line's group and row (-1 on a heading).
constexpr int kGroupRole = Qt::UserRole;
constexpr int kRowRole = Qt::UserRole + 1;
const QColor kChangedBackground(255, 236, 150);
}  // namespace

CM330View::CM330View(CM330Doc& doc, SessionState& session, QWidget* parent)
    : QTableWidget(parent), m_doc(&doc), m_session(session) {
    setColumnCount(4);
    setHorizontalHeaderLabels({QString(), QStringLiteral("Parameter Name"),
                               QStringLiteral("Default"), QStringLiteral("Set Value")});
    for (int c = 0; c < 4; ++c) setColumnWidth(c, kColumnWidths[c]);
    setColumnHidden(0, true);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setShowGrid(false);
    setWordWrap(false);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(this, &QTableWidget::cellDoubleClicked, this, [this](int line, int) {
        if (!m_doc) return;
        if (const auto target = EditorTargetOfItem(*m_doc, m_session.m_nCurGroup, line))
            emit RowActivated(target->first, target->second);
    });
    connect(&doc, &CM330Doc::GroupChanged, this, &CM330View::OnGroupChanged);
    FillList();
}

void CM330View::OnGroupChanged(int group) {
    const int shown = m_session.m_nCurGroup;
    if (m_bRefillQueued || (group >= 0 && shown >= 0 && group != shown)) return;
    m_bRefillQueued = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_bRefillQueued = false;
            FillList();
        },
        Qt::QueuedConnection);
}

void CM330View::Detach() {
    if (m_doc) disconnect(m_doc, nullptr, this, nullptr);
    m_doc = nullptr;
    setRowCount(0);
}

void CM330View::FillList() {
    if (!m_doc) return;
    m_session.m_nCurGroup = ListedGroup(m_session.m_nCurGroup, m_session.m_bCompleteParams);
    const auto lines = BuildParamList(*m_doc, m_session.m_nCurGroup);
    ++m_fillCount;
    // No drawing while the list is filled.
    setUpdatesEnabled(false);
    clearContents();
    setRowCount(static_cast<int>(lines.size()));
    for (int i = 0; i < static_cast<int>(lines.size()); ++i) {
        const ParamListLine& line = lines[i];
        auto* key = new QTableWidgetItem;
        key->setData(kGroupRole, line.group);
        key->setData(kRowRole, line.row);
        setItem(i, 0, key);
        const QString texts[3] = {line.name, line.defaultValue, line.setValue};
        for (int c = 0; c < 3; ++c) {
            auto* item = new QTableWidgetItem(texts[c]);
            if (line.changed) item->setBackground(kChangedBackground);
            setItem(i, c + 1, item);
        }
    }
    setUpdatesEnabled(true);
}

void CM330View::OnRefreshList() {
    FillList();
}

void CM330View::FocusFirstLine() {
    setFocus(Qt::OtherFocusReason);
    if (rowCount() > 0) selectRow(0);
}

std::optional<std::pair<int, int>> CM330View::LineTarget(int line) const {
    const QTableWidgetItem* key = line >= 0 && line < rowCount() ? item(line, 0) : nullptr;
    if (!key) return std::nullopt;
    return std::make_pair(key->data(kGroupRole).toInt(), key->data(kRowRole).toInt());
}

}  // namespace quillon
