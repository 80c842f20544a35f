// The small language that says how a timestamp is read from text.
#pragma once

#include <cstdint>

// Marks a failure in place of a timestamp.
constexpr std::int64_t NoTimestamp = -1;

// Reads `value` by `format`; the grammar stands in TimestampFormat.cpp. With `hasDate` the answer is the
// absolute time in nanoseconds since 1970, else the time part alone, which may be negative. NoTimestamp if
// the two don't match, the date doesn't exist or lies outside 1970 to 2115, or a pointer is null; a time part
// of exactly -1 ns can't be told from that. Raises nothing.
std::int64_t ParseTimestamp(const char16_t* format, const char16_t* value, bool hasDate);
