// The host's time stamps: nanoseconds since 1970-01-01 00:00 UTC, with a calendar side in local time.
#pragma once

#include <cstdint>
#include <string>

// Seconds since 1970-01-01 00:00 UTC.
struct CTime {
    std::int64_t Seconds;
};

// A moment, or a measurement time on the same scale. Overflow of 64 bits wraps.
class CTimeStamp {
  public:
    explicit CTimeStamp(CTime time);
    explicit CTimeStamp(std::int64_t nanoseconds) : Nanoseconds(nanoseconds) {}

    // A local date and time of day. Raises COleException if the date doesn't exist, such as 31 February, or
    // the time of day is none.
    CTimeStamp(int year, int month, int day, int hour, int minute, int second, int nanosecond);

    // The moment 0, for fromString.
    CTimeStamp() : Nanoseconds(0) {}

    // Reads a local date and time by a format of runs of Y, M, D, H, m and s, each so many digits, and other
    // characters that stand for themselves. What the format lacks is 1970-01-01 00:00:00. A date without a
    // time is its local midnight; the date on which the moment 0 is gives that moment, as in DateToTIME.
    // False, with the stamp left alone, if the whole text doesn't fit or the date or time doesn't exist.
    bool fromString(const std::u16string& text, const std::u16string& format, int reserved);

    // Seconds since 1970, rounded toward the past.
    CTime GetCTime() const;

    // Nanoseconds since 1970.
    std::int64_t toTIME() const { return Nanoseconds; }

    // The time of day in nanoseconds. With `local` what clocks show, 0 up to a day. Else the time that has
    // passed since the last local midnight, which differs after a change of the clocks on that day and can
    // exceed a day: the scale of a row's time, which is added to the midnight of its date.
    std::int64_t DaytimeToTIME(bool local) const;

    // The stamp's local date at midnight, in nanoseconds since 1970: the first midnight if the clocks show
    // two, the time to which they are set if they skip it. The moment 0 remains 0, so that in every zone
    // seconds since 1970 can be added to it.
    std::int64_t DateToTIME() const;

    // The local date and time by a format with %x and %X (date and time of day as the user's locale has
    // them), %ms, %µs and %ns (three digits each).
    std::u16string Format(const std::u16string& format, int reserved, bool local, bool reserved2) const;

    // The local date and time: "YYYY-MM-DD hh:mm:ss", then the nanoseconds as ".nnnnnnnnn" without zeros at
    // the end, or nothing if they are 0.
    std::u16string ToText() const;

  private:
    std::int64_t Nanoseconds;
};

// The distance between two moments in nanoseconds. Overflow of 64 bits wraps.
class CTimeStampSpan {
  public:
    explicit CTimeStampSpan(std::int64_t nanoseconds) : Nanoseconds(nanoseconds) {}
    CTimeStampSpan(const CTimeStamp& from, const CTimeStamp& to);

    // The distance by a format with %h (hours, any number), %M, %S (two digits), %ms, %µs, %ns (three digits
    // each); a negative one has a sign in front.
    std::u16string Format(const std::u16string& format, bool hoursBeyondDay) const;

    std::int64_t toTIME() const { return Nanoseconds; }

    // "hh:mm:ss" with any number of hours and a sign if it is negative, then the nanoseconds as in
    // CTimeStamp.
    std::u16string ToText() const;

  private:
    std::int64_t Nanoseconds;
};
