#include "view/plot/Picture.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <iterator>

#include "view/plot/PlotArea.h"

namespace kelvarin::view {
namespace {
void DrawOn(QPaintDevice& device, PlotArea& area) {
    QCPPainter painter(&device);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    area.toPainter(&painter, area.width(), area.height());
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

QByteArray PictureOf(PlotArea& area, const std::string& ending) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (ending == "png") {
        area.toPixmap(area.width(), area.height()).save(&buffer, "PNG");
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
}  // namespace kelvarin::view
