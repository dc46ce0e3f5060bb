#include "exchange/CompareDlg.h"

#include "base/Language.h"
#include "base/Prompt.h"
#include "exchange/ComparePrint.h"
#include "exchange/PrintPainter.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSaveFile>
#include <QTableWidget>
#include <QVBoxLayout>

namespace quillon {
namespace {

// 258 by 140 dialog units at the usual 8-point dialog font.
constexpr int kDialogWidth = 452;
constexpr int kDialogHeight = 228;
constexpr std::array<int, 4> kColumnWidths{50, 0, 70, 85};  // the name column takes the rest
constexpr int kNameColumnShortfall = 194;

const char* const kSaveFilter = "Text File(%s)|%s||";
const char* const kSaveSuggestion = "R770 Compare Text";

// The filter text of the save dialog, in the form the file dialogs take.
QString SaveFilter() {
    QString filter = QString::asprintf(kSaveFilter, "*.txt", "*.txt");
    return filter.left(filter.indexOf(u'|'));
}

}  // namespace

CCompareSelectDlg::CCompareSelectDlg(bool linked, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("CompareSelectDlg"));
    setWindowTitle(Translated("Caption", "参数比较选择"));
    auto* frame = new QGroupBox(Translated("Caption", "比较内容选择"), this);
    auto* choices = new QVBoxLayout(frame);
    for (int m = 0; m < kCompareModeCount; ++m) {
        auto* radio = new QRadioButton(Translated("Caption", ColumnsOf(m).choice), frame);
        radio->setEnabled(linked || m == kCompareDefaultSet);
        choices->addWidget(radio);
        m_choices[static_cast<std::size_t>(m)] = radio;
    }
    Choice(linked ? kCompareSetRead : kCompareDefaultSet)->setChecked(true);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(Translated("Caption", "确定"), QDialogButtonBox::AcceptRole);
    buttons->addButton(Translated("Caption", "取消"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addWidget(buttons);
}

int CCompareSelectDlg::Mode() const {
    for (int m = 0; m < kCompareModeCount; ++m)
        if (Choice(m)->isChecked()) return m;
    return kCompareDefaultSet;
}

CCompareDlg::CCompareDlg(QPrinter& printer, QWidget* parent)
    : QDialog(parent),
      m_printer(printer),
      m_list(new QTableWidget(this)),
      m_save(new QPushButton(this)),
      m_print(new QPushButton(this)),
      m_close(new QPushButton(this)) {
    setObjectName(QStringLiteral("CompareDlg"));
    Retranslate();
    m_list->setShowGrid(true);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->verticalHeader()->hide();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* b : {m_save, m_print, m_close}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addLayout(buttons);
    connect(m_save, &QPushButton::clicked, this, &CCompareDlg::OnSave);
    connect(m_print, &QPushButton::clicked, this, &CCompareDlg::OnPrint);
    connect(m_close, &QPushButton::clicked, this, &QDialog::hide);
    resize(kDialogWidth, kDialogHeight);
}

void CCompareDlg::Fill(int mode, const CompareResult& result) {
    m_nMode = mode;
    m_result = result;
    const CompareColumns& c = ColumnsOf(mode);
    m_list->clear();
    m_list->setRowCount(0);
    m_list->setColumnCount(4);
    m_list->setHorizontalHeaderLabels({QStringLiteral("Code"), QStringLiteral("Parameter Name"),
                                       QString::fromLatin1(c.leftHeading),
                                       QString::fromLatin1(c.rightHeading)});
    for (int i = 0; i < 4; ++i)
        if (kColumnWidths[static_cast<std::size_t>(i)] > 0)
            m_list->setColumnWidth(i, kColumnWidths[static_cast<std::size_t>(i)]);
    SizeNameColumn();
    for (const ParamGroup& group : result) {
        for (const ParamRow& row : group.m_rows) {
            const int line = m_list->rowCount();
            m_list->insertRow(line);
            const QString texts[4] = {CompareCodeColumn(row), ListText(row), row.*c.left,
                                      row.*c.right};
            for (int i = 0; i < 4; ++i) m_list->setItem(line, i, new QTableWidgetItem(texts[i]));
        }
    }
}

void CCompareDlg::Retranslate() {
    setWindowTitle(Translated("Caption", "比较"));
    m_save->setText(Translated("Caption", "保存"));
    m_print->setText(Translated("Caption", "打印"));
    m_close->setText(Translated("Caption", "关闭"));
}

void CCompareDlg::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) Retranslate();
}

void CCompareDlg::SizeNameColumn() {
    m_list->setColumnWidth(1, std::max(40, m_list->width() - kNameColumnShortfall));
}

void CCompareDlg::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    SizeNameColumn();
}

void CCompareDlg::OnSave() {
    // The default extension is the project files' one, so a name typed bare ends in ".qpj".
    const QString path = Prompt().SaveFileName(QString(), SaveFilter(), QStringLiteral("qpj"),
                                               QString::fromLatin1(kSaveSuggestion));
    if (path.isEmpty()) return;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return;
    file.write(CompareText(m_result, m_nMode));
    file.commit();
}

void CCompareDlg::OnPrint() {
    QPrintDialog dialog(&m_printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    PrintCompare(m_printer, m_nMode, m_result);
}

bool PrintCompare(QPrinter& printer, int mode, const CompareResult& result) {
    printer.setDocName(QString::fromLatin1(kComparePrintDocName));
    const PageSize size = PrintableSize(printer, kComparePrintUnitMm);
    return PaintPages(printer, ComparePageCount(result),
                      [&](int page) { return LayoutComparePage(result, mode, size, page); });
}

}  // namespace quillon
