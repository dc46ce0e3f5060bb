#pragma once
// A small modal dialog that lets the person pick one of the linked stations from a drop-down
// list "Station Num:", the first one selected.

#include <QDialog>
#include <vector>

class QComboBox;

namespace quillon {

class CStationChooserDlg : public QDialog {
    Q_OBJECT
public:
    CStationChooserDlg(const QString& caption, const std::vector<int>& stations,
                       QWidget* parent = nullptr);
    // The chosen station: the whole number of the selected entry, 0 when the list is empty.
    int Station() const;
    QComboBox* StationList() const { return m_list; }

private:
    QComboBox* m_list;
};

}  // namespace quillon
