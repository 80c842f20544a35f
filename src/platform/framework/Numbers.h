// Number conversions on UTF-16 text, in place: what the runtime's wcstod and 64-bit conversion do, without a
// copy into the runtime's own character type and without its locale.
#pragma once

#include <cstdint>
#include <limits>

// Converts the number at the start of `text`: leading white space, a sign, then decimal digits with
// `decimalPoint` and an exponent, or a hexadecimal number behind 0x, or inf, infinity, nan, nan(...) in any
// case. Correctly rounded; too large gives infinity, too small zero. `*end` is set behind the number, or to
// `text` if there is none (the result is then 0).
double ParseDouble(const char16_t* text, char16_t decimalPoint, const char16_t** end);

// The common case of ParseDouble alone: a sign, digits with at most one mark, comma or point, and nothing
// else, few enough that one exact division gives the correctly rounded value. `*mark` is set to the mark, or
// to null. False says nothing about the text.
bool ParseShortDecimal(const char16_t* text, double& value, const char16_t** mark);

// Converts the whole number at the start of `text`: leading white space, a sign, at radix 16 an optional 0x,
// digits of `radix` (2 to 36). Saturates at the bounds of 64 bits. `*end` as for ParseDouble.
std::int64_t ParseInt64(const char16_t* text, const char16_t** end, int radix);

// The double truncated toward zero. Not a number, and everything outside 64 bits, give the least 64-bit
// number, which is what the processor's own conversion answers.
inline std::int64_t DoubleToInt64(double value) {
    constexpr double Bound = 9223372036854775808.0;  // 2 to the 63
    if (!(value >= -Bound && value < Bound)) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(value);
}

// Two's complement arithmetic that wraps: time stamps come from files, and no file may cause undefined
// behaviour.
constexpr std::int64_t WrappingAdd(std::int64_t a, std::int64_t b) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) + static_cast<std::uint64_t>(b));
}
constexpr std::int64_t WrappingSubtract(std::int64_t a, std::int64_t b) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b));
}
constexpr std::int64_t WrappingMultiply(std::int64_t a, std::int64_t b) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) * static_cast<std::uint64_t>(b));
}
