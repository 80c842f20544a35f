// Which signals of a file are plotted at first, and where.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "view/model/PlotModel.h"

namespace kelvarin::view {
// Plots signals: those that are bands or texts together in one pane, numbers in a pane each or, where they
// are more than eight, in one for each unit.
void PlotAll(PlotModel& model, const std::vector<SignalPointer>& wanted);

// Where a signal that is added is plotted: bands and texts in the last pane if that has nothing else, all
// else in a new one.
std::size_t PaneFor(const PlotModel& model, const PlottedSignal& signal);

// The numbers, from 0, of those signals of a device that have samples, numbers first, at most so many.
std::vector<std::size_t> FirstOfDevice(const store::StoredDevice& device, std::size_t most);

// Those with samples, numbers first, at most so many.
std::vector<SignalPointer> FirstSignals(const std::vector<SignalPointer>& all, std::size_t most);

// The signals of these names, in this order; numbers from 1 count where no signal has such a name. The names
// that no signal has go to `unknown`.
std::vector<SignalPointer> NamedSignals(const std::vector<SignalPointer>& all,
                                        const std::vector<std::string>& names,
                                        std::vector<std::string>& unknown);

// The clock by which the times of a file are shown: relative ones count from its start.
Clock ClockFor(bool isRelative);
}  // namespace kelvarin::view
