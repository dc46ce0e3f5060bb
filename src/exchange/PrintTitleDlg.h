#pragma once
// "Print Title Set": the title, department and name of the printed list. The fields take any
// length; OK checks the bytes (PrintTitleRules.h), says "Title or name can't be more than 20
// bytes!" and stays open when one is too long.

#include "params/M330Doc.h"

#include <QDialog>

class QLineEdit;

namespace quillon {

class CPrintTitleDlg final : public QDialog {
    Q_OBJECT
public:
    explicit CPrintTitleDlg(const PrintTitles& titles, QWidget* parent = nullptr);
    PrintTitles Titles() const;

    QLineEdit* TitleEdit() const { return m_title; }
    QLineEdit* DepartmentEdit() const { return m_department; }
    QLineEdit* NameEdit() const { return m_name; }

    void accept() override;

private:
    QLineEdit* m_title;
    QLineEdit* m_department;
    QLineEdit* m_name;
};

}  // namespace quillon
