#include "view/model/Choice.h"

#include <algorithm>
#include <map>

#include "contract/FixedTimes.h"
#include "host/SettingText.h"

namespace kelvarin::view {
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

std::vector<SignalPointer> FirstSignals(const std::vector<SignalPointer>& all, std::size_t most) {
    std::vector<SignalPointer> first;
    for (const SignalKind kind : {SignalKind::Number, SignalKind::Truth, SignalKind::Text}) {
        for (const SignalPointer& signal : all) {
            if (signal->Kind() == kind && signal->Count() != 0 && first.size() < most)
                first.push_back(signal);
        }
    }
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
