// Tells texts of times that differ in their seconds alone, as those of most neighbouring rows do.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kelvarin::plan {
// The seconds of a clock within a text, with their fraction.
struct ClockSeconds {
    std::size_t Begin = 0, End = 0;
    std::int64_t Value = 0;                  // ns
    std::int64_t LastDigit = 1'000'000'000;  // ns, what the last digit counts
};

// What is known of one text holds for another in the same minute: whatever date and clock it is read as, the
// seconds are added to it.
class SameMinute {
  public:
    // Makes this the known text.
    void Take(std::u16string_view text);

    // What the text has more than the known one, in ns; 0 for the same text. Nothing if they differ in more
    // than the seconds of a clock, or if nothing is known.
    std::optional<std::int64_t> SecondsMore(std::u16string_view text) const;

  private:
    std::u16string Text;  // empty: nothing is known
    std::optional<ClockSeconds> Place;
};
}  // namespace kelvarin::plan
