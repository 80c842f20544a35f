// Plots as a file or in memory.
#pragma once

#include <QByteArray>
#include <string>

namespace kelvarin::view {
class PlotArea;

// Lower-case endings of the files that can be written.
inline constexpr const char* PictureEndings[] = {"png", "svg", "pdf"};

// The ending of a file name if a picture can be written so, else an empty text.
std::string PictureEnding(const std::string& path);

// What the area shows, in its size, as such a file. A pixel of the area is 1/96 inch in SVG and 1/72 in PDF.
QByteArray PictureOf(PlotArea& area, const std::string& ending);
}  // namespace kelvarin::view
