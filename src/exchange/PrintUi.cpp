#include "exchange/PrintUi.h"

#include "base/ErrorReport.h"
#include "base/Prompt.h"
#include "exchange/CompareUi.h"
#include "exchange/PrintPainter.h"
#include "exchange/PrintTitleDlg.h"
#include "shell/CommandIds.h"
#include "shell/MainFrame.h"

#include <QAction>
#include <QDateTime>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QToolBar>
#include <array>

namespace quillon {
namespace {

bool HasPrinter() { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

// The preview's tool bar under the program's own names, with a Close at its end.
void NamePreviewTools(QPrintPreviewDialog& preview) {
    static const std::array<std::pair<const char*, const char*>, 5> kNames{{
        {"Print", "&Print..."},
        {"Next page", "&Next Page"},
        {"Previous page", "&Prev Page"},
        {"Zoom in", "Zoom &In"},
        {"Zoom out", "Zoom &Out"},
    }};
    auto* tools = preview.findChild<QToolBar*>();
    if (!tools) return;
    for (QAction* action : tools->actions())
        for (const auto& [qtName, name] : kNames)
            if (action->text() == QLatin1String(qtName)) action->setText(QString::fromLatin1(name));
    tools->addSeparator();
    QAction* close = tools->addAction(QStringLiteral("Close"));
    QObject::connect(close, &QAction::triggered, &preview, &QDialog::reject);
}

}  // namespace

CPrintUi::CPrintUi(CMainFrame& frame)
    : QObject(&frame), m_frame(frame), m_printer(std::make_unique<QPrinter>(QPrinter::HighResolution)) {
    setObjectName(QStringLiteral("PrintUi"));
    // Without a printer the pages go to a PDF file, laid out as on paper.
    if (!HasPrinter()) m_printer->setOutputFormat(QPrinter::PdfFormat);
    if (m_printer->outputFormat() == QPrinter::PdfFormat) SetPdfPageLayout(*m_printer);
    m_frame.SetCommandHandler(CmdId::Print, [this] { OnPrint(); });
    m_frame.SetCommandHandler(CmdId::PrintPreview, [this] { OnPrintPreview(); });
    m_frame.SetCommandHandler(CmdId::PrintSetup, [this] { OnPrintSetup(); });
    m_frame.SetCommandHandler(CmdId::PrintTitle, [this] { OnPrintTitle(); });
}

CPrintUi::~CPrintUi() = default;

bool CPrintUi::CanPrint() {
    if (m_printer->outputFormat() == QPrinter::PdfFormat || HasPrinter()) return true;
    Prompt().Message(QString::fromLatin1(kInstallPrinter));
    return false;
}

void CPrintUi::OnPrint() {
    const CM330Doc* doc = m_frame.Document();
    if (!doc) return;
    QPrintDialog dialog(m_printer.get(), &m_frame);
    if (dialog.exec() != QDialog::Accepted || !CanPrint()) return;
    PrintParameterList(*m_printer, *doc, QDateTime::currentDateTime());
}

void CPrintUi::OnPrintPreview() {
    const CM330Doc* doc = m_frame.Document();
    if (!doc) return;
    QPrintPreviewDialog preview(m_printer.get(), &m_frame);
    preview.setObjectName(QStringLiteral("PrintPreview"));
    NamePreviewTools(preview);
    // The foot carries the time the preview was opened, on every page alike.
    const QDateTime now = QDateTime::currentDateTime();
    connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
            Guarded([doc, now](QPrinter* printer) { PrintParameterList(*printer, *doc, now); }));
    preview.exec();
}

void CPrintUi::OnPrintSetup() {
    QPageSetupDialog dialog(m_printer.get(), &m_frame);
    dialog.exec();
}

void CPrintUi::OnPrintTitle() {
    CM330Doc* doc = m_frame.Document();
    if (!doc) return;
    CPrintTitleDlg dialog(doc->m_printTitles, &m_frame);
    if (dialog.exec() != QDialog::Accepted) return;
    const PrintTitles titles = dialog.Titles();
    if (titles.m_strTitle == doc->m_printTitles.m_strTitle &&
        titles.m_strDepartment == doc->m_printTitles.m_strDepartment &&
        titles.m_strName == doc->m_printTitles.m_strName)
        return;
    doc->m_printTitles = titles;
    doc->SetModifiedFlag();
}

void InstallPrintAndCompareCommands(CMainFrame& frame) {
    auto* print = new CPrintUi(frame);
    auto* compare = new CCompareUi(frame, print->Printer());
    frame.SetCommandHandler(CmdId::Compare, [compare] { compare->Command().OnCompare(); });
}

CPrintUi* PrintUiOf(const CMainFrame& frame) {
    return frame.findChild<CPrintUi*>(QString(), Qt::FindDirectChildrenOnly);
}

CCompareUi* CompareUiOf(const CMainFrame& frame) {
    return frame.findChild<CCompareUi*>(QString(), Qt::FindDirectChildrenOnly);
}

}  // namespace quillon
