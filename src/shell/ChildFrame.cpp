#include "shell/ChildFrame.h"

#include "shell/M330View.h"

#include <QCloseEvent>
#include <QTimer>

namespace quillon {

CChildFrame::CChildFrame(CM330View* view, std::function<bool()> mayClose, QWidget* parent)
    : QMdiSubWindow(parent), m_view(view), m_mayClose(std::move(mayClose)) {
    setWindowFlags(Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowCloseButtonHint);
    setSystemMenu(nullptr);
    setWidget(view);
    setAttribute(Qt::WA_DeleteOnClose, false);  // the frame decides when the window goes
}

void CChildFrame::closeEvent(QCloseEvent* event) {
    if (m_mayClose && !m_mayClose()) {
        event->ignore();
        return;
    }
    QMdiSubWindow::closeEvent(event);
}

void CChildFrame::changeEvent(QEvent* event) {
    QMdiSubWindow::changeEvent(event);
    // Always maximised, whatever was asked for. The sub-window passes through states of its own
    // while it changes, so the state is put right once the change is over.
    if (event->type() == QEvent::WindowStateChange && !(windowState() & Qt::WindowMaximized)) {
        QTimer::singleShot(0, this, [this] {
            if (isVisible() && !(windowState() & Qt::WindowMaximized)) showMaximized();
        });
    }
}

}  // namespace quillon
