#pragma once
// View > Frame log: a window that shows every frame the link sends and receives while it is
// open, in the frame log's text (FrameLog.h). Modeless; one at a time.

#include "link/FrameLog.h"

#include <QDialog>

class QPlainTextEdit;

namespace quillon {

class CFrameLogDlg final : public QDialog, private IFrameSink {
    Q_OBJECT
public:
    explicit CFrameLogDlg(QWidget* parent = nullptr);
    ~CFrameLogDlg() override;

    // Shows the parent's frame log window, opening it when there is none.
    static void ShowFor(QWidget* parent);

private:
    // Any thread: the text goes to the window on its own thread.
    void OnFrame(const FrameRecord& record) override;

    QPlainTextEdit* m_pText;
    IFrameSink* m_previous;
};

}  // namespace quillon
