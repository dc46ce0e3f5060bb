#include "link/SetIpDlg.h"

#include "base/ErrorReport.h"
#include "base/Language.h"
#include "ui/IpAddressEdit.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

namespace quillon {

CSetIpDlg::CSetIpDlg(const QString& address, const QString& name, QWidget* parent)
    : QDialog(parent), m_address(new CIpAddressEdit(this)), m_name(new QLineEdit(this))
{
    setObjectName(QStringLiteral("SetIpDlg"));
    setWindowTitle(Translated("Caption", "设置 IP"));
    m_address->SetAddress(address);
    m_name->setMaxLength(kDeviceNameMaxLength);
    m_name->setText(name);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, Guarded([this] { accept(); }));
    connect(buttons, &QDialogButtonBox::rejected, this, Guarded([this] { reject(); }));
    auto* layout = new QFormLayout(this);
    layout->addRow(Translated("Caption", "IP地址:"), m_address);
    layout->addRow(Translated("Caption", "设备名称:"), m_name);
    layout->addRow(buttons);
}

QString CSetIpDlg::Address() const
{
    return m_address->Address();
}

QString CSetIpDlg::Name() const
{
    return m_name->text();
}

void CSetIpDlg::accept()
{
    if (!m_address->IsComplete()) {
        QApplication::beep();
        m_address->setFocus();
        return;
    }
    QDialog::accept();
}

}  // namespace quillon
