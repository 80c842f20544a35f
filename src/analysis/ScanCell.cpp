// What counts here is few steps. Eight characters are compared, weighted and summed at once, whole part and decimals
// together. Digits stay at the left of their eight places, zeros behind them: with the whole part times 10 to the
// 8th a number's numerator has always eight decimals.
#include "analysis/ScanCell.h"

#include <emmintrin.h>

#include <bit>

namespace {

constexpr std::size_t UnitsPerLoad = 8;
constexpr unsigned MostDigits = 8;  // of a run
constexpr int Decimals = 8;         // of a numerator
constexpr std::uint64_t LargestExactInteger = std::uint64_t{1} << 53;

// All of them are exact as doubles.
constexpr double ExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                  1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int LargestExactPower = 22;
constexpr std::uint32_t WholePowers[MostDigits + 1] = {1,       10,        100,        1'000,      10'000,
                                                       100'000, 1'000'000, 10'000'000, 100'000'000};
constexpr std::ptrdiff_t MostExponentDigits = 3;

constexpr bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

// Behind the sign, if there is one. Without a branch: signs change from cell to cell.
const char16_t* SkipSign(const char16_t* text) {
    return text + static_cast<int>(*text == u'-' || *text == u'+');
}

double WithSign(double magnitude, bool isNegative) {
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(magnitude) | std::uint64_t{isNegative} << 63);
}

// The digits at one place of a text, in the first lanes; zeros in the others.
struct DigitRun {
    __m128i Digits;
    unsigned Count;
};

__m128i LoadUnits(const char16_t* text) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
}

DigitRun ReadDigits(const char16_t* text) {
    // All ones in as many lanes from the left as the row says.
    alignas(16) static constexpr std::int16_t FirstLanes[MostDigits + 1][UnitsPerLoad] = {
        {},
        {-1},
        {-1, -1},
        {-1, -1, -1},
        {-1, -1, -1, -1},
        {-1, -1, -1, -1, -1},
        {-1, -1, -1, -1, -1, -1},
        {-1, -1, -1, -1, -1, -1, -1},
        {-1, -1, -1, -1, -1, -1, -1, -1}};
    const __m128i digits = _mm_sub_epi16(LoadUnits(text), _mm_set1_epi16(u'0'));
    // Comparisons are signed: seen from the lowest number, digits are the ten least.
    constexpr std::int16_t Lowest = -0x8000;
    const __m128i others = _mm_cmpgt_epi16(_mm_add_epi16(digits, _mm_set1_epi16(Lowest)), _mm_set1_epi16(Lowest + 9));
    const auto bytes = static_cast<unsigned>(_mm_movemask_epi8(others)) | 0x10000;
    const auto count = static_cast<unsigned>(std::countr_zero(bytes)) / 2;
    return {_mm_and_si128(digits, *reinterpret_cast<const __m128i*>(FirstLanes[count])), count};
}

// Two runs, each as a number of eight digits: the first in the lower half, the second in the upper.
std::uint64_t JoinDigits(__m128i first, __m128i second) {
    const __m128i tens = _mm_set1_epi32(1 << 16 | 10);
    const __m128i hundreds = _mm_set1_epi32(1 << 16 | 100);
    const __m128i tenThousands = _mm_set1_epi32(1 << 16 | 10'000);
    const __m128i twos = _mm_packs_epi32(_mm_madd_epi16(first, tens), _mm_madd_epi16(second, tens));
    const __m128i fours = _mm_madd_epi16(twos, hundreds);
    const __m128i eights = _mm_madd_epi16(_mm_packs_epi32(fours, fours), tenThousands);
    return static_cast<std::uint64_t>(_mm_cvtsi128_si64(eights));
}

// A run of so many digits as a number, from one of eight.
std::uint32_t WithoutZeros(std::uint32_t number, unsigned count) {
    return number / WholePowers[MostDigits - count];
}

// The rest of a decimal number behind its digits: an exponent or none. Null if it isn't plain.
const char16_t* ScanExponent(const char16_t* text, int& power) {
    if (*text == u'e' || *text == u'E') {
        const bool isNegative = *++text == u'-';
        text = SkipSign(text);
        const char16_t* const digits = text;
        int exponent = 0;
        for (; IsDigit(*text) && text - digits < MostExponentDigits; ++text) exponent = exponent * 10 + (*text - u'0');
        if (text == digits) return nullptr;
        power += isNegative ? -exponent : exponent;
    }
    // An "x" behind a zero begins a hexadecimal number.
    const bool isPlain = *text != u',' && *text != u'.' && !IsDigit(*text) && *text != u'x' && *text != u'X';
    return isPlain ? text : nullptr;
}

}  // namespace

bool ScanDecimal(const char16_t* cell, double& value, const char16_t** end) {
    const char16_t* p = SkipSign(cell);
    const DigitRun whole = ReadDigits(p);
    if (whole.Count == 0) return false;
    p += whole.Count;
    DigitRun decimals{_mm_setzero_si128(), 0};
    if (*p == u',' || *p == u'.') {
        decimals = ReadDigits(++p);
        if (decimals.Count == 0) return false;
        p += decimals.Count;
    }
    int power = -Decimals;
    if (*p != u'\0') {
        p = ScanExponent(p, power);
        if (p == nullptr || power < -LargestExactPower || power > LargestExactPower) return false;
    }
    const std::uint64_t joined = JoinDigits(whole.Digits, decimals.Digits);
    const std::uint64_t numerator = (joined & 0xFFFFFFFF) * WholePowers[whole.Count] + (joined >> 32);
    // With both factors exact, one product or quotient is rounded correctly.
    if (numerator > LargestExactInteger) return false;
    const auto exact = static_cast<double>(static_cast<std::int64_t>(numerator));
    const double magnitude = power < 0 ? exact / ExactPowers[-power] : exact * ExactPowers[power];
    value = WithSign(magnitude, *cell == u'-');
    *end = p;
    return true;
}

bool ScanInteger(const char16_t* cell, std::int64_t& value, const char16_t** end) {
    const char16_t* p = SkipSign(cell);
    const DigitRun first = ReadDigits(p);
    if (first.Count == 0) return false;
    p += first.Count;
    DigitRun second{_mm_setzero_si128(), 0};
    if (first.Count == MostDigits) {
        second = ReadDigits(p);
        p += second.Count;
    }
    if (*p == u',' || *p == u'.' || IsDigit(*p)) return false;
    const std::uint64_t joined = JoinDigits(first.Digits, second.Digits);
    std::int64_t magnitude = WithoutZeros(static_cast<std::uint32_t>(joined), first.Count);
    if (second.Count != 0) {
        magnitude *= WholePowers[second.Count];
        magnitude += WithoutZeros(static_cast<std::uint32_t>(joined >> 32), second.Count);
    }
    value = *cell == u'-' ? -magnitude : magnitude;
    *end = p;
    return true;
}

std::size_t ScanLength(const char16_t* cell) {
    for (std::size_t length = 0;; length += UnitsPerLoad) {
        const __m128i areZero = _mm_cmpeq_epi16(LoadUnits(cell + length), _mm_setzero_si128());
        const auto zeros = static_cast<unsigned>(_mm_movemask_epi8(areZero));
        if (zeros != 0) return length + static_cast<std::size_t>(std::countr_zero(zeros)) / 2;
    }
}
