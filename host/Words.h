// Settings, samples, times and texts of files as people read them, in UTF-8 and in the language in force.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/Reading.h"

namespace kelvarin {
// The name of a separator: an ESeparator that has one of its own, 0 to 3.
std::string SeparatorName(int separator);

// Separator, header and first line of data.
std::string FormatInWords(const Reading& reading);

// A data type of the module: an ECsvDataType. Other numbers are "no type".
std::string DataTypeInWords(int type);

// A double in the fewest digits that read back as the same number: 1.5, 1e+300, inf, nan.
std::string ShortestText(double number);

// A sample by its type in the store: true, 1.5, "abc". `data` holds `size` bytes as CDevice takes them.
std::string SampleText(std::uint32_t type, const void* data, std::uint32_t size);

// True for every byte of UTF-8 but the second to last ones of a character.
constexpr bool StartsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

// The number of characters, which is a text's width on a terminal but for wide scripts.
std::size_t TextWidth(const std::string& text);

// The text with line ends and other control characters made visible, cut after `width` characters.
std::string OneLine(const std::string& text, std::size_t width);

// The moment of a row; under relative time its distance from the start. Nanoseconds.
std::string MomentInWords(const Reading& format, std::int64_t time);

// A duration, which is not negative: "200 ns", "12.5 ms", "1 s", then hours, minutes and seconds, from two
// days on with days in front.
std::string SpanInWords(std::int64_t nanoseconds);
std::string SpanInWords(double nanoseconds);

// "1 row", "3 rows"; "1 cell", "3 cells".
std::string RowsInWords(std::uint64_t count);
std::string CellsInWords(std::uint64_t count);

// A cell or a row in quotes, cut where it is long.
std::string Quoted(const std::u16string& text, std::size_t width = 60);

// True for a cell that is empty or holds a missing-value marker, such as "NaN", "n/a" or "--", in any case
// and with white space around it.
bool IsMissingValue(std::u16string_view text);
}  // namespace kelvarin
