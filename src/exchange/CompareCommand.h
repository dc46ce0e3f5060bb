#pragma once
// The Compare command: the choice of what to compare, the drive read the choice needs, the
// result. The result lives here, with the main window, until the next compare replaces it; the
// window that lists it is shown and hidden, never made anew.

#include "exchange/CompareRows.h"

#include <optional>

namespace quillon {

struct SessionState;
class ITransferWindows;

// The windows of the command: the choice dialog and the list window.
class ICompareWindows {
public:
    virtual ~ICompareWindows() = default;
    // CCompareSelectDlg: the mode, or nullopt on "取消". Without a link only mode 0 can be chosen.
    virtual std::optional<int> ChooseCompareMode(bool linked) = 0;
    // Fills CCompareDlg with the result under the mode's columns and shows it.
    virtual void ShowCompare(int mode, const CompareResult& result) = 0;
};

class CCompareCommand {
public:
    // `transfer` gives the project, the link and the progress window of the group read.
    CCompareCommand(SessionState& session, ITransferWindows& transfer, ICompareWindows& windows)
        : m_session(session), m_transfer(transfer), m_windows(windows) {}

    // True when the list was filled and shown.
    bool OnCompare();

    int Mode() const { return m_nMode; }
    int Station() const { return m_nStation; }
    const CompareResult& Result() const { return m_result; }

    // Reads every group of `station` into the rows' read values with the group read; false with
    // its message shown. The set values stay as they are: they are one side of a compare.
    bool ReadDrive(int station);

private:
    SessionState& m_session;
    ITransferWindows& m_transfer;
    ICompareWindows& m_windows;
    int m_nMode = kCompareSetRead;
    int m_nStation = 0;
    CompareResult m_result;
};

}  // namespace quillon
