#include "editing/SmallKeyboardDlg.h"

#include "editing/KeypadTyping.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

namespace quillon {

CSmallKeyboardDlg::CSmallKeyboardDlg(QWidget* parent)
    : QDialog(parent, Qt::Tool | Qt::WindowDoesNotAcceptFocus) {
    setWindowTitle(QStringLiteral("Small Keyboard'"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* grid = new QGridLayout(this);
    // Rows 7 8 9, 4 5 6, 1 2 3, then a double-width 0 and the point.
    const char* const keys = "789456123";
    auto add = [&](QChar c, int row, int column, int span) {
        auto* button = new QPushButton(QString(c), this);
        button->setObjectName(QStringLiteral("key") + c);
        button->setFocusPolicy(Qt::NoFocus);
        button->setAutoDefault(false);
        button->setMinimumSize(36, 30);
        connect(button, &QPushButton::clicked, this, [this, c] { Press(c); });
        grid->addWidget(button, row, column, 1, span);
    };
    for (int i = 0; i < 9; ++i) add(QChar(keys[i]), i / 3, i % 3, 1);
    add(QChar('0'), 3, 0, 2);
    add(QChar('.'), 3, 2, 1);
}

void CSmallKeyboardDlg::SetTarget(QLineEdit* target) {
    m_pTarget = target;
    if (target)
        m_caret = {static_cast<quint16>(target->cursorPosition()),
                   static_cast<quint16>(target->cursorPosition())};
}

void CSmallKeyboardDlg::Press(QChar c) {
    QLineEdit* field = m_pTarget;
    if (!field) return;
    const bool selected = field->hasSelectedText();
    const int start = selected ? field->selectionStart() : field->cursorPosition();
    const KeypadEdit edit =
        KeypadInsert(field->text(), start, selected ? int(field->selectedText().size()) : 0, c);
    m_caret = {static_cast<quint16>(edit.caret), static_cast<quint16>(edit.caret)};
    field->setText(edit.text);  // the field's filter runs here
    const bool kept = field->text() == edit.text;
    field->setFocus(Qt::OtherFocusReason);
    const int caret = std::min(edit.caret + (kept ? 1 : 0), int(field->text().size()));
    field->setSelection(caret, 0);
    field->setCursorPosition(caret);
    m_caret = {static_cast<quint16>(caret), static_cast<quint16>(caret)};
}

}  // namespace quillon
