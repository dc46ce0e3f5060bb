#include "monitor/MonitorControlDlg.h"

#include "base/ErrorReport.h"
#include "monitor/MonitorStatusDlg.h"
#include "monitor/WorkerRunner.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {

CMonitorControlDlg::CMonitorControlDlg(MonitorContext context, int stationIndex, QWidget* parent)
    : QDialog(parent),
      m_context(std::move(context)),
      m_runner(std::make_unique<CWorkerRunner>(m_context.link)),
      m_panel(std::make_unique<CControlPanel>(*m_runner, m_context.stations, stationIndex)),
      m_timer(new QTimer(this)),
      m_stations(new QComboBox(this)),
      m_frequency(new QLineEdit(this))
{
    setWindowTitle(QStringLiteral("Monitor Control"));
    setObjectName(QStringLiteral("MonitorControlDlg"));

    for (int s : m_context.stations)
        m_stations->addItem(QString::number(s));
    m_stations->setCurrentIndex(stationIndex);
    connect(m_stations, &QComboBox::currentIndexChanged, this,
            Guarded([this](int index) { m_panel->SelectStation(index); }));
    auto* stationRow = new QHBoxLayout;
    stationRow->addWidget(new QLabel(QStringLiteral("Station Num:"), this));
    stationRow->addWidget(m_stations, 1);

    auto* group = new QGroupBox(QStringLiteral("Control"), this);
    auto* grid = new QGridLayout(group);
    const struct {
        const char* text;
        ControlCommand command;
    } commands[] = {{"RUN", ControlCommand::Run},           {"STOP", ControlCommand::Stop},
                    {"FWD", ControlCommand::Forward},       {"REV", ControlCommand::Reverse},
                    {"Abnormal", ControlCommand::Abnormal}, {"Fault Reset", ControlCommand::FaultReset}};
    int cell = 0;
    for (const auto& c : commands) {
        grid->addWidget(AddButton(QString::fromLatin1(c.text),
                                  [this, command = c.command] { m_panel->OnCommand(command); }),
                        cell / 2, cell % 2);
        ++cell;
    }
    m_jogForward = AddButton(m_panel->JogForwardText(), [this] { m_panel->OnJog(true); });
    m_jogReverse = AddButton(m_panel->JogReverseText(), [this] { m_panel->OnJog(false); });
    grid->addWidget(m_jogForward, 3, 0);
    grid->addWidget(m_jogReverse, 3, 1);

    m_frequency->setText(m_panel->FrequencyText());
    connect(m_frequency, &QLineEdit::textChanged, this, Guarded([this](const QString& text) {
                const QString shown = m_panel->OnFrequencyEdited(text);
                if (shown != text) m_frequency->setText(shown);
            }));
    auto* frequencyRow = new QHBoxLayout;
    frequencyRow->addWidget(new QLabel(QStringLiteral("Frequency Setting:"), this));
    frequencyRow->addWidget(m_frequency, 1);
    frequencyRow->addWidget(AddButton(QStringLiteral("Set"), [this] { m_panel->OnSet(); }));

    m_showStatus = AddButton(QStringLiteral("Show Status"), [this] { OnShowStatus(); });
    m_graph = AddButton(QStringLiteral("Graph"), [this] { OnGraph(); });
    m_graph->setEnabled(static_cast<bool>(m_context.openGraph));
    auto* cancel = AddButton(QStringLiteral("Cancel"), [this] { reject(); });
    auto* bottom = new QHBoxLayout;
    for (QPushButton* b : {m_showStatus, m_graph, cancel})
        bottom->addWidget(b);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(stationRow);
    layout->addWidget(group);
    layout->addLayout(frequencyRow);
    layout->addLayout(bottom);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    m_panel->onChanged = [this] { OnChanged(); };
    m_timer->setObjectName(QStringLiteral("ControlPollTimer"));
    m_timer->setInterval(kControlPollPeriodMs);
    connect(m_timer, &QTimer::timeout, this, Guarded([this] { m_panel->Tick(); }));
    m_timer->start();
}

CMonitorControlDlg::~CMonitorControlDlg()
{
    // No completion may reach the panel once it goes.
    m_runner.reset();
}

QPushButton* CMonitorControlDlg::AddButton(const QString& text, const std::function<void()>& action)
{
    auto* b = new QPushButton(text, this);
    b->setAutoDefault(false);
    connect(b, &QPushButton::clicked, this, Guarded(action));
    return b;
}

QPushButton* CMonitorControlDlg::Button(const QString& text) const
{
    for (QPushButton* b : findChildren<QPushButton*>())
        if (b->text() == text) return b;
    return nullptr;
}

void CMonitorControlDlg::OnChanged()
{
    if (!m_panel->IsPolling())
        m_timer->stop();
    m_jogForward->setText(m_panel->JogForwardText());
    m_jogReverse->setText(m_panel->JogReverseText());
}

void CMonitorControlDlg::SetStationIndex(int index)
{
    m_stations->setCurrentIndex(index);  // the list's change hands it to the panel
    m_panel->SelectStation(index);
}

void CMonitorControlDlg::OnShowStatus()
{
    if (!m_status) {
        m_status = new CMonitorStatusDlg(m_context, m_panel->StationIndex(), this);
        m_status->setAttribute(Qt::WA_DeleteOnClose);
    } else {
        // Both pages follow the handed index.
        m_status->StatusPage()->StationList()->setCurrentIndex(m_panel->StationIndex());
        m_status->TerminalPage()->StationList()->setCurrentIndex(m_panel->StationIndex());
    }
    m_status->show();
    m_status->ShowControlButton()->setEnabled(false);
    PlaceBeside(*m_status, *this);
}

void CMonitorControlDlg::OnGraph()
{
    if (!m_context.openGraph)
        return;
    if (!m_graphWatch)
        m_graphWatch = m_context.openGraph(this);
    if (m_graphWatch)
        m_graphWatch->show();
}

void CMonitorControlDlg::done(int result)
{
    m_timer->stop();
    delete m_status;  // the windows opened from here go first
    delete m_graphWatch;
    QDialog::done(result);
}

}  // namespace quillon
