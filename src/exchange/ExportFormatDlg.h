#pragma once
// "Export/Import Format": the choice between "Excel Format" and "CSV Format" before an export.
// "OK" goes on with the checked one; closing the dialog cancels.

#include "exchange/ParamExchange.h"

#include <QDialog>

class QRadioButton;

namespace quillon {

class CExportFormatDlg : public QDialog {
    Q_OBJECT
public:
    explicit CExportFormatDlg(QWidget* parent = nullptr);
    ExportFormat Format() const;
    QRadioButton* ExcelButton() const { return m_excel; }
    QRadioButton* CsvButton() const { return m_csv; }

private:
    QRadioButton* m_excel;
    QRadioButton* m_csv;
};

}  // namespace quillon
