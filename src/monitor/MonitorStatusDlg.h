#pragma once
// The "Monitor Status" window: the status page (lamps, measured values, fault) and the terminal
// page, each with its own station and its own 400 ms timer, "Start", "Stop", "Show Control" and
// "Cancel". Modal from the menu, modeless when the control panel opens it. The logic is
// CStatusMonitor; the pages only paint it and forward the station choice.

#include "monitor/MonitorContext.h"
#include "monitor/StatusMonitor.h"

#include <QDialog>
#include <QPointer>
#include <memory>

class QComboBox;
class QPushButton;
class QTabWidget;
class QTimer;

namespace quillon {

class CMonitorControlDlg;
class CMonitorStatusDlg;

// One page: its picture, its station list and its timer.
class CMonitorPageWidget : public QWidget {
    Q_OBJECT
public:
    CMonitorPageWidget(CMonitorPage& page, CStatusMonitor& monitor, QWidget* parent);
    CMonitorPage& Page() { return m_page; }
    QTimer* Timer() const { return m_timer; }
    QComboBox* StationList() const { return m_stations; }
    // Starts or stops the timer as the page polls or not.
    void SyncTimer();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CMonitorPage& m_page;
    QComboBox* m_stations;
    QTimer* m_timer;
};

class CStatusPage final : public CMonitorPageWidget {
    Q_OBJECT
public:
    using CMonitorPageWidget::CMonitorPageWidget;
};

class CTerminalPage final : public CMonitorPageWidget {
    Q_OBJECT
public:
    using CMonitorPageWidget::CMonitorPageWidget;
};

class CMonitorStatusDlg final : public QDialog {
    Q_OBJECT
public:
    CMonitorStatusDlg(MonitorContext context, int stationIndex, QWidget* parent = nullptr);
    ~CMonitorStatusDlg() override;

    CStatusMonitor& Monitor() { return *m_monitor; }
    CStatusPage* StatusPage() const { return m_statusPage; }
    CTerminalPage* TerminalPage() const { return m_terminalPage; }
    QTabWidget* Tabs() const { return m_tabs; }
    QPushButton* ShowControlButton() const { return m_showControl; }
    CMonitorControlDlg* ControlPanel() const { return m_control; }

    void OnStart();
    void OnStop();
    void OnShowControl();

    void done(int result) override;

private:
    void OnChanged(CMonitorPage& page);

    MonitorContext m_context;
    std::unique_ptr<IExchangeRunner> m_runner;
    std::unique_ptr<CStatusMonitor> m_monitor;
    QTabWidget* m_tabs;
    CStatusPage* m_statusPage;
    CTerminalPage* m_terminalPage;
    QPushButton* m_showControl;
    QPointer<CMonitorControlDlg> m_control;
};

// Places `window` with its top left corner at the top right corner of `beside`.
void PlaceBeside(QWidget& window, const QWidget& beside);

}  // namespace quillon
