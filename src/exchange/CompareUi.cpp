#include "exchange/CompareUi.h"

#include "exchange/CompareDlg.h"
#include "shell/MainFrame.h"
#include "transfer/TransferUi.h"

namespace quillon {

CCompareUi::CCompareUi(CMainFrame& frame, QPrinter& printer)
    : QObject(&frame),
      m_frame(frame),
      m_window(new CCompareDlg(printer, &frame)),
      m_command(frame.Session(), *TransferUiOf(frame), *this) {
    setObjectName(QStringLiteral("CompareUi"));
}

std::optional<int> CCompareUi::ChooseCompareMode(bool linked) {
    CCompareSelectDlg dlg(linked, &m_frame);
    if (dlg.exec() != QDialog::Accepted) return std::nullopt;
    return dlg.Mode();
}

void CCompareUi::ShowCompare(int mode, const CompareResult& result) {
    m_window->Fill(mode, result);
    m_window->show();
    m_window->raise();
}

}  // namespace quillon
