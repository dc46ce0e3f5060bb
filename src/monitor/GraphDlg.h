#pragma once
// The "Graph" window: a tool bar (Start, Stop, Save, Set, Dim Time, Export, Import), the scope,
// and the strip of each curve's running maximum and minimum. Modal from the menu, modeless from
// the control panel. The settings are the session's: "Set" writes them back there, so they
// outlive the window and go into the project.
//
// The window owns the three timers: the sampling tick (100 ms, while the recorder runs), the
// strip (100 ms, from Start to Stop; a key Pause or a failed exchange leaves it running) and
// the scope's 10 ms repaint. The sampling exchange runs on a worker.

#include "monitor/GraphRecorder.h"
#include "monitor/MonitorContext.h"

#include <QDialog>
#include <memory>

class QAction;
class QMenu;
class QTimer;
class QToolBar;

namespace quillon {

class CScopeWnd;

// The strip under the scope: name, maximum and minimum of each curve.
class CGraphStrip final : public QWidget {
    Q_OBJECT
public:
    CGraphStrip(const CGraphRecorder& recorder, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const CGraphRecorder& m_recorder;
};

class CGraphDlg final : public QDialog {
    Q_OBJECT
public:
    CGraphDlg(MonitorContext context, GraphSettings& sessionSettings, QWidget* parent = nullptr);
    ~CGraphDlg() override;

    CGraphRecorder& Recorder() { return *m_recorder; }
    CScopeWnd* Scope() const { return m_scope; }
    CGraphStrip* Strip() const { return m_strip; }
    QTimer* SamplingTimer() const { return m_sampling; }
    QTimer* StripTimer() const { return m_stripTimer; }
    // The tool bar's action with this tool tip ("Start", "Stop", "Save", "Set", ...).
    QAction* Action(const QString& tip) const;

    void OnStart();
    void OnStop();
    void OnKeyPause();
    void OnSet();
    void OnDimTime();
    // The picture of the window as a BMP file; the samples written to or read from a graph data
    // file (CSV or workbook). None of them needs a link; Export stops the sampling first.
    void OnSave();
    void OnExport();
    void OnImport();

    void done(int result) override;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool Linked() const;
    void UpdateActions();
    void OnStateChanged();

    MonitorContext m_context;
    GraphSettings& m_session;
    std::unique_ptr<IExchangeRunner> m_runner;
    std::unique_ptr<CGraphRecorder> m_recorder;
    QToolBar* m_tools;
    CScopeWnd* m_scope;
    CGraphStrip* m_strip;
    QTimer* m_sampling;
    QTimer* m_stripTimer;
    QMenu* m_menu;
};

}  // namespace quillon
