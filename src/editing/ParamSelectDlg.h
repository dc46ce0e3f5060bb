#pragma once
// "Parameter Select": simplified or complete parameters for the session's menus, tree and list.

#include <QDialog>

class QRadioButton;

namespace quillon {

class CParamSelectDlg : public QDialog {
    Q_OBJECT
public:
    // `completeParams`: 1 complete groups, 0 the simplified group.
    explicit CParamSelectDlg(int completeParams, QWidget* parent = nullptr);
    int CompleteParams() const;
    QRadioButton* SimplifiedButton() const { return m_simplified; }
    QRadioButton* CompleteButton() const { return m_complete; }

private:
    QRadioButton* m_simplified;
    QRadioButton* m_complete;
};

}  // namespace quillon
