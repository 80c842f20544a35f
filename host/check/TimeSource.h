// How the rows of a run get their times, as the settings in force say.
#pragma once

#include <cstdint>
#include <string>

#include "host/ModuleLoader.h"

namespace kelvarin::check {

struct TimeSource {
    enum class Date { FromColumn, Fixed, None };

    Date DateFrom = Date::FromColumn;
    bool IsInterval = false;  // times are counted, not read
    bool IsAdjusted = false;
    double IntervalValue = 0;
    int IntervalUnit = 0;
    int Separator = 0;
    std::u16string OtherSeparator;
    int MergeSeparators = 0;
    int DateColumn = 1, TimeColumn = 1;  // 1-based
    int HeaderLine = 0;                  // 0: none
    int FirstDataLine = 1;
    std::u16string Format;
    std::u16string
        Letters;  // of the format in the language in force: year, month, day, hours, minutes, seconds

    // The character between cells.
    char16_t SeparatorSign() const;

    // The shortest difference that the format's fields can tell, in nanoseconds, but for digits behind a
    // mark.
    std::int64_t Resolution() const;

    // The format with day and month exchanged, or empty if they don't both stand in it.
    std::u16string WithDayAndMonthExchanged() const;

    // The format with the other decimal mark before the fraction, or empty without a fraction.
    std::u16string WithOtherMark() const;

    // True if nothing but convention's year first comes before month and day, or one of the three lacks.
    bool HasNoDayMonthDoubt() const;
};

// Of a filter that has analysed its file.
TimeSource ReadingOf(const ModuleLoader& module, const CImportFilter& filter);

// Options for the command line that name the table instead of leaving it to the analysis. The header stands
// in `headerLine`, or there is none (0) and the first row stands in `firstDataLine`.
std::string FormatOptions(const TimeSource& reading, std::uint64_t headerLine, std::uint64_t firstDataLine);

// The same for the table that was read.
std::string FormatOptions(const TimeSource& reading);

// One option for the command line; a text is quoted for a shell.
std::string SetOption(const std::string& key, const std::string& value);
std::string SetOption(const std::string& key, std::int64_t value);

}  // namespace kelvarin::check
