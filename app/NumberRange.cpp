#include "app/NumberRange.h"

#include <cstddef>

NumberRange RangeOf(std::span<const double> numbers) {
    // Lanes of their own: each comparison would otherwise wait for the one before.
    constexpr std::size_t Lanes = 4;
    NumberRange lanes[Lanes];
    std::size_t i = 0;
    for (; i + Lanes <= numbers.size(); i += Lanes) {
        for (std::size_t lane = 0; lane < Lanes; ++lane)
            lanes[lane].Include({numbers[i + lane], numbers[i + lane]});
    }
    for (; i < numbers.size(); ++i) lanes[0].Include({numbers[i], numbers[i]});
    for (std::size_t lane = 1; lane < Lanes; ++lane) lanes[0].Include(lanes[lane]);
    return lanes[0];
}
