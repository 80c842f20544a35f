#include "analysis/ScanCell.h"

#include <cstring>

#include "platform/framework/Text.h"

namespace {

// Four characters as one number, small letters for capitals.
constexpr std::uint64_t LowerBits = 0x0020002000200020;
constexpr std::uint64_t FourLetters(const char16_t (&text)[5]) {
    return text[0] | std::uint64_t{text[1]} << 16 | std::uint64_t{text[2]} << 32 |
           std::uint64_t{text[3]} << 48;
}

}  // namespace

const char16_t* ScanExponent(const char16_t* text, int& power) {
    constexpr std::ptrdiff_t MostExponentDigits = 3;
    if (*text == u'e' || *text == u'E') {
        const bool isNegative = *++text == u'-';
        text = scan::SkipSign(text);
        const char16_t* const digits = text;
        int exponent = 0;
        for (; IsDigit(*text) && text - digits < MostExponentDigits; ++text)
            exponent = exponent * 10 + (*text - u'0');
        if (text == digits) return nullptr;
        power += isNegative ? -exponent : exponent;
    }
    // An "x" behind a zero begins a hexadecimal number.
    const bool isPlain = *text != u',' && *text != u'.' && !IsDigit(*text) && *text != u'x' && *text != u'X';
    return isPlain ? text : nullptr;
}

std::size_t ScanLength(const char16_t* cell) {
    for (std::size_t length = 0;; length += scan::UnitsPerLoad) {
        const __m128i areZero = _mm_cmpeq_epi16(scan::LoadUnits(cell + length), _mm_setzero_si128());
        const auto zeros = static_cast<unsigned>(_mm_movemask_epi8(areZero));
        if (zeros != 0) return length + static_cast<std::size_t>(std::countr_zero(zeros)) / 2;
    }
}

bool ScanBool(const char16_t* cell, bool& value) {
    if (cell[0] == u'0' || cell[0] == u'1') {
        value = cell[0] == u'1';
        return cell[1] == u'\0';
    }
    std::uint64_t letters = 0;
    std::memcpy(&letters, cell, sizeof letters);
    letters |= LowerBits;
    value = letters == FourLetters(u"true");
    if (value) return cell[4] == u'\0';
    return letters == FourLetters(u"fals") && (cell[4] | 0x20) == u'e' && cell[5] == u'\0';
}

bool ScanHex(const char16_t* cell, std::int64_t& value) {
    const char16_t* const digits = cell[0] == u'0' && cell[1] == u'x' ? cell + 2 : cell;
    const __m128i units = scan::LoadUnits(digits);
    const auto isBetween = [](__m128i lanes, std::int16_t first, std::int16_t last) {
        return _mm_cmpeq_epi16(_mm_subs_epu16(_mm_sub_epi16(lanes, _mm_set1_epi16(first)),
                                              _mm_set1_epi16(static_cast<std::int16_t>(last - first))),
                               _mm_setzero_si128());
    };
    const __m128i areDecimal = isBetween(units, u'0', u'9');
    const __m128i areLetters = isBetween(_mm_or_si128(units, _mm_set1_epi16(0x20)), u'a', u'f');
    const __m128i areDigits = _mm_or_si128(areDecimal, areLetters);
    const auto mask = static_cast<unsigned>(_mm_movemask_epi8(areDigits));
    const unsigned count = static_cast<unsigned>(std::countr_one(mask)) / 2;
    if (count == 0 || digits[count] != u'\0') return false;
    // Each lane its four bits, those of a letter being one to six and nine; the first digit the highest.
    const __m128i nine = _mm_and_si128(areLetters, _mm_set1_epi16(9));
    const __m128i low = _mm_and_si128(areDigits, _mm_and_si128(units, _mm_set1_epi16(0xF)));
    const __m128i fours = _mm_add_epi16(low, nine);
    const __m128i eights = _mm_madd_epi16(fours, _mm_set1_epi32(1 << 16 | 16));
    const __m128i sixteens = _mm_madd_epi16(_mm_packs_epi32(eights, eights), _mm_set1_epi32(1 << 16 | 256));
    const auto words = static_cast<std::uint64_t>(_mm_cvtsi128_si64(sixteens));
    const std::uint64_t all = (words & 0xFFFF) << 16 | words >> 32;
    value = static_cast<std::int64_t>(all >> (4 * (scan::UnitsPerLoad - count)));
    return true;
}

const char16_t* ScanMoreDigits(const char16_t* text, std::uint64_t& number) {
    const scan::DigitRun run = scan::ReadDigits(text);
    number =
        number * scan::WholePowers[run.Count] + scan::WithoutZeros(scan::JoinDigits(run.Digits), run.Count);
    return IsDigit(text[run.Count]) ? nullptr : text + run.Count;
}
