// How files write that there is no value.
#pragma once

#include <string_view>

namespace kelvarin {

// True for a cell that is empty or holds a missing-value marker, such as "NaN", "n/a" or "--", in any case
// and with white space around it.
bool IsMissingValue(std::u16string_view text);

}  // namespace kelvarin
