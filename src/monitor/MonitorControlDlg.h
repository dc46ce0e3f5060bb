#pragma once
// The "Monitor Control" panel: station choice, the eight command buttons, the frequency edit with
// "Set", "Show Status", "Graph" and "Cancel", and the 100 ms poll of the control word. Modal
// from the menu, modeless when the status monitor opens it. The logic is CControlPanel; the
// panel forwards the buttons and shows the jog buttons' texts.

#include "monitor/ControlPanel.h"
#include "monitor/MonitorContext.h"

#include <QDialog>
#include <QPointer>
#include <memory>

class QComboBox;
class QLineEdit;
class QPushButton;
class QTimer;

namespace quillon {

class CMonitorStatusDlg;

class CMonitorControlDlg final : public QDialog {
    Q_OBJECT
public:
    CMonitorControlDlg(MonitorContext context, int stationIndex, QWidget* parent = nullptr);
    ~CMonitorControlDlg() override;

    CControlPanel& Panel() { return *m_panel; }
    QTimer* PollTimer() const { return m_timer; }
    QComboBox* StationList() const { return m_stations; }
    QLineEdit* FrequencyEdit() const { return m_frequency; }
    QPushButton* Button(const QString& text) const;
    QPushButton* ShowStatusButton() const { return m_showStatus; }
    QPushButton* GraphButton() const { return m_graph; }
    CMonitorStatusDlg* StatusMonitor() const { return m_status; }
    QWidget* GraphWatch() const { return m_graphWatch; }

    // The station index handed over by the status monitor.
    void SetStationIndex(int index);

    void OnShowStatus();
    void OnGraph();
    void done(int result) override;

private:
    QPushButton* AddButton(const QString& text, const std::function<void()>& action);
    void OnChanged();

    MonitorContext m_context;
    std::unique_ptr<IExchangeRunner> m_runner;
    std::unique_ptr<CControlPanel> m_panel;
    QTimer* m_timer;
    QComboBox* m_stations;
    QLineEdit* m_frequency;
    QPushButton* m_jogForward = nullptr;
    QPushButton* m_jogReverse = nullptr;
    QPushButton* m_showStatus = nullptr;
    QPushButton* m_graph = nullptr;
    QPointer<CMonitorStatusDlg> m_status;
    QPointer<QWidget> m_graphWatch;
};

}  // namespace quillon
