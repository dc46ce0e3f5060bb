#pragma once
// "Set Time": the graph window's whole length in minutes and seconds, which sets the time per
// division. A text that is no number goes back to the previous value at once; a window of no
// time is refused and the dialog stays open.

#include <QDialog>

class QLineEdit;

namespace quillon {

class CSetTimeDlg final : public QDialog {
    Q_OBJECT
public:
    CSetTimeDlg(int divisionMs, QWidget* parent = nullptr);

    int DivisionMs() const { return m_nDivisionMs; }
    QLineEdit* MinutesEdit() const { return m_minutes; }
    QLineEdit* SecondsEdit() const { return m_seconds; }

    void accept() override;

private:
    QLineEdit* NumberEdit(int value);

    int m_nDivisionMs;
    QLineEdit* m_minutes;
    QLineEdit* m_seconds;
};

}  // namespace quillon
