#pragma once
// What a pad button of the Small Keyboard does to a field's text: the selection goes, the
// character goes in where it began. Whether the field keeps the result is the field's filter's
// business; the caret moves on only when it did.

#include <QString>

namespace quillon {

struct KeypadEdit {
    QString text;   // the text to write into the field
    int caret = 0;  // where the character went in
};

inline KeypadEdit KeypadInsert(QString text, int selectionStart, int selectionLength, QChar c) {
    selectionStart = qBound(0, selectionStart, static_cast<int>(text.size()));
    text.remove(selectionStart, selectionLength);
    text.insert(selectionStart, c);
    return {text, selectionStart};
}

}  // namespace quillon
