// Cells of a file that stand for a value that is missing.
#pragma once

#include <string_view>

namespace kelvarin {

// True for an empty text and for the usual markers: nan, na, n/a, null, none, one to three hyphens, a
// question mark. Upper and lower case are one, and white space at the ends does not count.
bool IsMissingValue(std::u16string_view text);

}  // namespace kelvarin
