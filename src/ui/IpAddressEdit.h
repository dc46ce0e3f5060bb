#pragma once
// An edit for an IPv4 address in dotted decimal: four numbers of 0 to 255.

#include <QLineEdit>

namespace quillon {

class CIpAddressEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit CIpAddressEdit(QWidget* parent = nullptr);

    // The address as typed, trimmed; valid only when IsComplete().
    QString Address() const;
    void SetAddress(const QString& address);
    bool IsComplete() const;
};

}  // namespace quillon
