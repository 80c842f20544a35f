// What the samples of a part of a signal amount to.
#pragma once

#include <atomic>
#include <cstdint>
#include <vector>

#include "view/model/PlotModel.h"

namespace kelvarin::view {
// Samples of a signal, from number First up to but not including End.
struct SignalPart {
    SignalPointer Signal;
    std::uint64_t First = 0, End = 0;

    bool operator==(const SignalPart&) const = default;
};

// All but the first are of the finite values, truth values as 0 and 1, and mean nothing without one.
struct Statistics {
    std::uint64_t Samples = 0;  // those without a value too
    std::uint64_t Numbers = 0;
    double Lowest = 0, Highest = 0;
    double Mean = 0;
    double Deviation = 0;  // standard deviation with Numbers - 1; 0 for a single value
    double Rms = 0;        // root mean square
};

// The part of time that is looked at: between the cursors, with the samples at them, if both are set; else
// what is visible.
TimeRange LookedAt(const PlotModel& model);

// What each plotted signal has in a part of time.
std::vector<SignalPart> PartsOf(const PlotModel& model, const TimeRange& range);

// Reads the samples; a text has only their number. Ends early, with a result that means nothing, once
// `cancel` is true. Any number of threads may ask.
Statistics StatisticsOf(const SignalPart& part, const std::atomic<bool>& cancel);
}  // namespace kelvarin::view
