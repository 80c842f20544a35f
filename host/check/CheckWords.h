// Times, intervals and lines as people read them, in the language in force.
#pragma once

#include <cstdint>
#include <string>

#include "host/Reading.h"
#include "host/check/FilePlaces.h"

namespace kelvarin::check {

// The moment of a row; under relative time its distance from the start. Nanoseconds.
std::string MomentInWords(const Reading& format, std::int64_t time);

// A duration, which is not negative: "200 ns", "12.5 ms", "1 s", then hours, minutes and seconds, from two
// days on with days in front.
std::string SpanInWords(std::int64_t nanoseconds);
std::string SpanInWords(double nanoseconds);

// "line 3", or "lines 3, 4, 5 ... 1204"; empty without a place.
std::string LinesInWords(const FilePlaces& places);

// "1 row", "3 rows".
std::string RowsInWords(std::uint64_t count);

// "1 cell", "3 cells".
std::string CellsInWords(std::uint64_t count);

// A cell or a row in quotes, cut where it is long.
std::string Quoted(const std::u16string& text, std::size_t width = 60);

}  // namespace kelvarin::check
