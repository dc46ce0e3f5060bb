#include "monitor/ParamSetDlg.h"

#include "base/ErrorReport.h"
#include "base/Prompt.h"
#include "monitor/GraphChannels.h"
#include "monitor/ParamSetFields.h"
#include "monitor/ScopeWnd.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <cstdlib>
#include <memory>

namespace quillon {

CParamSetDlg::CParamSetDlg(const std::vector<int>& stations, const GraphSettings& settings,
                           QWidget* parent)
    : QDialog(parent), m_settings(settings), m_station(new QComboBox(this))
{
    setWindowTitle(QStringLiteral("Parameter Set"));
    setObjectName(QStringLiteral("ParamSetDlg"));
    for (int s : stations)
        m_station->addItem(QString::number(s));
    m_station->setCurrentIndex(settings.stationIndex);
    connect(m_station, &QComboBox::currentIndexChanged, this,
            Guarded([this](int index) { m_settings.stationIndex = index; }));

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Station Num:"), this));
    top->addWidget(m_station);
    top->addStretch();
    auto* grid = new QGridLayout;
    for (int c = 0; c < kGraphChannels; ++c) {
        auto* box = new QGroupBox(QStringLiteral("Set"), this);
        auto* form = new QGridLayout(box);
        m_maximum[c] = LimitEdit(settings.maximum[c]);
        m_minimum[c] = LimitEdit(settings.minimum[c]);
        m_channel[c] = new QComboBox(box);
        m_channel[c]->addItems(ChannelListEntries());
        m_channel[c]->setCurrentIndex(ChannelListIndex(settings.channelName[c]));
        auto* legend = new QLabel(CurveName(c), box);
        legend->setStyleSheet(QStringLiteral("color: %1; background: black; padding: 2px;")
                                  .arg(CurveColour(c).name()));
        form->addWidget(new QLabel(QStringLiteral("Maximum"), box), 0, 0);
        form->addWidget(m_maximum[c], 0, 1);
        form->addWidget(new QLabel(QStringLiteral("Minimum"), box), 1, 0);
        form->addWidget(m_minimum[c], 1, 1);
        form->addWidget(legend, 2, 0);
        form->addWidget(m_channel[c], 2, 1);
        grid->addWidget(box, c / 2, c % 2);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(grid);
    layout->addWidget(buttons);
}

QLineEdit* CParamSetDlg::LimitEdit(const QString& text)
{
    auto* edit = new QLineEdit(text, this);
    auto previous = std::make_shared<QString>(text);
    connect(edit, &QLineEdit::textChanged, this, Guarded([edit, previous](const QString& now) {
                const QString kept = FilterLimitText(*previous, now);
                *previous = kept;
                if (kept != now)
                    edit->setText(kept);
            }));
    return edit;
}

void CParamSetDlg::accept()
{
    GraphSettings taken = m_settings;
    taken.stationIndex = m_station->currentIndex();
    taken.station = std::atoi(m_station->currentText().toLatin1().constData());
    for (int c = 0; c < kGraphChannels; ++c) {
        taken.channelIndex[c] = m_channel[c]->currentIndex();
        taken.channelName[c] = m_channel[c]->currentText();
        taken.maximum[c] = m_maximum[c]->text();
        taken.minimum[c] = m_minimum[c]->text();
    }
    if (const int refused = CheckLimits(taken); refused >= 0) {
        m_maximum[refused]->setFocus();
        m_maximum[refused]->selectAll();
        Prompt().Message(QStringLiteral("The maximum value must be larger than the minimum value!"));
        return;
    }
    m_settings = taken;
    for (int c = 0; c < kGraphChannels; ++c) {
        m_maximum[c]->setText(taken.maximum[c]);
        m_minimum[c]->setText(taken.minimum[c]);
    }
    QDialog::accept();
}

}  // namespace quillon
