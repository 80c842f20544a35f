// The order of day, month and year in the dates of a column.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/plan/TimeTrial.h"

namespace kelvarin::plan {
// What the order of day, month and year rests on.
enum class OrderProof {
    Unneeded,  // the times have no date, or read the same in every order
    Texts,     // other orders don't fit all texts
    Name,      // the column's name spells the format
    Steps,     // the rows follow each other evenly or rise
    Custom,    // people write dates with dots, or with twelve hours, in one order only
    None
};

struct DateStyle {
    TimeStyle Style;
    OrderProof Proof = OrderProof::Unneeded;
};

// The style of texts that hold a date and may hold a clock. `names` are those of the column; `columns`, from
// 0, are those that make up a text, for trials with the rows; `year` is that of dates without one, or 0.
// Nothing if no text is a time in any order.
std::optional<DateStyle> FindDateStyle(const std::vector<std::u16string_view>& texts,
                                       const std::vector<std::u16string>& names, const TableRows& rows,
                                       const std::vector<std::size_t>& columns, int year);
}  // namespace kelvarin::plan
