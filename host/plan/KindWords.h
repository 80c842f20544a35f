// Words for kinds of values, in a row of their own below the names: "Avg", "REAL32", "Counter".
#pragma once

#include <string_view>
#include <vector>

namespace kelvarin::plan {
// True if three of four cells that aren't empty are such words, and at least one is.
bool AreKinds(const std::vector<std::u16string_view>& cells);
}  // namespace kelvarin::plan
