#pragma once
// The main window of a session. It owns the session state (model, frequency class, link and
// stations) and outlives the project documents, which New and Open replace whole.

#include "params/M330Doc.h"
#include "shell/SessionState.h"

#include <QMainWindow>
#include <memory>

class QMdiArea;
class QLabel;

namespace quillon {

class CMainFrame : public QMainWindow {
    Q_OBJECT
public:
    explicit CMainFrame(QWidget* parent = nullptr);
    ~CMainFrame() override;

    SessionState& Session() { return m_session; }
    CM330Doc* Document() { return m_doc.get(); }
    // Takes over a freshly created document; the previous project is gone with it.
    void SetDocument(std::unique_ptr<CM330Doc> doc);
    // Status panes 0..3 show their label and the text; pane 4 the text alone.
    void SetStatusPane(int pane, const QString& text);
    QString StatusPaneText(int pane) const;

    QString m_strAppDir;  // program directory, with its closing separator

signals:
    void FileNewRequested();

private:
    SessionState m_session;
    std::unique_ptr<CM330Doc> m_doc;
    QMdiArea* m_mdi;
    QLabel* m_panes[5];
};

}  // namespace quillon
