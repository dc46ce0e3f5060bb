#include "ui/ColourLabel.h"

#include <QPalette>

namespace quillon {

CColourLabel::CColourLabel(QWidget* parent) : QLabel(parent) {
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setAutoFillBackground(false);  // transparent on the page
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    SetMarked(false);
}

void CColourLabel::SetMarked(bool marked) {
    m_bMarked = marked;
    QPalette p = palette();
    p.setColor(QPalette::WindowText, marked ? QColor(255, 0, 0) : QColor(0, 0, 0));
    setPalette(p);
}

}  // namespace quillon
