#pragma once
// "Small Keyboard'": a modeless number pad over the parameter editor. Each button types its
// digit or point into the edit field last used in the editor, as a keystroke would: the field's
// filter runs on the new text, and the caret moves on only when the field kept it. No button
// takes the focus, and the window itself takes none, so the field keeps it.

#include <QDialog>
#include <QPointer>
#include <utility>

#include <QLineEdit>

namespace quillon {

class CSmallKeyboardDlg : public QDialog {
    Q_OBJECT
public:
    explicit CSmallKeyboardDlg(QWidget* parent = nullptr);

    // The field the pad types into; its caret comes with it.
    void SetTarget(QLineEdit* target);
    QLineEdit* Target() const { return m_pTarget; }
    // A pad button: "0".."9" or ".".
    void Press(QChar c);

    std::pair<quint16, quint16> m_caret{0, 0};

private:
    QPointer<QLineEdit> m_pTarget;
};

}  // namespace quillon
