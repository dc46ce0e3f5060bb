#include "shell/ProjectTree.h"

#include "shell/ProjectTreeRules.h"

#include <QHeaderView>
#include <QMouseEvent>

namespace quillon {
namespace {
constexpr int kDataRole = Qt::UserRole;
}

CCJTreeCtrl::CCJTreeCtrl(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setColumnCount(1);
    setRootIsDecorated(true);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Long group names scroll sideways in the narrow bar rather than being cut short.
    setTextElideMode(Qt::ElideNone);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
}

void CCJTreeCtrl::Rebuild(int completeParams) {
    clear();
    QTreeWidgetItem* parents[3] = {nullptr, nullptr, nullptr};
    for (const TreeNodeInfo& node : ProjectTreeNodes(completeParams)) {
        auto* item = node.depth == 0 ? new QTreeWidgetItem(this)
                                     : new QTreeWidgetItem(parents[node.depth - 1]);
        item->setText(0, node.text);
        item->setData(0, kDataRole, node.data);
        parents[node.depth] = item;
    }
    // The root and "Parameter" stand open.
    for (int d = 0; d < 2; ++d)
        if (parents[d]) parents[d]->setExpanded(true);
}

void CCJTreeCtrl::ClearTree() { clear(); }

int CCJTreeCtrl::ItemData(const QTreeWidgetItem* item) {
    return item ? item->data(0, kDataRole).toInt() : 0;
}

QTreeWidgetItem* CCJTreeCtrl::FindByData(int data) const {
    for (QTreeWidgetItemIterator it(const_cast<CCJTreeCtrl*>(this)); *it; ++it)
        if (ItemData(*it) == data) return *it;
    return nullptr;
}

void CCJTreeCtrl::mousePressEvent(QMouseEvent* event) {
    // Let the click move the selection first; the frame then reads the selected item.
    QTreeWidget::mousePressEvent(event);
    if (event->button() == Qt::LeftButton) emit TreeClicked();
}

}  // namespace quillon
