#include "view/model/Choice.h"

#include <algorithm>
#include <map>
#include <utility>

#include "contract/FixedTimes.h"
#include "host/SettingText.h"

namespace kelvarin::view {
namespace {
// The numbers of those with samples, by kind. `look` gives a signal's kind and its samples.
template <class Signal, class Look>
std::vector<std::size_t> FirstByKind(const std::vector<Signal>& all, std::size_t most, Look look) {
    std::vector<std::size_t> first;
    for (const SignalKind kind : {SignalKind::Number, SignalKind::Truth, SignalKind::Text}) {
        for (std::size_t i = 0; i < all.size() && first.size() < most; ++i) {
            const auto [kindOfIt, samples] = look(all[i]);
            if (kindOfIt == kind && samples != 0) first.push_back(i);
        }
    }
    return first;
}
}  // namespace

void PlotAll(PlotModel& model, const std::vector<SignalPointer>& wanted) {
    constexpr std::ptrdiff_t MostPanes = 8;
    const auto isNumber = [](const SignalPointer& signal) { return signal->Kind() == SignalKind::Number; };
    const bool areMany = std::count_if(wanted.begin(), wanted.end(), isNumber) > MostPanes;
    std::map<std::string, std::size_t> paneOfUnit;
    for (const SignalPointer& signal : wanted) {
        if (!isNumber(signal)) continue;
        const std::size_t next = model.Panes().size();
        model.Add(signal, areMany ? paneOfUnit.emplace(signal->Unit(), next).first->second : next);
    }
    const std::size_t lanes = model.Panes().size();
    for (const SignalPointer& signal : wanted) {
        if (!isNumber(signal)) model.Add(signal, lanes);
    }
}

std::size_t PaneFor(const PlotModel& model, const PlottedSignal& signal) {
    const std::size_t panes = model.Panes().size();
    const bool hasLanes = panes != 0 && model.Panes().back().Units().empty();
    return hasLanes && signal.Kind() != SignalKind::Number ? panes - 1 : panes;
}

std::vector<std::size_t> FirstOfDevice(const store::StoredDevice& device, std::size_t most) {
    return FirstByKind(device.Signals, most, [](const auto& signal) {
        return std::pair(KindOf(signal->Description().Type), signal->KeptCount());
    });
}

std::vector<SignalPointer> FirstSignals(const std::vector<SignalPointer>& all, std::size_t most) {
    std::vector<SignalPointer> first;
    const auto look = [](const SignalPointer& signal) { return std::pair(signal->Kind(), signal->Count()); };
    for (const std::size_t number : FirstByKind(all, most, look)) first.push_back(all[number]);
    return first;
}

std::vector<SignalPointer> NamedSignals(const std::vector<SignalPointer>& all,
                                        const std::vector<std::string>& names,
                                        std::vector<std::string>& unknown) {
    std::vector<SignalPointer> named;
    for (const std::string& name : names) {
        const auto found = std::find_if(all.begin(), all.end(),
                                        [&](const SignalPointer& signal) { return signal->Name() == name; });
        std::size_t number = 0;
        if (found != all.end()) {
            named.push_back(*found);
        } else if (ParseWhole(name, number) && number >= 1 && number <= all.size()) {
            named.push_back(all[number - 1]);
        } else {
            unknown.push_back(name);
        }
    }
    return named;
}

Clock ClockFor(bool isRelative) {
    return isRelative ? Clock{ClockStyle::Relative, RelativeTimeEpoch} : Clock{};
}
}  // namespace kelvarin::view
