// Areas, texts and ink, in this order.
#include "host/qt/page_printing.h"

#include "host/posix/replace_file.h"
#include "host/qt/ink_export.h"

#include <QBuffer>
#include <QFile>
#include <QFontMetricsF>
#include <QPageSize>
#include <QPdfWriter>

#include <algorithm>
#include <span>

namespace tavo::qt {
namespace {

constexpr int kDotsPerInch = 1200;
constexpr int kPointsPerInch = 72;

QColor ColorOf(Color color) {
    return {color.Red(), color.Green(), color.Blue()};
}

QRectF RectOf(const print::Box& box) {
    return {box.Left, box.Top, box.Width, box.Height};
}

Qt::Alignment SideOf(print::Alignment align) {
    switch (align) {
    case print::Alignment::Center:
        return Qt::AlignHCenter;
    case print::Alignment::Right:
        return Qt::AlignRight;
    default:
        return Qt::AlignLeft;
    }
}

void DrawLine(QPainter& painter, const print::PrintedText& text) {
    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting); // the same places at every resolution
    font.setPixelSize(text.Size);
    font.setBold(text.IsBold);
    painter.setFont(font);
    painter.setPen(ColorOf(text.Ink));
    const QString words =
        QFontMetricsF(font).elidedText(QString::fromStdU16String(text.Text), Qt::ElideRight, text.Place.Width);
    painter.drawText(RectOf(text.Place), static_cast<int>(SideOf(text.Align) | Qt::AlignVCenter | Qt::TextSingleLine),
                     words);
}

void DrawInk(QPainter& painter, const print::PrintedInk& memo) {
    const QSizeF paper = PaperSizeFor(memo.Strokes);
    const double scale = std::min(memo.Place.Width / paper.width(), memo.Place.Height / paper.height());
    painter.save();
    painter.translate(memo.Place.Left, memo.Place.Top);
    painter.scale(scale, scale);
    DrawStrokes(painter, memo.Strokes);
    painter.restore();
}

} // namespace

void DrawPage(QPainter& painter, const print::PrintedPage& page) {
    for (const print::PrintedArea& area : page.Areas) {
        painter.fillRect(RectOf(area.Place), ColorOf(area.Ink));
    }
    for (const print::PrintedText& text : page.Texts) {
        DrawLine(painter, text);
    }
    for (const print::PrintedInk& memo : page.Inks) {
        DrawInk(painter, memo);
    }
}

bool WritePdfFile(const std::vector<print::PrintedPage>& pages, QSizeF sheet, const QString& title,
                  const QString& path) {
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    QPdfWriter writer(&file);
    writer.setTitle(title);
    writer.setResolution(kDotsPerInch);
    writer.setPageSize(QPageSize(sheet, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter(&writer);
    bool isGood = painter.isActive();
    for (std::size_t page = 0; isGood && page < pages.size(); ++page) {
        isGood = page == 0 || writer.newPage();
        painter.resetTransform();
        painter.scale(static_cast<double>(kDotsPerInch) / kPointsPerInch,
                      static_cast<double>(kDotsPerInch) / kPointsPerInch);
        DrawPage(painter, pages[page]);
    }
    isGood = isGood && painter.end();
    const std::span<const std::uint8_t> whole(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                              static_cast<std::size_t>(bytes.size()));
    return isGood && posix::ReplaceFile(QFile::encodeName(path).toStdString(), whole) == ErrorCode::Success;
}

} // namespace tavo::qt
