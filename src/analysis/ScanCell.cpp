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
    constexpr std::ptrdiff_t MostHexDigits = 15;
    const char16_t* p = cell[0] == u'0' && cell[1] == u'x' ? cell + 2 : cell;
    const char16_t* const digits = p;
    std::uint64_t number = 0;
    for (;; ++p) {
        const unsigned decimal = *p - unsigned{u'0'};
        const unsigned letter = (*p | 0x20u) - unsigned{u'a'};
        if (decimal > 9 && letter > 5) break;
        number = number << 4 | (decimal <= 9 ? decimal : letter + 10);
    }
    value = static_cast<std::int64_t>(number);
    return *p == u'\0' && p != digits && p - digits <= MostHexDigits;
}

const char16_t* ScanMoreDigits(const char16_t* text, std::uint64_t& number) {
    const scan::DigitRun run = scan::ReadDigits(text);
    number =
        number * scan::WholePowers[run.Count] + scan::WithoutZeros(scan::JoinDigits(run.Digits), run.Count);
    return IsDigit(text[run.Count]) ? nullptr : text + run.Count;
}
