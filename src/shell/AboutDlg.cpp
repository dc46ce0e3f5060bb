#include "shell/AboutDlg.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace quillon {

QPixmap ProgramPicture(int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 48.0, size / 48.0);
    p.setPen(QPen(QColor(40, 40, 40), 1.5));
    p.setBrush(QColor(90, 110, 140));
    p.drawRoundedRect(QRectF(10, 3, 28, 42), 3, 3);
    p.setBrush(QColor(20, 40, 20));
    p.drawRect(QRectF(14, 8, 20, 9));
    p.setPen(QColor(120, 255, 120));
    QFont font = p.font();
    font.setPixelSize(7);
    font.setBold(true);
    p.setFont(font);
    p.drawText(QRectF(14, 8, 20, 9), Qt::AlignCenter, QStringLiteral("50.00"));
    p.setPen(QPen(QColor(40, 40, 40), 1));
    p.setBrush(QColor(210, 210, 210));
    for (int r = 0; r < 2; ++r)
        for (int c = 0; c < 3; ++c) p.drawRect(QRectF(15 + c * 6.5, 22 + r * 6, 4.5, 4));
    p.setBrush(QColor(20, 150, 60));
    p.drawEllipse(QRectF(16, 36, 5, 5));
    p.setBrush(QColor(200, 40, 40));
    p.drawEllipse(QRectF(27, 36, 5, 5));
    return pixmap;
}

CAboutDlg::CAboutDlg(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("About Quillon"));
    auto* picture = new QLabel(this);
    picture->setPixmap(ProgramPicture(64));
    auto* text = new QLabel(QStringLiteral("<b>Quillon</b><br><br>Configures and monitors R770 "
                                           "variable-frequency inverters."),
                            this);
    text->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* row = new QHBoxLayout;
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addWidget(text, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(buttons);
    setMinimumWidth(340);
}

}  // namespace quillon
