#include "host/plan/ExactProduct.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>

#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
// The value is the digits times ten to the power of Exponent.
struct Decimal {
    std::u16string Digits;
    int Exponent = 0;
    bool IsNegative = false;

    // Digits before the decimal mark; negative if zeros follow it before them.
    std::ptrdiff_t WholeDigits() const { return static_cast<std::ptrdiff_t>(Digits.size()) + Exponent; }
    std::int64_t DigitAt(std::ptrdiff_t place) const {
        const auto index = static_cast<std::size_t>(place);
        return index < Digits.size() ? Digits[index] - u'0' : 0;
    }
};

std::optional<int> ReadExponent(std::u16string_view power) {
    const bool isSmall = power.starts_with(u'-');
    if (isSmall || power.starts_with(u'+')) power.remove_prefix(1);
    constexpr std::size_t MostDigits = 3;
    if (power.empty() || power.size() > MostDigits) return std::nullopt;
    int value = 0;
    for (const char16_t c : power) {
        if (!IsDigit(c)) return std::nullopt;
        value = 10 * value + (c - u'0');
    }
    constexpr int Most = 400;
    if (value > Most) return std::nullopt;
    return isSmall ? -value : value;
}

std::optional<Decimal> ReadDecimal(std::u16string_view number, char16_t mark) {
    Decimal decimal;
    decimal.IsNegative = number.starts_with(u'-');
    if (decimal.IsNegative || number.starts_with(u'+')) number.remove_prefix(1);
    std::size_t at = 0;
    bool isAfterMark = false;
    for (; at < number.size() && number[at] != u'e' && number[at] != u'E'; ++at) {
        if (number[at] == mark && !isAfterMark) {
            isAfterMark = true;
        } else if (IsDigit(number[at])) {
            decimal.Digits += number[at];
            decimal.Exponent -= isAfterMark;
        } else {
            return std::nullopt;
        }
    }
    if (decimal.Digits.empty()) return std::nullopt;
    if (at == number.size()) return decimal;
    const std::optional<int> exponent = ReadExponent(number.substr(at + 1));
    if (!exponent) return std::nullopt;
    decimal.Exponent += *exponent;
    return decimal;
}

// The product of the whole digits and the unit.
std::optional<std::int64_t> WholeProduct(const Decimal& decimal, std::int64_t unit, std::int64_t offset) {
    constexpr std::int64_t Most = std::numeric_limits<std::int64_t>::max();
    std::int64_t whole = 0;
    for (std::ptrdiff_t place = 0; place < decimal.WholeDigits(); ++place) {
        if (whole > (Most - 9) / 10) return std::nullopt;
        whole = 10 * whole + decimal.DigitAt(place);
    }
    whole -= offset;
    if (whole > Most / unit || whole < -(Most / unit)) return std::nullopt;
    return whole * unit;
}

// The product of the digits after the mark and the unit. It has more than 64 bits before it is divided by the
// power of ten, so the unit is divided digit by digit instead; what that leaves is kept in millionths of a
// ns.
std::int64_t FractionProduct(const Decimal& decimal, std::int64_t unit) {
    std::int64_t value = unit;
    std::int64_t left = 0;
    const auto divide = [&] {
        left = (left + value % 10 * 1'000'000) / 10;
        value /= 10;
    };
    for (std::ptrdiff_t i = std::min<std::ptrdiff_t>(decimal.WholeDigits(), 0); i < 0 && value != 0; ++i)
        divide();
    std::int64_t sum = 0;
    std::int64_t millionths = 0;
    const auto end = static_cast<std::ptrdiff_t>(decimal.Digits.size());
    for (std::ptrdiff_t place = std::max<std::ptrdiff_t>(decimal.WholeDigits(), 0); place < end; ++place) {
        divide();
        sum += decimal.DigitAt(place) * value;
        millionths += decimal.DigitAt(place) * left;
        if (value == 0 && left == 0) break;
    }
    return sum + (millionths + 500'000) / 1'000'000;
}
}  // namespace

std::optional<std::int64_t> ExactProduct(std::u16string_view number, std::int64_t unit, char16_t mark,
                                         std::int64_t offset) {
    const std::optional<Decimal> decimal = ReadDecimal(number, mark);
    if (!decimal) return std::nullopt;
    const std::optional<std::int64_t> whole = WholeProduct(*decimal, unit, offset);
    if (!whole) return std::nullopt;
    const std::int64_t fraction = FractionProduct(*decimal, unit);
    if (*whole > std::numeric_limits<std::int64_t>::max() - fraction) return std::nullopt;
    return decimal->IsNegative ? -(*whole + fraction) : *whole + fraction;
}
}  // namespace kelvarin::plan
