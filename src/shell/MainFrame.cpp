#include "shell/MainFrame.h"

#include <QLabel>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>

namespace quillon {
namespace {
const char* const kPaneLabels[5] = {"File name:", "Version:", "Station Num:", "Model:", ""};
}

CMainFrame::CMainFrame(QWidget* parent) : QMainWindow(parent), m_mdi(new QMdiArea(this)) {
    setWindowTitle(QStringLiteral("Quillon"));
    setCentralWidget(m_mdi);
    for (int i = 0; i < 5; ++i) {
        m_panes[i] = new QLabel(QString::fromLatin1(kPaneLabels[i]), this);
        statusBar()->addWidget(m_panes[i], i == 0 ? 1 : 0);
    }
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    file->addAction(QStringLiteral("&New"), QKeySequence::New, this, &CMainFrame::FileNewRequested);
    file->addSeparator();
    file->addAction(QStringLiteral("E&xit"), this, &QWidget::close);
    resize(1000, 700);
}

CMainFrame::~CMainFrame() = default;

void CMainFrame::SetDocument(std::unique_ptr<CM330Doc> doc) { m_doc = std::move(doc); }

void CMainFrame::SetStatusPane(int pane, const QString& text) {
    if (pane < 0 || pane > 4) return;
    m_panes[pane]->setText(QString::fromLatin1(kPaneLabels[pane]) + text);
}

QString CMainFrame::StatusPaneText(int pane) const {
    return pane >= 0 && pane <= 4 ? m_panes[pane]->text() : QString();
}

}  // namespace quillon
