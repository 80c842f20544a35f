// The course of a signal in a few characters.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "app/NumberRange.h"

// Takes any number of values and keeps lowest and highest of at most 64 stretches of equal length: memory
// does not grow with the signal. Values that are not finite are left out.
class Sparkline {
  public:
    void Add(std::span<const double> values);

    // One block character per stretch, at most `width` of them; empty without values.
    std::string Draw(std::size_t width) const;

  private:
    // Makes room by joining neighbours.
    void Halve();

    static constexpr std::size_t Capacity = 64;
    std::array<NumberRange, Capacity> Stretches{};
    std::size_t Count = 0;         // stretches in use
    std::uint64_t PerStretch = 1;  // values that fill a stretch
    std::uint64_t InLast = 0;      // values in the last stretch
};
