#include "exchange/PrintTitleDlg.h"

#include "base/Prompt.h"
#include "exchange/PrintTitleRules.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace quillon {

CPrintTitleDlg::CPrintTitleDlg(const PrintTitles& titles, QWidget* parent)
    : QDialog(parent),
      m_title(new QLineEdit(titles.m_strTitle, this)),
      m_department(new QLineEdit(titles.m_strDepartment, this)),
      m_name(new QLineEdit(titles.m_strName, this)) {
    setObjectName(QStringLiteral("PrintTitleDlg"));
    setWindowTitle(QStringLiteral("Print Title Set"));
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Title:"), m_title);
    form->addRow(QStringLiteral("Department:"), m_department);
    form->addRow(QStringLiteral("Name:"), m_name);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &CPrintTitleDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
    resize(397, 128);  // 227 by 79 dialog units
}

PrintTitles CPrintTitleDlg::Titles() const {
    PrintTitles t;
    t.m_strTitle = m_title->text();
    t.m_strDepartment = m_department->text();
    t.m_strName = m_name->text();
    return t;
}

void CPrintTitleDlg::accept() {
    if (!PrintTitlesFit(Titles())) {
        Prompt().Message(QString::fromLatin1(kPrintTitleTooLong));
        return;
    }
    QDialog::accept();
}

}  // namespace quillon
