#include "analysis/ScanCell.h"

#include <cstring>

#include "platform/framework/Text.h"
#include "simd/Units.h"

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
    return simd::LengthOf(cell);
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
    const simd::HexRun run = simd::ReadHexDigits(digits);
    if (run.Count == 0 || digits[run.Count] != u'\0') return false;
    value = static_cast<std::int64_t>(run.Number);
    return true;
}

const char16_t* ScanMoreDigits(const char16_t* text, std::uint64_t& number) {
    const simd::DigitRun run = simd::ReadDigits(text);
    number = number * scan::WholePowers[run.Count] + scan::WithoutZeros(simd::JoinDigits(run), run.Count);
    return IsDigit(text[run.Count]) ? nullptr : text + run.Count;
}
