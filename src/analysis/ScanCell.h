// The plain numbers that almost all cells of a run are, read eight characters at a time. What isn't plain is
// left to ParseFloat and ParseInteger, which these answer for. Nothing here changes a cell; all of it reads
// up to LinePadding units behind its terminating zero. A Unit is char in a line of ASCII, else char16_t.
//
// What counts is few steps. Eight characters are compared, weighted and summed at once, whole part and
// decimals together. Digits stay at the left of their eight places, zeros behind them: with the whole part
// times 10 to the 8th a number's numerator has always eight decimals.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "simd/Digits.h"

// The units before the cell's terminating zero.
template <class Unit>
std::size_t ScanLength(const Unit* cell);

// "true" or "false" in any case, "1" or "0". False says nothing about the cell.
template <class Unit>
bool ScanBool(const Unit* cell, bool& value);

// A hexadecimal number of up to 8 digits with "0x" in front or nothing, which is the whole cell. False says
// nothing about the cell.
template <class Unit>
bool ScanHex(const Unit* cell, std::int64_t& value);

// What stands behind the digits of a decimal number: nothing, an exponent, which is added to `power`, a unit.
// Null if the number isn't plain.
template <class Unit>
const Unit* ScanExponent(const Unit* text, int& power);

// Appends the up to eight digits at `text` to a number. The place behind them; null if more follow.
template <class Unit>
const Unit* ScanMoreDigits(const Unit* text, std::uint64_t& number);

// Steps of the scans.
namespace scan {

using simd::MostDigits;
constexpr int Decimals = 8;  // of a numerator
constexpr std::uint64_t LargestExactInteger = std::uint64_t{1} << 53;

// All of them are exact as doubles.
inline constexpr double ExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                         1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                         1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int LargestExactPower = 22;
inline constexpr std::uint32_t WholePowers[MostDigits + 1] = {
    1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000};

// The inverses of the powers of five, modulo 2 to the 32nd.
inline constexpr std::array<std::uint32_t, MostDigits + 1> InversesOfFives = [] {
    std::array<std::uint32_t, MostDigits + 1> inverses{1};
    constexpr std::uint32_t InverseOfFive = 0xCCCCCCCD;
    for (std::size_t i = 1; i < inverses.size(); ++i) inverses[i] = inverses[i - 1] * InverseOfFive;
    return inverses;
}();

// Behind the sign, if there is one. Without a branch: signs change from cell to cell.
template <class Unit>
const Unit* SkipSign(const Unit* text) {
    return text + static_cast<int>(*text == '-' || *text == '+');
}

inline double WithSign(double magnitude, bool isNegative) {
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(magnitude) | std::uint64_t{isNegative} << 63);
}

// A run of so many digits as a number, from one of eight that has zeros behind them. A division without rest
// is one multiplication by the inverse, but for the twos in it; the processor's own takes ten times as long.
inline std::uint32_t WithoutZeros(std::uint32_t number, unsigned count) {
    const unsigned zeros = MostDigits - count;
    return (number >> zeros) * InversesOfFives[zeros];
}

}  // namespace scan

// A decimal number at the start of `cell`: a sign or none, up to eight digits, then possibly one mark, comma
// or point, with one to eight digits, then possibly an exponent. `*end` is set behind it and is not a mark or
// a digit. False says nothing about the cell.
template <class Unit>
inline bool ScanDecimal(const Unit* cell, double& value, const Unit** end) {
    const Unit* p = scan::SkipSign(cell);
    const simd::DigitRun whole = simd::ReadDigits(p);
    if (whole.Count == 0) return false;
    p += whole.Count;
    simd::DigitRun decimals{};
    if (*p == ',' || *p == '.') {
        decimals = simd::ReadDigits(++p);
        if (decimals.Count == 0) return false;
        p += decimals.Count;
    }
    const std::uint64_t joined = simd::JoinDigits(whole, decimals);
    const std::uint64_t numerator = (joined & 0xFFFFFFFF) * scan::WholePowers[whole.Count] + (joined >> 32);
    if (numerator > scan::LargestExactInteger) return false;
    double magnitude = static_cast<double>(static_cast<std::int64_t>(numerator));
    // With both factors exact, one product or quotient is rounded correctly.
    if (*p == 0) [[likely]] {
        magnitude /= scan::ExactPowers[scan::Decimals];
    } else {
        int power = -scan::Decimals;
        p = ScanExponent(p, power);
        if (p == nullptr || power < -scan::LargestExactPower || power > scan::LargestExactPower) return false;
        magnitude = power < 0 ? magnitude / scan::ExactPowers[-power] : magnitude * scan::ExactPowers[power];
    }
    value = scan::WithSign(magnitude, *cell == '-');
    *end = p;
    return true;
}

// A whole number at the start of `cell`: a sign or none and up to 16 digits. `*end` is set behind it and is
// not a digit; a mark there means that the number isn't plain. False says nothing about the cell.
template <class Unit>
inline bool ScanInteger(const Unit* cell, std::int64_t& value, const Unit** end) {
    const Unit* p = scan::SkipSign(cell);
    const simd::DigitRun run = simd::ReadDigits(p);
    p += run.Count;
    std::uint64_t magnitude = scan::WithoutZeros(simd::JoinDigits(run), run.Count);
    // Only a full run can have a digit behind it. Its count is hard to predict, but not this.
    if (*p >= '0' && *p <= '9') {
        p = ScanMoreDigits(p, magnitude);
    } else if (run.Count == 0) {
        p = nullptr;
    }
    const std::uint64_t sign = std::uint64_t{0} - std::uint64_t{*cell == '-'};  // all ones or zeros
    value = static_cast<std::int64_t>((magnitude ^ sign) - sign);
    *end = p;
    return p != nullptr;
}
