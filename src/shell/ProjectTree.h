#pragma once
// The project tree of the docking bar: "Project", "Parameter", and the parameter groups. A left
// click reports itself to the frame after the selection has moved; arrow keys move the selection
// without switching the list, and a right click only selects.

#include <QTreeWidget>

namespace quillon {

class CCJTreeCtrl : public QTreeWidget {
    Q_OBJECT
public:
    explicit CCJTreeCtrl(QWidget* parent = nullptr);

    // Empties the tree and builds it anew: the 14 groups, or the simplified group alone.
    void Rebuild(int completeParams);
    // Removes the root with all its items.
    void ClearTree();

    static int ItemData(const QTreeWidgetItem* item);
    // The item with this item data, or nullptr.
    QTreeWidgetItem* FindByData(int data) const;

signals:
    void TreeClicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace quillon
