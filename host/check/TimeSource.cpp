#include "host/check/TimeSource.h"

#include <utility>

#include "host/Reading.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

// Number of the module's string with the letters of a format.
constexpr unsigned FormatLettersId = 1003;
constexpr std::size_t YearLetter = 0, MonthLetter = 1, DayLetter = 2, LetterCount = 6;

constexpr std::int64_t Second = 1'000'000'000;

TimeSource::Date DateOf(int setting) {
    constexpr int Fixed = 1, None = 2;
    return setting == None    ? TimeSource::Date::None
           : setting == Fixed ? TimeSource::Date::Fixed
                              : TimeSource::Date::FromColumn;
}

}  // namespace

char16_t TimeSource::SeparatorSign() const {
    constexpr char16_t Signs[] = {u';', u',', u'\t', u' '};
    if (Separator >= 0 && Separator < 4) return Signs[Separator];
    return OtherSeparator.empty() ? u'\0' : OtherSeparator.front();
}

std::int64_t TimeSource::Resolution() const {
    constexpr std::pair<std::u16string_view, std::int64_t> Units[] = {
        {u"[ns]", 1},   {u"[µs]", 1'000},    {u"[ms]", 1'000'000},
        {u"s", Second}, {u"m", 60 * Second}, {u"h", 3600 * Second},
    };
    for (const auto& [name, unit] : Units) {
        if (Format.find(name) != std::u16string::npos) return unit;
    }
    return 86400 * Second;
}

std::u16string TimeSource::WithDayAndMonthExchanged() const {
    if (Letters.size() != LetterCount) return {};
    std::u16string other = Format;
    bool hasDay = false, hasMonth = false;
    for (char16_t& c : other) {
        if (c == Letters[DayLetter]) {
            hasDay = true;
            c = Letters[MonthLetter];
        } else if (c == Letters[MonthLetter]) {
            hasMonth = true;
            c = Letters[DayLetter];
        }
    }
    return hasDay && hasMonth ? other : std::u16string();
}

std::u16string TimeSource::WithOtherMark() const {
    std::u16string other = Format;
    for (std::size_t i = 1; i < other.size(); ++i) {
        char16_t& mark = other[i - 1];
        if (other[i] != u'0' || (mark != u',' && mark != u'.')) continue;
        mark = mark == u',' ? u'.' : u',';
        return other;
    }
    return {};
}

bool TimeSource::HasNoDayMonthDoubt() const {
    if (WithDayAndMonthExchanged().empty()) return true;
    return Format.find(Letters[YearLetter]) <
           std::min(Format.find(Letters[MonthLetter]), Format.find(Letters[DayLetter]));
}

TimeSource ReadingOf(const ModuleLoader& module, const CImportFilter& filter) {
    const Reading format = kelvarin::ReadingOf(filter);
    TimeSource reading;
    reading.DateFrom = DateOf(format.DateSetting);
    reading.IsInterval = format.TimeSetting == 1;
    reading.IsAdjusted = format.IsAdjusted;
    reading.IntervalValue = format.IntervalValue;
    reading.IntervalUnit = format.IntervalUnit;
    reading.Separator = format.Separator;
    reading.OtherSeparator = format.OtherSeparator;
    reading.MergeSeparators = format.MergeSeparators ? 1 : 0;
    reading.DateColumn = format.DateColumn;
    reading.TimeColumn = format.TimeColumn;
    reading.HeaderLine = format.HeaderLine;
    reading.FirstDataLine = format.FirstDataLine;
    reading.Format = format.TimestampFormat;
    reading.Letters = module.ResourceItems(FormatLettersId).front();
    return reading;
}

std::string FormatOptions(const TimeSource& reading, std::uint64_t headerLine, std::uint64_t firstDataLine) {
    const bool hasHeader = headerLine != 0;
    std::string options = SetOption("AutoFormat", 0) + " " + SetOption("Separator", reading.Separator);
    if (!reading.OtherSeparator.empty())
        options += " " + SetOption("OtherSeparator", Utf16ToUtf8(reading.OtherSeparator));
    options += " " + SetOption("MergeSeparators", reading.MergeSeparators);
    options +=
        " " + SetOption("FirstLine", static_cast<std::int64_t>(hasHeader ? headerLine : firstDataLine));
    return options + " " + SetOption("ImportHeader", hasHeader ? 1 : 0);
}

std::string FormatOptions(const TimeSource& reading) {
    return FormatOptions(reading, static_cast<std::uint64_t>(reading.HeaderLine),
                         static_cast<std::uint64_t>(reading.FirstDataLine));
}

std::string SetOption(const std::string& key, const std::string& value) {
    return "--set '" + key + "=" + value + "'";
}

std::string SetOption(const std::string& key, std::int64_t value) {
    return "--set " + key + "=" + std::to_string(value);
}

}  // namespace kelvarin::check
