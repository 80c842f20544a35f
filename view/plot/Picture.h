// Plots as a file or in memory.
#pragma once

#include <QByteArray>
#include <QPixmap>
#include <string>

class QPrinter;

namespace kelvarin::view {
class PlotArea;
class PlotModel;

// Lower-case endings of the files that can be written.
inline constexpr const char* PictureEndings[] = {"png", "svg", "pdf"};

// The ending of a file name if a picture can be written so, else an empty text.
std::string PictureEnding(const std::string& path);

// What the area shows, its cursors among it, with so many pixels for each of its own.
QPixmap PixmapOf(PlotArea& area, double scale = 1);

// The same in the area's size as such a file. A pixel of the area is 1/96 inch in SVG and 1/72 in PDF.
QByteArray PictureOf(PlotArea& area, const std::string& ending);

// Prints the plots of a model on one page, dark on white whatever the palette: as they are in an area of this
// size in pixels, enlarged or reduced to fit.
void PrintPlots(QPrinter& printer, PlotModel& model, const QSize& size);
}  // namespace kelvarin::view
