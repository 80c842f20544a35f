// Runs of up to eight digits, in what every processor has.
#pragma once

#include <cstdint>

namespace simd {

constexpr unsigned MostDigits = 8;  // of a run

// The digits at one place of a text as a number of eight digits, the missing ones zeros at its end.
struct DigitRun {
    std::uint32_t Number;
    unsigned Count;
};

// Reads MostDigits units.
template <class Unit>
DigitRun ReadDigits(const Unit* text) {
    DigitRun run{0, 0};
    for (unsigned i = 0; i < MostDigits; ++i) {
        const unsigned digit = static_cast<unsigned>(text[i]) - u'0';
        const bool belongs = run.Count == i && digit < 10;
        run.Number = run.Number * 10 + (belongs ? digit : 0);
        run.Count += belongs;
    }
    return run;
}

inline std::uint32_t JoinDigits(const DigitRun& run) {
    return run.Number;
}

// Two runs at once: the first in the lower half, the second in the upper.
inline std::uint64_t JoinDigits(const DigitRun& first, const DigitRun& second) {
    return first.Number | std::uint64_t{second.Number} << 32;
}

// A hexadecimal number of up to eight digits.
struct HexRun {
    std::uint64_t Number;
    unsigned Count;  // of the digits; 0 to MostDigits
};

// Reads up to MostDigits units.
template <class Unit>
HexRun ReadHexDigits(const Unit* text) {
    HexRun run{0, 0};
    for (; run.Count < MostDigits; ++run.Count) {
        const unsigned digit = static_cast<unsigned>(text[run.Count]) - u'0';
        const unsigned letter = (static_cast<unsigned>(text[run.Count]) | 0x20u) - u'a';
        if (digit >= 10 && letter >= 6) break;
        run.Number = run.Number << 4 | (digit < 10 ? digit : letter + 10);
    }
    return run;
}

}  // namespace simd
