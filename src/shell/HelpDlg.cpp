#include "shell/HelpDlg.h"

#include "base/DataFiles.h"

#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace quillon {

QString ManualPath(const QString& programDir) {
    return DataFilePath(programDir, QStringLiteral("help/index.html"));
}

CHelpDlg::CHelpDlg(const QString& path, QWidget* parent)
    : QDialog(parent), m_browser(new QTextBrowser(this)) {
    setObjectName(QStringLiteral("HelpDlg"));
    setModal(false);
    m_browser->setOpenExternalLinks(true);
    m_browser->setSource(QUrl::fromLocalFile(path));
    setWindowTitle(m_browser->documentTitle());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_browser);
    resize(720, 640);
}

}  // namespace quillon
