// Pages of the calendar on a printer or in a PDF file.
#pragma once

#include "host/print/printed_page.h"

#include <QPagedPaintDevice>
#include <QPainter>

#include <vector>

namespace tavo::qt {

// Draws one page in its points. The painter counts points from the upper left corner of the sheet.
void DrawPage(QPainter& painter, const print::PrintedPage& page);

// The pages as one PDF file. False when it cannot be written: what was there before is as it was.
bool WritePdfFile(const std::vector<print::PrintedPage>& pages, QSizeF sheet, const QString& title,
                  const QString& path);

} // namespace tavo::qt
