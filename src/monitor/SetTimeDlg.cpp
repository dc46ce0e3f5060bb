#include "monitor/SetTimeDlg.h"

#include "base/ErrorReport.h"
#include "base/Prompt.h"
#include "monitor/GraphRecorder.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include <memory>

namespace quillon {

CSetTimeDlg::CSetTimeDlg(int divisionMs, QWidget* parent)
    : QDialog(parent), m_nDivisionMs(divisionMs)
{
    setWindowTitle(QStringLiteral("Set Time"));
    setObjectName(QStringLiteral("SetTimeDlg"));
    const DimTimeFields fields = DimTimeOf(divisionMs);
    m_minutes = NumberEdit(fields.minutes);
    m_seconds = NumberEdit(fields.seconds);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("Time Interval:"), this), 0, 0, 1, 2);
    grid->addWidget(m_minutes, 1, 0);
    grid->addWidget(new QLabel(QStringLiteral("(*1 Minute)"), this), 1, 1);
    grid->addWidget(m_seconds, 2, 0);
    grid->addWidget(new QLabel(QStringLiteral("(*1 Second)"), this), 2, 1);
    grid->addWidget(buttons, 3, 0, 1, 2);
}

QLineEdit* CSetTimeDlg::NumberEdit(int value)
{
    auto* edit = new QLineEdit(QString::number(value), this);
    auto previous = std::make_shared<QString>(edit->text());
    connect(edit, &QLineEdit::textChanged, this, Guarded([edit, previous](const QString& now) {
                bool ok = false;
                now.toInt(&ok);
                if (ok)
                    *previous = now;
                else
                    edit->setText(*previous);
            }));
    return edit;
}

void CSetTimeDlg::accept()
{
    const auto division = DivisionMsOf({m_minutes->text().toInt(), m_seconds->text().toInt()});
    if (!division) {
        Prompt().Message(QStringLiteral("The interval time must be more than 0s !"));
        return;
    }
    m_nDivisionMs = *division;
    QDialog::accept();
}

}  // namespace quillon
