#include "exchange/ExchangeUi.h"

#include "base/Prompt.h"
#include "exchange/Bmp.h"
#include "exchange/CsvText.h"
#include "exchange/ExchangeTexts.h"
#include "exchange/ExportFormatDlg.h"
#include "shell/CommandIds.h"
#include "shell/MainFrame.h"
#include "shell/M330View.h"

#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace quillon {
namespace {

void OnExport(CMainFrame& frame) {
    const CM330Doc* doc = frame.Document();
    if (!doc) return;
    CExportFormatDlg dlg(&frame);
    if (dlg.exec() != QDialog::Accepted) return;
    ExportParams(*doc, dlg.Format());
}

// Whichever import ran, and however far: the list shows the rows as they now are, with no row
// marked as changed, and the tree is drawn anew.
void RefreshAfterImport(CMainFrame& frame, CM330Doc& doc) {
    // The imported values are the new reference, as after a write: every mark clears.
    doc.MarkWritten(-1);
    if (CM330View* view = frame.View()) view->OnRefreshList();
    frame.RebuildTree();
}

void OnImport(CMainFrame& frame) {
    CM330Doc* doc = frame.Document();
    if (!doc) return;
    ImportResult result = ImportResult::Failed;
    try {
        result = ImportParams(*doc);
    } catch (...) {
        // A file longer than the model's groups ends in the range failure, which the frame
        // shows; the rows it changed on the way are shown too.
        RefreshAfterImport(frame, *doc);
        throw;
    }
    if (result != ImportResult::NotRun) RefreshAfterImport(frame, *doc);
}

}  // namespace

void InstallExchangeCommands(CMainFrame& frame) {
    frame.SetCommandHandler(CmdId::ExportParams, [&frame] { OnExport(frame); });
    frame.SetCommandHandler(CmdId::ImportParams, [&frame] { OnImport(frame); });
}

bool SaveWidgetPicture(QWidget& widget) {
    const QImage image = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QByteArray bmp = BuildBmp32(image.width(), image.height(), image.constBits(), image.bytesPerLine());
    const QString path = Prompt().SaveFileName(QStringLiteral("Save"),
                                               QString::fromUtf8(ExchangeText::PictureFilter),
                                               QStringLiteral("bin"), QString());
    if (path.isEmpty()) return false;
    if (WriteWholeFile(path, bmp)) return true;
    Prompt().Message(QString::fromUtf8(ExchangeText::FileNotExist));
    return false;
}

}  // namespace quillon
