// The formats of the module that a text has the look of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvarin::plan {
// Every way to read the text as a date, a time of day or both: the numbers must be in range, and whether a
// format reads them is the module's to say. `letters` are the six of a format: of year, month, day, hours,
// minutes, seconds. None for texts that no format holds: with AM or PM, or with one of the letters as a mark.
std::vector<std::u16string> FormatsLike(std::u16string_view text, const std::u16string& letters);
}  // namespace kelvarin::plan
