#include "view/plot/Picture.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QPrinter>
#include <QSvgGenerator>
#include <algorithm>
#include <iterator>

#include "view/plot/PlotArea.h"

namespace kelvarin::view {
namespace {
void DrawOn(QPaintDevice& device, PlotArea& area, double scale = 1) {
    QCPPainter painter(&device);
    painter.scale(scale, scale);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    painter.setMode(QCPPainter::pmNonCosmetic);  // a dot of a printer can't be seen
    area.toPainter(&painter, area.width(), area.height());
    area.DrawCursors(painter);
}
}  // namespace

std::string PictureEnding(const std::string& path) {
    const std::size_t point = path.rfind('.');
    if (point == std::string::npos) return {};
    std::string ending = path.substr(point + 1);
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    const bool isKnown =
        std::find(std::begin(PictureEndings), std::end(PictureEndings), ending) != std::end(PictureEndings);
    return isKnown ? ending : std::string();
}

QPixmap PixmapOf(PlotArea& area, double scale) {
    QPixmap pixmap = area.toPixmap(area.width(), area.height(), scale);
    QPainter painter(&pixmap);
    painter.scale(scale, scale);
    area.DrawCursors(painter);
    return pixmap;
}

QByteArray PictureOf(PlotArea& area, const std::string& ending) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (ending == "png") {
        PixmapOf(area).save(&buffer, "PNG");
    } else if (ending == "svg") {
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setSize(area.size());
        generator.setViewBox(area.rect());
        generator.setResolution(96);
        DrawOn(generator, area);
    } else {
        QPdfWriter writer(&buffer);
        writer.setResolution(72);
        writer.setPageSize(QPageSize(QSizeF(area.size()), QPageSize::Point));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        DrawOn(writer, area);
    }
    buffer.close();
    return bytes;
}

void PrintPlots(QPrinter& printer, PlotModel& model, const QSize& size) {
    PlotArea paper(model);
    paper.setPalette(QPalette(QColor(Qt::lightGray)));
    paper.Arrange(size);
    const QRectF page = printer.pageRect(QPrinter::DevicePixel);
    DrawOn(printer, paper, std::min(page.width() / size.width(), page.height() / size.height()));
}
}  // namespace kelvarin::view
