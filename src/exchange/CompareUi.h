#pragma once
// Compare on the desktop: the command with its choice dialog, and the one list window it fills.
// One object lives as a child of the main window, so the result lasts until the next compare.

#include "exchange/CompareCommand.h"

#include <QObject>

class QPrinter;

namespace quillon {

class CMainFrame;
class CCompareDlg;

class CCompareUi final : public QObject, public ICompareWindows {
    Q_OBJECT
public:
    // The transfer commands must be installed on `frame` already: the read is theirs.
    CCompareUi(CMainFrame& frame, QPrinter& printer);

    CCompareCommand& Command() { return m_command; }
    CCompareDlg* Window() const { return m_window; }

    std::optional<int> ChooseCompareMode(bool linked) override;
    void ShowCompare(int mode, const CompareResult& result) override;

private:
    CMainFrame& m_frame;
    CCompareDlg* m_window;
    CCompareCommand m_command;
};

}  // namespace quillon
