#pragma once
// "设置 IP": a found network module's new address and its local name.

#include <QDialog>

class QLineEdit;

namespace quillon {

class CIpAddressEdit;

inline constexpr int kDeviceNameMaxLength = 26;

class CSetIpDlg : public QDialog {
    Q_OBJECT
public:
    CSetIpDlg(const QString& address, const QString& name, QWidget* parent = nullptr);

    QString Address() const;
    QString Name() const;
    CIpAddressEdit* AddressEdit() const { return m_address; }
    QLineEdit* NameEdit() const { return m_name; }

    // OK takes a complete address only.
    void accept() override;

private:
    CIpAddressEdit* m_address;
    QLineEdit* m_name;
};

}  // namespace quillon
