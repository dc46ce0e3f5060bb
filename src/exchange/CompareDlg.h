#pragma once
// The windows of Compare: the choice of what to compare (CCompareSelectDlg) and the list of the
// rows that differ (CCompareDlg) with its Save, Print and Close. The list window is made once
// and shown and hidden; each compare fills it anew.

#include "exchange/CompareRows.h"

#include <QDialog>
#include <array>

class QPrinter;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace quillon {

class CCompareSelectDlg final : public QDialog {
    Q_OBJECT
public:
    // Mode 2 is chosen at start; without a link mode 0, and the other two can't be chosen.
    explicit CCompareSelectDlg(bool linked, QWidget* parent = nullptr);
    int Mode() const;
    QRadioButton* Choice(int mode) const { return m_choices[static_cast<std::size_t>(mode)]; }

private:
    std::array<QRadioButton*, kCompareModeCount> m_choices{};
};

class CCompareDlg final : public QDialog {
    Q_OBJECT
public:
    // `printer` (not owned) is the program's printer with its setup.
    CCompareDlg(QPrinter& printer, QWidget* parent = nullptr);

    // Clears the list, puts in the four columns of `mode` and one line per differing row.
    void Fill(int mode, const CompareResult& result);

    // "保存": the save dialog, then the text; a cancelled dialog or a file that can't be made
    // ends without a word.
    void OnSave();
    // "打印": the print dialog, then the pages on the chosen printer.
    void OnPrint();

    QTableWidget* List() const { return m_list; }
    QPushButton* SaveButton() const { return m_save; }
    QPushButton* PrintButton() const { return m_print; }
    QPushButton* CloseButton() const { return m_close; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    // The window lives as long as the program: a language switch words it anew.
    void changeEvent(QEvent* event) override;

private:
    void SizeNameColumn();
    void Retranslate();

    QPrinter& m_printer;
    QTableWidget* m_list;
    QPushButton* m_save;
    QPushButton* m_print;
    QPushButton* m_close;
    int m_nMode = kCompareSetRead;
    CompareResult m_result;
};

// The compare result's pages on `printer`; false when it can't be painted on.
bool PrintCompare(QPrinter& printer, int mode, const CompareResult& result);

}  // namespace quillon
