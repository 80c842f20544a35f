#include "analysis/ScanCell.h"

#include <cstring>
#include <type_traits>

#include "platform/framework/Text.h"
#include "simd/Units.h"

namespace {

// Four characters as one number, the first in its lowest bits.
template <class Unit>
using Four = std::conditional_t<sizeof(Unit) == 1, std::uint32_t, std::uint64_t>;

template <class Unit>
constexpr Four<Unit> FourLetters(const char (&text)[5]) {
    Four<Unit> letters = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const Four<Unit> letter = static_cast<unsigned char>(text[i]);
        letters |= letter << (8 * sizeof(Unit) * i);
    }
    return letters;
}

}  // namespace

template <class Unit>
const Unit* ScanExponent(const Unit* text, int& power) {
    constexpr std::ptrdiff_t MostExponentDigits = 3;
    if (*text == 'e' || *text == 'E') {
        const bool isNegative = *++text == '-';
        text = scan::SkipSign(text);
        const Unit* const digits = text;
        int exponent = 0;
        for (; IsDigit(static_cast<char16_t>(*text)) && text - digits < MostExponentDigits; ++text)
            exponent = exponent * 10 + (*text - '0');
        if (text == digits) return nullptr;
        power += isNegative ? -exponent : exponent;
    }
    // An "x" behind a zero begins a hexadecimal number.
    const bool isPlain = *text != ',' && *text != '.' && !IsDigit(static_cast<char16_t>(*text)) &&
                         *text != 'x' && *text != 'X';
    return isPlain ? text : nullptr;
}

template <class Unit>
std::size_t ScanLength(const Unit* cell) {
    return simd::LengthOf(cell);
}

template <class Unit>
bool ScanBool(const Unit* cell, bool& value) {
    if (cell[0] == '0' || cell[0] == '1') {
        value = cell[0] == '1';
        return cell[1] == 0;
    }
    Four<Unit> letters = 0;
    std::memcpy(&letters, cell, sizeof letters);
    letters |= FourLetters<Unit>("    ");  // small letters for capitals
    // Without a branch: which of both a cell is can't be predicted.
    value = static_cast<bool>((letters == FourLetters<Unit>("true")) & (cell[4] == 0));
    const bool isEnd = static_cast<bool>(((cell[4] | 0x20) == 'e') & (cell[5] == 0));
    return static_cast<bool>(value | ((letters == FourLetters<Unit>("fals")) & isEnd));
}

template <class Unit>
bool ScanHex(const Unit* cell, std::int64_t& value) {
    const Unit* const digits = cell[0] == '0' && cell[1] == 'x' ? cell + 2 : cell;
    const simd::HexRun run = simd::ReadHexDigits(digits);
    if (run.Count == 0 || digits[run.Count] != 0) return false;
    value = static_cast<std::int64_t>(run.Number);
    return true;
}

template <class Unit>
const Unit* ScanMoreDigits(const Unit* text, std::uint64_t& number) {
    const simd::DigitRun run = simd::ReadDigits(text);
    number = number * scan::WholePowers[run.Count] + scan::WithoutZeros(simd::JoinDigits(run), run.Count);
    return IsDigit(static_cast<char16_t>(text[run.Count])) ? nullptr : text + run.Count;
}

template std::size_t ScanLength(const char*);
template std::size_t ScanLength(const char16_t*);
template bool ScanBool(const char*, bool&);
template bool ScanBool(const char16_t*, bool&);
template bool ScanHex(const char*, std::int64_t&);
template bool ScanHex(const char16_t*, std::int64_t&);
template const char* ScanExponent(const char*, int&);
template const char16_t* ScanExponent(const char16_t*, int&);
template const char* ScanMoreDigits(const char*, std::uint64_t&);
template const char16_t* ScanMoreDigits(const char16_t*, std::uint64_t&);
