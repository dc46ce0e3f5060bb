#pragma once
// Drawing laid-out pages on a paged device: a printer, the print preview or a PDF file. A font's
// height becomes its pixel size, its average character width a stretch of the face, so the
// lines keep the width the layout gave them whatever face the machine substitutes.

#include "exchange/PrintPage.h"

#include <QDateTime>
#include <QString>
#include <functional>

class QFont;
class QPagedPaintDevice;
class QPaintDevice;
class QPainter;

namespace quillon {

class CM330Doc;

QFont DeviceFont(const PrintFont& font, double pixelsPerUnit, QPaintDevice* device);

// The printable area of `device` in units of `unitMm`.
PageSize PrintableSize(const QPagedPaintDevice& device, double unitMm);

void PaintPage(QPainter& painter, const PrintPage& page);

// Pages 1 to `count` as `layout` gives them, each on a page of its own. False when the device
// can't be painted on (a file that can't be written).
bool PaintPages(QPagedPaintDevice& device, int count, const std::function<PrintPage(int)>& layout);

// The project's parameter list on `device`, with the foot made from `now`.
bool PrintParameterList(QPagedPaintDevice& device, const CM330Doc& doc, const QDateTime& now);

// A4 upright with the margins of an ordinary printer, for PDF files.
void SetPdfPageLayout(QPagedPaintDevice& device);

// The parameter list as a PDF file at `path`; false with the reason in `error`.
bool WriteParameterListPdf(const CM330Doc& doc, const QString& path, const QDateTime& now,
                           QString& error);

}  // namespace quillon
