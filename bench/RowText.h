// The text of a generated row: appends to a block of the caller, who provides the room.
#pragma once

#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstring>

// A calendar date and a time of day.
struct Moment {
    std::uint64_t Year, Month, Day, Hour, Minute, Second, Microsecond;
};

// `offset` in microseconds from 2024-02-01 10:00.
inline Moment MomentOf(std::uint64_t offset) {
    using namespace std::chrono;
    constexpr std::uint64_t Start = std::uint64_t{10} * 3600;
    const std::uint64_t second = Start + offset / 1000000;
    const year_month_day date(sys_days(2024y / February / 1) + days(second / 86400));
    return {static_cast<std::uint64_t>(static_cast<int>(date.year())),
            static_cast<unsigned>(date.month()),
            static_cast<unsigned>(date.day()),
            second / 3600 % 24,
            second / 60 % 60,
            second % 60,
            offset % 1000000};
}

// Appends pieces of a row; its numbers are a fixed pseudo-random sequence.
class RowText {
  public:
    void Begin(char* place) { At = place; }
    char* End() const { return At; }

    RowText& Char(char character) {
        *At++ = character;
        return *this;
    }

    RowText& Text(const char* text) {
        const std::size_t length = std::strlen(text);
        std::memcpy(At, text, length);
        At += length;
        return *this;
    }

    // Exactly `width` digits.
    RowText& Digits(std::uint64_t number, int width) {
        for (int place = width - 1; place >= 0; --place, number /= 10) {
            At[place] = static_cast<char>('0' + number % 10);
        }
        At += width;
        return *this;
    }

    RowText& Whole(std::uint64_t number) {
        At = std::to_chars(At, At + 20, number).ptr;
        return *this;
    }

    // Upper case, as instruments print it.
    RowText& Hex(std::uint32_t number) {
        char* const start = At;
        At = std::to_chars(At, At + 8, number, 16).ptr;
        for (char* digit = start; digit < At; ++digit) {
            if (*digit >= 'a') *digit = static_cast<char>(*digit - 'a' + 'A');
        }
        return *this;
    }

    RowText& TimeOfDay(const Moment& moment) {
        return Digits(moment.Hour, 2).Char(':').Digits(moment.Minute, 2).Char(':').Digits(moment.Second, 2);
    }

    RowText& IsoDate(const Moment& moment) {
        return Digits(moment.Year, 4).Char('-').Digits(moment.Month, 2).Char('-').Digits(moment.Day, 2);
    }

    // One number of eight is negative.
    RowText& Sign() {
        if (Below(8) == 0) Char('-');
        return *this;
    }

    // Below 2000, with `fewest` to `most` digits behind the mark.
    RowText& Float(char mark, int fewest, int most) {
        Sign().Whole(Below(2000)).Char(mark);
        const std::uint32_t digits = Below(100000);
        return Digits(digits, fewest + static_cast<int>(digits) % (most - fewest + 1));
    }

    // A number of 1 to 8 digits.
    std::uint32_t AnyLength() {
        constexpr std::uint32_t Bounds[] = {10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
        return Below(Bounds[Below(8)]);
    }

    std::uint32_t Below(std::uint32_t bound) {
        State = State * 6364136223846793005u + 1442695040888963407u;
        return static_cast<std::uint32_t>(State >> 33) % bound;
    }

  private:
    std::uint64_t State = 42;
    char* At = nullptr;
};
