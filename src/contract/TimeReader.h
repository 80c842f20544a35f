// Optional interface of a filter: times read by any format.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class ITimeReader {
  public:
    static constexpr const char* Id = "kelvarin.TimeReader/1";

    virtual ~ITimeReader() = default;

    // Reads each text by the format: nanoseconds, since 1970 with `hasDate`, or -1 for a text that doesn't
    // fit.
    virtual std::vector<std::int64_t> ReadTimes(const std::u16string& format,
                                                const std::vector<std::u16string>& texts, bool hasDate) = 0;

    // The six letters of a format in the language in force: year, month, day, hours, minutes, seconds.
    virtual std::u16string FormatLetters() = 0;
};
