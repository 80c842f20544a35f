// Remembers the last time that was read, for the many rows that differ from it in their seconds alone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/plan/SameMinute.h"

namespace kelvarin::plan {
struct TimeRecipe;

class MinuteMemo {
  public:
    // What the recipe makes of the cells.
    std::optional<std::int64_t> TimeOf(const TimeRecipe& recipe,
                                       const std::vector<std::u16string_view>& cells);

  private:
    std::optional<std::int64_t> Known(const TimeRecipe& recipe,
                                      const std::vector<std::u16string_view>& cells) const;

    bool IsKnown = false;
    SameMinute Minute;    // of the last column
    std::u16string Date;  // of the column before it, if there is one
    std::int64_t Time = 0;
};
}  // namespace kelvarin::plan
