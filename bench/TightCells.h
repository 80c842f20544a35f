// The cell scanners of the tight loop: the cursor stands at a cell's first byte and ends behind the separator
// or line end that follows it. They trust the generator: a text of another form gives a wrong number, and no
// read goes more than Padding bytes beyond the row.
#pragma once

#include <emmintrin.h>

#include <bit>
#include <chrono>
#include <cstdint>
#include <cstring>

constexpr std::size_t Padding = 64;

inline std::uint64_t LoadEight(const char* text) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text, sizeof bytes);
    return bytes;
}

// The number of 1 to 8 digits at `text`: those below it are shifted out, so that no loop has to guess how
// many there are.
inline std::uint64_t DigitsAt(const char* text, unsigned count) {
    std::uint64_t bytes = LoadEight(text) << (64 - 8 * count);
    bytes = (bytes & 0x0F0F0F0F0F0F0F0F) * 2561 >> 8;
    bytes = (bytes & 0x00FF00FF00FF00FF) * 6553601 >> 16;
    return (bytes & 0x0000FFFF0000FFFF) * 42949672960001 >> 32;
}

// One bit for each of 16 bytes that is no digit.
inline unsigned NonDigits(const char* text) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
    const __m128i shifted = _mm_add_epi8(bytes, _mm_set1_epi8(static_cast<char>(-128 - '0')));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpgt_epi8(shifted, _mm_set1_epi8(-128 + 9))));
}

// Sign, 1 to 8 digits, mark, 1 to 7 digits: 16 bytes with what ends them. The mantissa stays below 2^53 and
// the power of ten is exact, so one division rounds correctly.
inline double ScanFloat(const char*& at) {
    constexpr double Powers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7};
    constexpr std::uint64_t WholePowers[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};
    const std::uint64_t negative = *at == '-';
    at += negative;
    const unsigned others = NonDigits(at);
    const unsigned mark = static_cast<unsigned>(std::countr_zero(others));
    const unsigned end = static_cast<unsigned>(std::countr_zero(others & (others - 1)));
    const unsigned places = (end - mark - 1) & 7;
    const std::uint64_t mantissa = DigitsAt(at, mark) * WholePowers[places] + DigitsAt(at + mark + 1, places);
    at += end + 1;
    const double value = static_cast<double>(static_cast<std::int64_t>(mantissa)) / Powers[places];
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(value) | negative << 63);
}

// Sign and 1 to 8 digits; what stands behind them stays.
inline std::int64_t ScanDigits(const char*& at) {
    const std::int64_t negative = *at == '-';
    at += negative;
    const unsigned end = static_cast<unsigned>(std::countr_zero(NonDigits(at)));
    const std::int64_t value = static_cast<std::int64_t>(DigitsAt(at, end));
    at += end;
    return (value ^ -negative) + negative;
}

// 1 to 8 digits, 0 to 9 and A to F, behind "0x".
inline std::int64_t ScanHex(const char*& at) {
    at += 2;
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i ends = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(';'));
    const unsigned end =
        static_cast<unsigned>(std::countr_zero(static_cast<unsigned>(_mm_movemask_epi8(ends))));
    const std::uint64_t text = LoadEight(at) << (64 - 8 * end);
    std::uint64_t digits = (text & 0x0F0F0F0F0F0F0F0F) + (text >> 6 & 0x0101010101010101) * 9;
    digits = (digits << 4 | digits >> 8) & 0x00FF00FF00FF00FF;
    digits = (digits << 8 | digits >> 16) & 0x0000FFFF0000FFFF;
    digits = (digits << 16 | digits >> 32) & 0xFFFFFFFF;
    at += end + 1;
    return static_cast<std::int64_t>(digits);
}

// The text up to `end`; gives its length.
inline std::uint32_t ScanText(const char*& at, char end) {
    const char* const start = at;
    const __m128i wanted = _mm_set1_epi8(end);
    for (;; at += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
        const int found = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, wanted));
        if (found == 0) continue;
        at += std::countr_zero(static_cast<unsigned>(found));
        const std::uint32_t length = static_cast<std::uint32_t>(at - start);
        ++at;
        return length;
    }
}

// hh:mm:ss, seconds.
inline std::int64_t TimeOfDayAt(const char* text) {
    const auto pair = [text](int place) { return text[place] * 10 + text[place + 1] - '0' * 11; };
    return (pair(0) * 60 + pair(3)) * 60 + pair(6);
}

// Keeps the last date's midnight while its text repeats. The date is the first 8 bytes and the last 3 of 11,
// the one that ends it included.
class MidnightCache {
  public:
    // Nanoseconds since 1970. `year`, `month` and `day`: where they begin in the text.
    std::int64_t Of(const char* text, int year, int month, int day) {
        const std::uint64_t head = LoadEight(text);
        const std::uint64_t tail = LoadEight(text + 3);
        if (head != Head || tail != Tail) {
            Head = head;
            Tail = tail;
            Compute(text, year, month, day);
        }
        return Midnight;
    }

  private:
    [[gnu::noinline]] void Compute(const char* text, int year, int month, int day) {
        using namespace std::chrono;
        const std::chrono::year y(static_cast<int>(DigitsAt(text + year, 4)));
        const std::chrono::month m(static_cast<unsigned>(DigitsAt(text + month, 2)));
        const std::chrono::day d(static_cast<unsigned>(DigitsAt(text + day, 2)));
        Midnight = sys_days(y / m / d).time_since_epoch().count() * std::int64_t{86400} * 1000000000;
    }

    std::uint64_t Head = 0, Tail = 0;
    std::int64_t Midnight = 0;
};
