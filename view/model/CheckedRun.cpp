#include "view/model/CheckedRun.h"

#include <utility>

#include "host/Reading.h"
#include "host/plan/AutomaticReading.h"
#include "platform/framework/Text.h"
#include "view/model/Choice.h"

namespace kelvarin::view {
namespace {
std::vector<GrowingSignal> Growing(const store::StoredDevice* device) {
    constexpr std::size_t MostShown = 200;
    constexpr std::size_t CourseWidth = 32;
    std::vector<GrowingSignal> signals;
    if (device == nullptr) return signals;
    for (std::size_t i = 0; i < std::min(device->Signals.size(), MostShown); ++i) {
        const store::SignalDescription about = device->Signals[i]->Description();
        const store::SignalSummary sum = device->Signals[i]->Summary();
        signals.push_back({ShownName(about), Utf16ToUtf8(about.Unit), sum.Count, sum.Plot.Draw(CourseWidth)});
    }
    return signals;
}
}  // namespace

void CheckedRun::Read(const ModuleLoader& module, const ImportOrder& order, plan::AutomaticReading* reading) {
    RunOptions options = OptionsFor(order, reading);
    Check.Observe(options);
    Run(module, order, std::move(options));
}

bool CheckedRun::GoOn(const ModuleLoader& module, const ImportOrder& order, plan::AutomaticReading* reading) {
    const std::optional<RunEnd> end = std::exchange(End, std::nullopt);
    if (!end || end->Bytes.First.empty() || BytesBefore(Path, end->State.Offset) != end->Bytes ||
        reading->Copy() != nullptr)
        return false;
    RunOptions options = OptionsFor(order, reading);
    options.After = &*end;
    Check.ObserveOn(options);
    LinesBefore = end->Lines;
    Run(module, order, std::move(options));
    return !Result.IsUnlike;
}

check::CheckResult CheckedRun::Checked(const ModuleLoader& module, plan::AutomaticReading* reading) {
    return End ? Check.FinishForNow(module, *Session, Result, reading)
               : Check.Finish(module, *Session, Result, reading);
}

RunOptions CheckedRun::OptionsFor(const ImportOrder& order, plan::AutomaticReading* reading) {
    RunOptions options;
    options.KeepSamples = KeepAll;
    options.Cancel = order.Cancel;
    options.Threads = GrowingSignals::Processors();
    options.Reading = reading;
    options.NotesEnd = true;
    options.WholeLines = order.HasGrown;
    options.OnProgress = [this](std::uint32_t percent) { Percent = percent; };
    const auto look = [this, &order] { order.OnProgress(SoFar(order)); };
    if (order.OnProgress) {
        options.OnGrown = [this, look] {
            if (Due.IsDue()) Due.At(look);
        };
    }
    return options;
}

// Nothing of the options is asked after the run.
void CheckedRun::Run(const ModuleLoader& module, const ImportOrder& order, RunOptions options) {
    RowLinesObserver observer(Lines, options.Observer);
    options.Observer = &observer;
    Due = UpdateTimes();
    Session = std::make_unique<HostSession>(module, order.Path, std::move(options));
    Result = Session->Run();
    End = Session->End();
}

ImportProgress CheckedRun::SoFar(const ImportOrder& order) {
    const std::shared_ptr<const store::StoredDevice> device = Session->ShareDevice();
    ImportProgress now{false, Percent, Growing(device.get()), {}, false};
    if (device == nullptr) return now;
    now.Plots = Signals.Make(device, Wanted(*device, order));
    now.IsRelative = ReadingOf(Session->Filter()).DateSetting == DateNone;
    return now;
}

std::vector<std::size_t> CheckedRun::Wanted(const store::StoredDevice& device,
                                            const ImportOrder& order) const {
    if (order.HasGrown && LinesBefore == 0) return {};
    const auto& named = order.Plots.Named;
    std::vector<std::size_t> numbers = FirstOfDevice(device, order.Plots.First);
    for (std::size_t i = 0; i < device.Signals.size() && !named.empty(); ++i) {
        const std::string name = ShownName(device.Signals[i]->Description());
        if (std::find(named.begin(), named.end(), name) != named.end()) numbers.push_back(i);
    }
    return numbers;
}
}  // namespace kelvarin::view
