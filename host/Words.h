// Settings and texts of files as people read them.
#pragma once

#include <cstddef>
#include <string>

#include "host/Reading.h"

namespace kelvarin {

// The name of a separator of an index 0 to 3.
std::string SeparatorName(int separator);

// Separator, header and first line of data.
std::string FormatInWords(const Reading& reading);

// A data type of the module: an ECsvDataType.
std::string DataTypeInWords(int type);

// The number of characters of a text in UTF-8, which is its width in a terminal but for wide scripts.
std::size_t TextWidth(const std::string& text);

// The text with line ends and other control characters shown as "?", and cut behind `width` characters.
std::string OneLine(const std::string& text, std::size_t width);

}  // namespace kelvarin
