// Remembers the last time that was read, for the many rows that differ from it in their seconds alone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin::plan {
struct TimeRecipe;

// The seconds of a clock within a text, with their fraction.
struct ClockSeconds {
    std::size_t Begin = 0, End = 0;
    std::int64_t Value = 0;                  // ns
    std::int64_t LastDigit = 1'000'000'000;  // ns, what the last digit counts
};

class MinuteMemo {
  public:
    // What the recipe makes of the cells.
    std::optional<std::int64_t> TimeOf(const TimeRecipe& recipe,
                                       const std::vector<std::u16string_view>& cells);

  private:
    std::optional<std::int64_t> Known(const TimeRecipe& recipe,
                                      const std::vector<std::u16string_view>& cells) const;
    std::optional<std::int64_t> SecondsOf(std::u16string_view text) const;

    std::u16string Text;  // of the last column; empty: nothing is known
    std::u16string Date;  // of the column before it, if there is one
    ClockSeconds Place;   // in Text
    std::int64_t Time = 0;
};
}  // namespace kelvarin::plan
