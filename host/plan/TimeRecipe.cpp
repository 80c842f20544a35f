#include "host/plan/TimeRecipe.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "host/plan/Cells.h"
#include "host/plan/Durations.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
std::optional<std::int64_t> WholeNumber(std::u16string_view text) {
    text = TrimWhiteSpace(text);
    if (text.empty() || text.size() > 9) return std::nullopt;
    std::int64_t number = 0;
    for (const char16_t c : text) {
        if (!IsDigit(c)) return std::nullopt;
        number = 10 * number + (c - u'0');
    }
    return number;
}

struct DateParts {
    std::int64_t Year = 0, Month = 1, Day = 1, DayOfYear = 0;
    std::int64_t Clock = 0;
    std::int64_t Days = 0;
    bool HasDate = false;
};

bool AddPart(TimePart part, std::u16string_view cell, DateParts& all, const TimeStyle& style) {
    if (part == TimePart::Date) {
        const std::optional<ParsedTime> date = ParseTime(cell, style);
        if (!date || !date->HasDate) return false;
        all.Days = DaysSince1970(date->Year, date->Month, date->Day);
        all.Clock += date->Clock;
        all.HasDate = true;
        return true;
    }
    if (part == TimePart::Hours || part == TimePart::Minutes || part == TimePart::Seconds) {
        const std::int64_t unit = part == TimePart::Hours     ? Hour
                                  : part == TimePart::Minutes ? 60 * Second
                                                              : Second;
        const std::optional<NumberLook> look = LookAtNumber(cell);
        if (!look) return false;
        const std::optional<std::int64_t> amount =
            ExactProduct(cell, unit, look->Mark == u'\0' ? u'.' : look->Mark);
        // Of a week, seconds go further.
        const std::int64_t most = part == TimePart::Hours ? 24 * Hour
                                  : all.HasDate && all.Days % 7 == 3 && part == TimePart::Seconds
                                      ? 7 * DayLength
                                      : 60 * unit;
        if (!amount || *amount < 0 || *amount > most) return false;
        all.Clock += *amount;
        return true;
    }
    if (part == TimePart::Clock) {
        const std::optional<ParsedTime> clock = ParseTime(cell, style);
        if (!clock || clock->HasDate) return false;
        all.Clock += clock->Clock;
        return true;
    }
    const std::optional<std::int64_t> number = WholeNumber(cell);
    if (!number) return false;
    switch (part) {
        case TimePart::Milliseconds:
            all.Clock += *number * (Second / 1000);
            return *number < 1000;
        case TimePart::Week:
            // Weeks of satellite time count from 6 January 1980.
            all.Days = DaysSince1970(1980, 1, 6) + 7 * *number;
            all.HasDate = true;
            return *number < 10'000;
        case TimePart::Year:
            all.Year = *number < 100 ? *number + (*number < 70 ? 2000 : 1900) : *number;
            return all.Year >= 1900 && all.Year <= 2200;
        case TimePart::Month:
            all.Month = *number;
            return *number >= 1 && *number <= 12;
        case TimePart::Day:
            all.Day = *number;
            return *number >= 1 && *number <= 31;
        case TimePart::DayOfYear:
            all.DayOfYear = *number;
            return *number >= 1 && *number <= 366;
        default:
            all.Clock += *number / 100 * Hour + *number % 100 * 60 * Second;
            return *number <= 2400 && *number % 100 < 60;
    }
}

std::optional<std::int64_t> TimeOfParts(const TimeRecipe& recipe,
                                        const std::vector<std::u16string_view>& cells) {
    DateParts all;
    for (const PartColumn& part : recipe.Parts) {
        if (part.Column >= cells.size() || !AddPart(part.Part, cells[part.Column], all, recipe.Style))
            return std::nullopt;
    }
    if (!all.HasDate) {
        const int year = static_cast<int>(all.Year);
        all.Days = all.DayOfYear != 0
                       ? DaysSince1970(year, 1, 1) + all.DayOfYear - 1
                       : DaysSince1970(year, static_cast<int>(all.Month), static_cast<int>(all.Day));
    }
    return all.Days * DayLength + all.Clock;
}

std::optional<std::int64_t> TimeOfText(const TimeRecipe& recipe,
                                       const std::vector<std::u16string_view>& cells) {
    std::u16string joined;
    std::u16string_view text;
    for (const std::size_t column : recipe.Columns) {
        if (column >= cells.size() || cells[column].empty()) return std::nullopt;
        if (recipe.Columns.size() == 1) {
            text = cells[column];
        } else {
            joined += joined.empty() ? u"" : u" ";
            joined += cells[column];
            text = joined;
        }
    }
    const std::optional<ParsedTime> time = ParseTime(text, recipe.Style);
    if (!time || time->HasDate != recipe.IsAbsolute) return std::nullopt;
    if (!recipe.AppliesZone) return time->Written();
    if (!time->ZoneMinutes) return std::nullopt;
    return time->Written() - *time->ZoneMinutes * 60 * Second;
}
}  // namespace

std::optional<std::int64_t> ExactProduct(std::u16string_view number, std::int64_t unit, char16_t mark,
                                         std::int64_t offset) {
    std::size_t at = 0;
    const bool isNegative = !number.empty() && number[0] == u'-';
    if (!number.empty() && (number[0] == u'-' || number[0] == u'+')) ++at;
    std::u16string digits;
    int exponent = 0;  // of ten, after the digits
    bool afterMark = false;
    for (; at < number.size() && number[at] != u'e' && number[at] != u'E'; ++at) {
        if (number[at] == mark && !afterMark) {
            afterMark = true;
        } else if (IsDigit(number[at])) {
            digits += number[at];
            exponent -= afterMark;
        } else {
            return std::nullopt;
        }
    }
    if (digits.empty()) return std::nullopt;
    if (at < number.size()) {
        std::u16string_view power = number.substr(at + 1);
        const bool isSmall = !power.empty() && power[0] == u'-';
        if (!power.empty() && (power[0] == u'-' || power[0] == u'+')) power.remove_prefix(1);
        const std::optional<std::int64_t> value = WholeNumber(power);
        if (!value || *value > 400) return std::nullopt;
        exponent += static_cast<int>(isSmall ? -*value : *value);
    }
    // The product as whole nanoseconds and tenths, digit by digit: value = value * 10 + digit * unit would
    // need more than 64 bits where a long fraction follows, so the fraction is divided digit by digit
    // instead.
    std::int64_t whole = 0;
    const auto wholeDigits = static_cast<std::ptrdiff_t>(digits.size()) + exponent;
    constexpr std::int64_t Most = std::numeric_limits<std::int64_t>::max();
    std::ptrdiff_t place = 0;
    for (; place < wholeDigits; ++place) {
        const std::int64_t digit = place < static_cast<std::ptrdiff_t>(digits.size())
                                       ? digits[static_cast<std::size_t>(place)] - u'0'
                                       : 0;
        if (whole > (Most - 9) / 10) return std::nullopt;
        whole = 10 * whole + digit;
    }
    whole -= offset;
    if (whole > Most / unit || whole < -(Most / unit)) return std::nullopt;
    std::int64_t sum = whole * unit;
    // Digits after the mark: unit / 10, unit / 100, and what the divisions leave, with six more digits.
    std::int64_t rest = 0;  // millionths of a ns
    std::int64_t value = unit;
    std::int64_t part = 0;
    for (std::ptrdiff_t i = std::min<std::ptrdiff_t>(wholeDigits, 0); i < 0 && value != 0; ++i) {
        part = (part + value % 10 * 1'000'000) / 10;
        value /= 10;
    }
    for (place = std::max<std::ptrdiff_t>(wholeDigits, 0); place < static_cast<std::ptrdiff_t>(digits.size());
         ++place) {
        part = (part + value % 10 * 1'000'000) / 10;
        value /= 10;
        const std::int64_t digit = digits[static_cast<std::size_t>(place)] - u'0';
        sum += digit * value;
        rest += digit * part;
        if (value == 0 && part == 0) break;
    }
    sum += (rest + 500'000) / 1'000'000;
    return isNegative ? -sum : sum;
}

std::optional<std::int64_t> TimeRecipe::TimeOf(const std::vector<std::u16string_view>& cells) const {
    if (Kind == TimeKind::Parts) return TimeOfParts(*this, cells);
    if (Kind == TimeKind::Text) return TimeOfText(*this, cells);
    if (Kind == TimeKind::Interval) return Epoch;
    const std::size_t column = Columns.front();
    if (column >= cells.size()) return std::nullopt;
    const std::optional<std::int64_t> time = ExactProduct(WithoutBrackets(cells[column]), Unit, Mark, Offset);
    if (!time) return std::nullopt;
    return *time + Epoch;
}

std::optional<std::int64_t> TimeWalk::Next(const std::vector<std::u16string_view>& cells, std::size_t width) {
    const std::size_t used = Recipe.Columns.size() + Recipe.Parts.size();
    constexpr std::size_t WideTable = 4;
    const auto filled = std::count_if(cells.begin(), cells.end(), [](auto cell) { return !cell.empty(); });
    const bool isAlone =
        cells.size() <= used || (cells.size() > WideTable && static_cast<std::size_t>(filled) <= used);
    if (isAlone && width > used) return std::nullopt;
    std::optional<std::int64_t> time = Memo.TimeOf(Recipe, cells);
    if (!time) return std::nullopt;
    if (Recipe.Kind == TimeKind::Interval) return *time + Recipe.Unit * Row++;
    if (!Recipe.RollsOver) return time;
    if (!IsFirst && *time < Before - DayLength / 2) Days += DayLength;
    IsFirst = false;
    Before = *time;
    return *time + Days;
}
}  // namespace kelvarin::plan
