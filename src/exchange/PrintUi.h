#pragma once
// Printing on the desktop: Print, Print Preview, Print Setup and Print Title of the File menu,
// over one printer whose setup lasts the session, and the Compare command that prints on the
// same printer. InstallPrintAndCompareCommands creates both as children of the main window.

#include <QObject>
#include <memory>

class QPrinter;

namespace quillon {

class CMainFrame;
class CCompareUi;

inline constexpr const char* kInstallPrinter = "Please install printer before printing!";

class CPrintUi final : public QObject {
    Q_OBJECT
public:
    explicit CPrintUi(CMainFrame& frame);
    ~CPrintUi() override;

    QPrinter& Printer() { return *m_printer; }

    void OnPrint();
    void OnPrintPreview();
    void OnPrintSetup();
    void OnPrintTitle();

private:
    // Paper needs a printer; a PDF file doesn't. False (after the message) for paper without one.
    bool CanPrint();

    CMainFrame& m_frame;
    std::unique_ptr<QPrinter> m_printer;
};

void InstallPrintAndCompareCommands(CMainFrame& frame);
CPrintUi* PrintUiOf(const CMainFrame& frame);
CCompareUi* CompareUiOf(const CMainFrame& frame);

}  // namespace quillon
