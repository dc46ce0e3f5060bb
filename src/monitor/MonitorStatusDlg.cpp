#include "monitor/MonitorStatusDlg.h"

#include "base/ErrorReport.h"
#include "base/Language.h"
#include "monitor/MonitorControlDlg.h"
#include "monitor/PanelPictures.h"
#include "monitor/WorkerRunner.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {

void PlaceBeside(QWidget& window, const QWidget& beside)
{
    window.move(beside.frameGeometry().topRight());
}

CMonitorPageWidget::CMonitorPageWidget(CMonitorPage& page, CStatusMonitor& monitor,
                                       QWidget* parent)
    : QWidget(parent), m_page(page), m_stations(new QComboBox(this)), m_timer(new QTimer(this))
{
    setFixedSize(kPanelPictureSize);
    m_stations->setObjectName(QStringLiteral("StationList"));
    for (int s : monitor.Stations())
        m_stations->addItem(QString::number(s));
    m_stations->setCurrentIndex(page.StationIndex());
    m_stations->setGeometry(104, 14, 90, m_stations->sizeHint().height());
    connect(m_stations, &QComboBox::currentIndexChanged, this,
            Guarded([this, &monitor](int index) { monitor.SelectStation(m_page, index); }));
    m_timer->setInterval(kStatusPollPeriodMs);
    connect(m_timer, &QTimer::timeout, this, Guarded([this] { m_page.Tick(); }));
}

void CMonitorPageWidget::SyncTimer()
{
    if (m_page.IsPolling() && !m_timer->isActive())
        m_timer->start();
    else if (!m_page.IsPolling())
        m_timer->stop();
}

void CMonitorPageWidget::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setFont(font());
    const bool status = m_page.Kind() == MonitorPageKind::Status;
    if (status)
        PaintStatusPicture(p);
    else
        PaintTerminalPicture(p);
    p.save();
    p.setPen(QColor(30, 40, 60));
    p.drawText(QRect(42, 14, 60, m_stations->height()), Qt::AlignVCenter, Translated("Caption", "站号:"));
    p.restore();
    if (m_page.LampsShown()) {
        const auto lamps = status ? StatusLamps(m_page.StatusWord()) : TerminalLamps(m_page.TerminalWord());
        for (const Lamp& lamp : lamps)
            PaintLamp(p, lamp, true);
    }
    if (!status)
        return;
    for (const MeasuredValue& v : MeasuredValues())
        PaintTextAt(p, QPoint(v.x, v.y), ValueText(v, m_page.Word(v.index)), QColor(0, 0, 255));
    const FaultTexts fault = FaultTextsOf(m_page.FaultCode());
    PaintTextAt(p, QPoint(608, 142), fault.display, QColor(255, 0, 0));
    PaintTextAt(p, QPoint(42, 325), fault.description, QColor(255, 0, 0));
}

CMonitorStatusDlg::CMonitorStatusDlg(MonitorContext context, int stationIndex, QWidget* parent)
    : QDialog(parent),
      m_context(std::move(context)),
      m_runner(std::make_unique<CWorkerRunner>(m_context.link)),
      m_monitor(std::make_unique<CStatusMonitor>(*m_runner, m_context.stations, stationIndex)),
      m_tabs(new QTabWidget(this)),
      m_statusPage(new CStatusPage(m_monitor->StatusPage(), *m_monitor, nullptr)),
      m_terminalPage(new CTerminalPage(m_monitor->TerminalPage(), *m_monitor, nullptr)),
      m_showControl(new QPushButton(QStringLiteral("Show Control"), this))
{
    setWindowTitle(QStringLiteral("Monitor Status"));
    setObjectName(QStringLiteral("MonitorStatusDlg"));
    m_tabs->addTab(m_statusPage, QStringLiteral("     Status     "));
    m_tabs->addTab(m_terminalPage, QStringLiteral("     Terminal    "));
    m_tabs->setCurrentIndex(0);
    connect(m_tabs, &QTabWidget::currentChanged, this, Guarded([this](int index) {
                if (QWidget* page = m_tabs->widget(index)) page->setFocus();
            }));

    auto* start = new QPushButton(QStringLiteral("Start"), this);
    auto* stop = new QPushButton(QStringLiteral("Stop"), this);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    start->setAutoDefault(false);
    stop->setAutoDefault(false);
    m_showControl->setAutoDefault(false);
    connect(start, &QPushButton::clicked, this, Guarded([this] { OnStart(); }));
    connect(stop, &QPushButton::clicked, this, Guarded([this] { OnStop(); }));
    connect(m_showControl, &QPushButton::clicked, this, Guarded([this] { OnShowControl(); }));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* b : {start, stop, m_showControl, cancel})
        buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    m_monitor->onChanged = [this](CMonitorPage& page) { OnChanged(page); };
}

CMonitorStatusDlg::~CMonitorStatusDlg()
{
    // No completion may reach the pages once they go.
    m_runner.reset();
}

void CMonitorStatusDlg::OnChanged(CMonitorPage& page)
{
    m_statusPage->SyncTimer();
    m_terminalPage->SyncTimer();
    (&page == &m_monitor->StatusPage() ? static_cast<QWidget*>(m_statusPage) : m_terminalPage)->update();
}

void CMonitorStatusDlg::OnStart() { m_monitor->Start(); }

void CMonitorStatusDlg::OnStop() { m_monitor->Stop(); }

void CMonitorStatusDlg::OnShowControl()
{
    if (!m_control) {
        m_control = new CMonitorControlDlg(m_context, m_monitor->StationIndex(), this);
        m_control->setAttribute(Qt::WA_DeleteOnClose);
    } else {
        m_control->SetStationIndex(m_monitor->StationIndex());
    }
    m_control->show();
    m_control->ShowStatusButton()->setEnabled(false);
    PlaceBeside(*m_control, *this);
}

void CMonitorStatusDlg::done(int result)
{
    m_statusPage->Timer()->stop();
    m_terminalPage->Timer()->stop();
    delete m_control;  // the control panel opened from here goes first
    QDialog::done(result);
}

}  // namespace quillon
