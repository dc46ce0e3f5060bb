#pragma once
// "About Quillon": the program's name and picture.

#include <QDialog>

namespace quillon {

class CAboutDlg : public QDialog {
    Q_OBJECT
public:
    explicit CAboutDlg(QWidget* parent = nullptr);
};

// The program's picture: an R770 drive with its display lit.
QPixmap ProgramPicture(int size);

}  // namespace quillon
