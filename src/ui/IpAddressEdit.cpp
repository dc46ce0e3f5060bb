#include "ui/IpAddressEdit.h"

#include "link/SearchProtocol.h"

#include <QRegularExpressionValidator>

namespace quillon {

CIpAddressEdit::CIpAddressEdit(QWidget* parent) : QLineEdit(parent)
{
    // Typing is held to digits and dots; whether the numbers fit is IsComplete's part.
    setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral(R"(^\d{0,3}(\.\d{0,3}){0,3}$)")), this));
    setPlaceholderText(QStringLiteral("0.0.0.0"));
}

QString CIpAddressEdit::Address() const
{
    return text().trimmed();
}

void CIpAddressEdit::SetAddress(const QString& address)
{
    setText(address);
}

bool CIpAddressEdit::IsComplete() const
{
    return ParseIpv4(Address()).has_value();
}

}  // namespace quillon
