#include "qt/paperprinting.h"

#include "paper/fonts.h"
#include "qt/textconversion.h"

#include <QFile>
#include <QFont>
#include <QFontDatabase>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace norvik {

namespace {

constexpr double PointsPerInch = 72;

/// The program's own font, known to the toolkit from the first call on.
QString FontFamily() {
    static const QString family = [] {
        int font = 0;
        for (const bool bold : {true, false}) {
            const ByteView file = ListFont(bold);
            font = QFontDatabase::addApplicationFontFromData(QByteArray(
                reinterpret_cast<const char*>(file.data()), static_cast<qsizetype>(file.size())));
        }
        return QFontDatabase::applicationFontFamilies(font).value(0);
    }();
    return family;
}

QColor GreyColour(double grey) {
    return QColor::fromRgbF(static_cast<float>(grey), static_cast<float>(grey),
                            static_cast<float>(grey));
}

bool IsChosen(const QPrinter& printer, int page) {
    return printer.printRange() != QPrinter::PageRange || printer.pageRanges().isEmpty() ||
           printer.pageRanges().contains(page);
}

/// Whether a file that was printed into has its end; the toolkit does not tell of a full disk.
bool IsWhole(const QString& name) {
    constexpr qint64 LongestEnd = 16;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly) || file.isSequential() ||
        !file.seek(std::max<qint64>(file.size() - LongestEnd, 0))) {
        return false;
    }
    return file.read(LongestEnd).trimmed().endsWith("%%EOF");
}

}  // namespace

void DrawPaperPage(QPainter& painter, const PaperPage& page) {
    const double across = painter.device()->logicalDpiX() / PointsPerInch;
    const double down = painter.device()->logicalDpiY() / PointsPerInch;
    for (const PaperLine& line : page.Lines) {
        painter.setPen(QPen(GreyColour(line.Grey), line.Thickness * down));
        painter.drawLine(
            QLineF(line.X1 * across, line.Y1 * down, line.X2 * across, line.Y2 * down));
    }
    QFont font(FontFamily());
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);  // widths are those of the single characters
    for (const PaperText& text : page.Texts) {
        font.setPointSizeF(text.Size);
        font.setBold(text.Bold);
        painter.setFont(font);
        painter.setPen(GreyColour(text.Grey));
        painter.drawText(QPointF(text.X * across, text.Y * down), ToQString(text.Content));
    }
}

std::optional<int> PrintPaper(QPrinter& printer,
                              const std::function<PaperDocument(const PaperSize&)>& layOut) {
    printer.setFullPage(true);
    const QSizeF size = printer.pageLayout().fullRect(QPageLayout::Point).size();
    const PaperDocument document = layOut({size.width(), size.height()});
    std::vector<const PaperPage*> chosen;
    for (std::size_t i = 0; i < document.Pages.size(); ++i) {
        if (IsChosen(printer, static_cast<int>(i) + 1)) {
            chosen.push_back(&document.Pages[i]);
        }
    }
    if (chosen.empty()) {
        return 0;  // a painter that begins takes a sheet
    }
    QPainter painter;
    bool goesOn = painter.begin(&printer);
    for (std::size_t i = 0; goesOn && i < chosen.size(); ++i) {
        goesOn = i == 0 || printer.newPage();
        if (goesOn) {
            DrawPaperPage(painter, *chosen[i]);
        }
    }
    if (!painter.end() || !goesOn || printer.printerState() == QPrinter::Error) {
        return std::nullopt;
    }
    const QString file = printer.outputFileName();  // the preview has none
    if (printer.outputFormat() == QPrinter::PdfFormat && !file.isEmpty() && !IsWhole(file)) {
        return std::nullopt;
    }
    return static_cast<int>(chosen.size());
}

}  // namespace norvik
