// The rejected rows of a file as a file of their own.
#pragma once

#include <cstdint>
#include <string>

#include "host/check/LineSet.h"

namespace kelvarin::check {

// Copies all bytes above the data (byte order mark, preamble, header) and then those of the chosen lines, so
// that the same settings import the copy. Answers an empty text, or why it could not be written; a file that
// was there before is replaced. `from` must not be open in the module.
std::string WriteRejects(const std::u16string& from, const std::u16string& to, std::uint64_t firstDataLine,
                         const LineSet& dropped, const LineSet& refused);

// How many lines are in one of the sets.
std::uint64_t CountRejects(const LineSet& dropped, const LineSet& refused);

// True if both paths lead to one file.
bool IsSameFile(const std::u16string& a, const std::u16string& b);

}  // namespace kelvarin::check
