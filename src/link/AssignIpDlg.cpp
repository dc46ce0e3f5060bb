#include "link/AssignIpDlg.h"

#include "base/ErrorReport.h"
#include "base/Language.h"
#include "ui/IpAddressEdit.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace quillon {

CAssignIpDlg::CAssignIpDlg(QWidget* parent)
    : QDialog(parent), m_mac(new QLineEdit(this)), m_address(new CIpAddressEdit(this))
{
    setObjectName(QStringLiteral("AssignIpDlg"));
    setWindowTitle(Translated("Caption", "分配 IP"));
    m_mac->setMaxLength(kMacTextLength);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, Guarded([this] { accept(); }));
    connect(buttons, &QDialogButtonBox::rejected, this, Guarded([this] { reject(); }));
    auto* layout = new QGridLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("MAC:"), this), 0, 0);
    layout->addWidget(m_mac, 0, 1);
    layout->addWidget(new QLabel(QStringLiteral("(e.g. 00-20-4a-14-01-18)"), this), 0, 2);
    layout->addWidget(new QLabel(QStringLiteral("IP:"), this), 1, 0);
    layout->addWidget(m_address, 1, 1);
    layout->addWidget(buttons, 2, 0, 1, 3);
}

QString CAssignIpDlg::Mac() const
{
    return m_mac->text().trimmed();
}

QString CAssignIpDlg::Address() const
{
    return m_address->Address();
}

}  // namespace quillon
