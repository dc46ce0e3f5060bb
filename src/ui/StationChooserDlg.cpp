#include "ui/StationChooserDlg.h"

#include "base/TextConv.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>

namespace quillon {

CStationChooserDlg::CStationChooserDlg(const QString& caption, const std::vector<int>& stations,
                                       QWidget* parent)
    : QDialog(parent), m_list(new QComboBox(this)) {
    setWindowTitle(caption);
    for (int s : stations) m_list->addItem(QString::number(s));
    m_list->setCurrentIndex(stations.empty() ? -1 : 0);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QFormLayout(this);
    layout->addRow(QStringLiteral("Station Num:"), m_list);
    layout->addRow(buttons);
}

int CStationChooserDlg::Station() const { return Atoi(m_list->currentText()); }

}  // namespace quillon
