#include "editing/ParamSelectDlg.h"

#include <QDialogButtonBox>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quillon {

CParamSelectDlg::CParamSelectDlg(int completeParams, QWidget* parent)
    : QDialog(parent),
      m_simplified(new QRadioButton(QStringLiteral("Simplified Parameters"), this)),
      m_complete(new QRadioButton(QStringLiteral("Complete Parameters"), this)) {
    setWindowTitle(QStringLiteral("Parameter Select"));
    (completeParams ? m_complete : m_simplified)->setChecked(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_simplified);
    layout->addWidget(m_complete);
    layout->addWidget(buttons);
}

int CParamSelectDlg::CompleteParams() const { return m_complete->isChecked() ? 1 : 0; }

}  // namespace quillon
