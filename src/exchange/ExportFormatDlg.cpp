#include "exchange/ExportFormatDlg.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quillon {

CExportFormatDlg::CExportFormatDlg(QWidget* parent)
    : QDialog(parent),
      m_excel(new QRadioButton(QStringLiteral("Excel Format"), this)),
      m_csv(new QRadioButton(QStringLiteral("CSV Format"), this)) {
    setObjectName(QStringLiteral("ExportFormatDlg"));
    setWindowTitle(QStringLiteral("Export/Import Format"));
    m_excel->setChecked(true);
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* choices = new QVBoxLayout;
    choices->addWidget(m_excel);
    choices->addWidget(m_csv);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(choices);
    layout->addWidget(ok, 0, Qt::AlignTop);
    // 133 by 55 dialog units in the system font, or what the texts need where that font is wider.
    const QFontMetrics fm(font());
    setFixedSize(QSize(fm.averageCharWidth() * 133 / 4, fm.height() * 55 / 8).expandedTo(sizeHint()));
}

ExportFormat CExportFormatDlg::Format() const {
    return m_csv->isChecked() ? ExportFormat::Csv : ExportFormat::Excel;
}

}  // namespace quillon
