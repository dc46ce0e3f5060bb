#pragma once
// The project window inside the main frame: a caption and a border around the parameter list,
// always maximised, without a system menu or minimise and maximise boxes. Its close box asks
// the frame first, which may keep it open (the save question answered Cancel).

#include <QMdiSubWindow>
#include <functional>

namespace quillon {

class CM330View;

class CChildFrame : public QMdiSubWindow {
    Q_OBJECT
public:
    // `mayClose` runs when the close box is used; false keeps the window.
    CChildFrame(CM330View* view, std::function<bool()> mayClose, QWidget* parent = nullptr);

    CM330View* View() const { return m_view; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    CM330View* m_view;
    std::function<bool()> m_mayClose;
};

}  // namespace quillon
