#include "ui/ModalLinkWork.h"

#include "link/LinkWork.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace quillon {
namespace {

bool IsInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::Close:
    // A project dropped on a window would replace the one the work is filling.
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

class InputBlock final : public QObject {
public:
    InputBlock() : m_modal(QApplication::activeModalWidget()) { qApp->installEventFilter(this); }
    ~InputBlock() override { qApp->removeEventFilter(this); }
    InputBlock(const InputBlock&) = delete;
    InputBlock& operator=(const InputBlock&) = delete;

protected:
    bool eventFilter(QObject* target, QEvent* event) override {
        if (!IsInput(event->type())) return false;
        auto* widget = qobject_cast<QWidget*>(target);
        // Platform windows hand their input on to their widgets, which are judged there; a
        // shortcut goes to its action directly.
        if (!widget && event->type() != QEvent::Shortcut) return false;
        if (Allowed(widget)) return false;
        if (event->type() == QEvent::ShortcutOverride)
            event->accept();  // taken by the widget: no shortcut fires
        else
            event->ignore();  // a close box leaves its window open
        return true;
    }

private:
    // Input to a dialog opened since the work began; for an action, Qt's own modal rules.
    bool Allowed(const QWidget* widget) const {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || modal == m_modal) return false;
        return !widget || widget == modal || modal->isAncestorOf(widget);
    }

    QPointer<QWidget> m_modal;
};

}  // namespace

void RunModalLinkWork(const std::function<void()>& job) {
    InputBlock block;
    RunLinkWork(job);
}

}  // namespace quillon
