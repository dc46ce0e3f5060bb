#include "exchange/PrintPainter.h"

#include "exchange/PrintLayout.h"

#include <QFileInfo>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>

namespace quillon {
namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kPdfMarginMm = 5.0;

double PixelsPerUnit(const PrintPage& page, const QPaintDevice& device) {
    return page.unitMm / kMmPerInch * device.logicalDpiY();
}

}  // namespace

QFont DeviceFont(const PrintFont& wanted, double pixelsPerUnit, QPaintDevice* device) {
    QFont font(QString::fromLatin1(wanted.family));
    const bool fixed = QByteArray(wanted.family).startsWith("Courier");
    font.setStyleHint(fixed ? QFont::TypeWriter : QFont::SansSerif);
    font.setFixedPitch(fixed);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(wanted.height * pixelsPerUnit))));
    font.setWeight(static_cast<QFont::Weight>(std::clamp(wanted.weight, 100, 900)));
    if (wanted.width > 0) {
        const double natural = QFontMetricsF(font, device).averageCharWidth();
        if (natural > 0) {
            const double stretch = 100.0 * wanted.width * pixelsPerUnit / natural;
            font.setStretch(std::clamp(static_cast<int>(std::lround(stretch)), 1, 4000));
        }
    }
    return font;
}

PageSize PrintableSize(const QPagedPaintDevice& device, double unitMm) {
    const QRectF mm = device.pageLayout().paintRect(QPageLayout::Millimeter);
    return {static_cast<int>(mm.width() / unitMm), static_cast<int>(mm.height() / unitMm)};
}

void PaintPage(QPainter& painter, const PrintPage& page) {
    QPaintDevice* device = painter.device();
    const double s = PixelsPerUnit(page, *device);
    const double ySign = page.yUp ? -1.0 : 1.0;
    painter.setPen(QPen(Qt::black, std::max(1.0, 3 * s)));
    for (const PrintRule& r : page.rules)
        painter.drawLine(QPointF(r.x1 * s, ySign * r.y1 * s), QPointF(r.x2 * s, ySign * r.y2 * s));
    // A page has three or four fonts and hundreds of texts: each font is made once.
    std::vector<std::pair<PrintFont, std::pair<QFont, QFontMetricsF>>> fonts;
    auto fontOf = [&](const PrintFont& wanted) -> const std::pair<QFont, QFontMetricsF>& {
        for (const auto& [key, made] : fonts)
            if (key.family == wanted.family && key.height == wanted.height &&
                key.width == wanted.width && key.weight == wanted.weight)
                return made;
        QFont font = DeviceFont(wanted, s, device);
        fonts.push_back({wanted, {font, QFontMetricsF(font, device)}});
        return fonts.back().second;
    };
    for (const PrintText& t : page.texts) {
        const auto& [font, fm] = fontOf(t.font);
        painter.setFont(font);
        double x = t.x * s;
        if (t.centred) x -= fm.horizontalAdvance(t.text) / 2;
        painter.drawText(QPointF(x, ySign * t.y * s + fm.ascent()), t.text);
    }
}

bool PaintPages(QPagedPaintDevice& device, int count, const std::function<PrintPage(int)>& layout) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    for (int page = 1; page <= count; ++page) {
        if (page > 1 && !device.newPage()) return false;
        PaintPage(painter, layout(page));
    }
    return painter.end();
}

bool PrintParameterList(QPagedPaintDevice& device, const CM330Doc& doc, const QDateTime& now) {
    const std::vector<ListLine> lines = ListLines(doc);
    const PageSize size = PrintableSize(device, PrintPage{}.unitMm);
    const PrintFoot foot = MakePrintFoot(now);
    return PaintPages(device, ListPageCount(lines),
                      [&](int page) { return LayoutListPage(doc, lines, size, foot, page); });
}

void SetPdfPageLayout(QPagedPaintDevice& device) {
    device.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(kPdfMarginMm, kPdfMarginMm, kPdfMarginMm,
                                               kPdfMarginMm),
                                     QPageLayout::Millimeter));
}

bool WriteParameterListPdf(const CM330Doc& doc, const QString& path, const QDateTime& now,
                           QString& error) {
    QPdfWriter writer(path);
    writer.setTitle(doc.m_printTitles.m_strTitle);
    writer.setCreator(QStringLiteral("Quillon"));
    SetPdfPageLayout(writer);
    if (!PrintParameterList(writer, doc, now)) {
        error = QStringLiteral("can't write %1").arg(QFileInfo(path).absoluteFilePath());
        return false;
    }
    return true;
}

}  // namespace quillon
