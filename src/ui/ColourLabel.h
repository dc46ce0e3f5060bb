#pragma once
// A one-line label that paints its text red (255, 0, 0) when marked, black otherwise, on the
// dialog's background, vertically centred and left aligned, as wide as its text.

#include <QLabel>

namespace quillon {

class CColourLabel : public QLabel {
    Q_OBJECT
public:
    explicit CColourLabel(QWidget* parent = nullptr);

    void SetMarked(bool marked);
    bool IsMarked() const { return m_bMarked; }

private:
    bool m_bMarked = false;
};

}  // namespace quillon
