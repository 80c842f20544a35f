// A decimal number times a unit, without the rounding of floating point.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kelvarin::plan {
// A decimal number, less an offset, times a unit in ns, exactly, rounded to the nearest ns; nothing for
// another text or a product beyond 64 bits. "1706778000.25" by seconds is 1706778000250000000.
std::optional<std::int64_t> ExactProduct(std::u16string_view number, std::int64_t unit, char16_t mark,
                                         std::int64_t offset = 0);
}  // namespace kelvarin::plan
