#pragma once
// The user manual in a window of its own: the HTML pages shipped with the program, shown in a
// text browser. Links between the pages stay in the window; links to the web open in the
// system's browser. Not modal, so the manual can stay open beside the work.

#include <QDialog>

class QTextBrowser;

namespace quillon {

// Where the manual's first page is for the program in `programDir` (with its closing separator),
// beside the program or in the installed data folder; it may not exist.
QString ManualPath(const QString& programDir);

class CHelpDlg : public QDialog {
    Q_OBJECT
public:
    // Shows the page at `path`.
    explicit CHelpDlg(const QString& path, QWidget* parent = nullptr);
    QTextBrowser* Browser() const { return m_browser; }

private:
    QTextBrowser* m_browser;
};

}  // namespace quillon
