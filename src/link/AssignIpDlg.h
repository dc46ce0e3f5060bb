#pragma once
// "分配 IP": an address for a network module that the search didn't find, named by its MAC.

#include <QDialog>

class QLineEdit;

namespace quillon {

class CIpAddressEdit;

inline constexpr int kMacTextLength = 17;  // "00-20-4a-14-01-18"

class CAssignIpDlg : public QDialog {
    Q_OBJECT
public:
    explicit CAssignIpDlg(QWidget* parent = nullptr);

    QString Mac() const;
    QString Address() const;
    QLineEdit* MacEdit() const { return m_mac; }
    CIpAddressEdit* AddressEdit() const { return m_address; }

private:
    QLineEdit* m_mac;
    CIpAddressEdit* m_address;
};

}  // namespace quillon
