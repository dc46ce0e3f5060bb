#include "link/FrameLogDlg.h"

#include "base/ThreadHandOff.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {
namespace {
constexpr int kMaxLines = 20000;  // the oldest lines go first
}

CFrameLogDlg::CFrameLogDlg(QWidget* parent) : QDialog(parent), m_pText(new QPlainTextEdit(this)) {
    setObjectName(QStringLiteral("FrameLogDlg"));
    setWindowTitle(QStringLiteral("Frame log"));
    m_pText->setReadOnly(true);
    m_pText->setMaximumBlockCount(kMaxLines);
    m_pText->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_pText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* clear = buttons->addButton(QStringLiteral("Clear"), QDialogButtonBox::ResetRole);
    connect(clear, &QPushButton::clicked, m_pText, &QPlainTextEdit::clear);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_pText);
    layout->addWidget(buttons);
    resize(760, 360);
    m_previous = SetFrameSink(this);
}

CFrameLogDlg::~CFrameLogDlg() { SetFrameSink(m_previous); }

void CFrameLogDlg::OnFrame(const FrameRecord& record) {
    QString text = FormatFrameRecord(record);
    text.chop(1);  // each appended paragraph ends its own line
    // Called on the thread that ran the transaction; the text is shown on the dialog's thread.
    QMetaObject::invokeMethod(
        this, HandOverCall([this, text] { m_pText->appendPlainText(text); }),
        Qt::QueuedConnection);
}

void CFrameLogDlg::ShowFor(QWidget* parent) {
    auto* dlg = parent->findChild<CFrameLogDlg*>(QStringLiteral("FrameLogDlg"),
                                                  Qt::FindDirectChildrenOnly);
    if (!dlg) {
        dlg = new CFrameLogDlg(parent);
        dlg->setAttribute(Qt::WA_DeleteOnClose);
    }
    dlg->show();
    dlg->raise();
    dlg->activateWindow();
}

}  // namespace quillon
