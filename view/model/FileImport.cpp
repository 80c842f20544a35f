#include "view/model/FileImport.h"

#include <algorithm>
#include <map>
#include <thread>
#include <utility>

#include "host/FileReading.h"
#include "host/ImportFailure.h"
#include "host/check/CheckRun.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

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
        const std::u16string& name = about.Symbol.empty() ? about.Name : about.Symbol;
        signals.push_back(
            {Utf16ToUtf8(name), Utf16ToUtf8(about.Unit), sum.Count, sum.Plot.Draw(CourseWidth)});
    }
    return signals;
}

// One run and the check of it.
struct CheckedRun {
    CheckedRun(const ModuleLoader& module, const ImportOrder& order, plan::AutomaticReading* reading)
        : Check(order.Path) {
        RunOptions options;
        options.KeepSamples = KeepAll;
        options.Cancel = order.Cancel;
        options.Threads = std::max(1u, std::thread::hardware_concurrency());
        options.Reading = reading;
        options.OnProgress = [this, &order](std::uint32_t percent) {
            if (order.OnProgress) order.OnProgress({false, percent, Growing(Session->Device())});
        };
        Check.Observe(options);
        Observer = std::make_unique<RowLinesObserver>(Lines, options.Observer);
        options.Observer = Observer.get();
        Session = std::make_unique<HostSession>(module, order.Path, std::move(options));
    }

    check::CheckOfRun Check;
    RowLines Lines;
    std::unique_ptr<RowLinesObserver> Observer;
    std::unique_ptr<HostSession> Session;
    RunResult Result;
};

void MakeSignals(ImportedFile& file, std::size_t threads) {
    std::map<const void*, std::shared_ptr<const TimeBase>> bases;
    for (const auto& signal : file.Device->Signals) {
        const std::shared_ptr<const store::TimeAxis> axis = signal->Times();
        std::shared_ptr<const TimeBase>& base = bases[axis.get()];
        if (base == nullptr) base = std::make_shared<TimeBase>(axis);
        file.Signals.push_back(std::make_shared<PlottedSignal>(file.Device, *signal, base, threads));
    }
}
}  // namespace

ImportedFile ImportFile(const ModuleLoader& module, const ImportOrder& order) {
    ImportedFile file;
    file.Path = order.Path;
    ReadingOptions options;
    options.Save = order.Saves;
    options.Cancel = order.Cancel;
    options.OnProgress = [&order](std::uint32_t percent) {
        if (order.OnProgress) order.OnProgress({true, percent, {}});
    };
    FileReading reading(module, order.Path, order.Settings, options);
    std::unique_ptr<CheckedRun> run;
    do {
        run.reset();
        run = std::make_unique<CheckedRun>(module, order, reading.Automatic());
        run->Result = run->Session->Run();
    } while (!run->Result.Interrupted && reading.TakesCopy());
    HostSession& session = *run->Session;
    file.IsInterrupted = run->Result.Interrupted || reading.Automatic()->IsInterrupted();
    file.LinesRead = run->Result.Lines;
    file.Failure = WhyImportFailed(order.Path, run->Result, session).Reason;
    if (file.Failure.empty()) file.Failure = reading.Automatic()->WhyUnread();
    if (file.Failure.empty() && CountSamples(session.Device()) == 0 && !file.IsInterrupted)
        file.Failure = WhyNothingIsStored(run->Result, session.Device());
    file.Origin = session.Origin();
    file.Size = file.Origin.SourceSize;
    file.Modified = file.Origin.SourceModified;
    file.IsRelative = file.Origin.IsRelative;
    file.Format = ReadingOf(session.Filter());
    file.Messages = session.Messages().Groups();
    file.Lines = std::move(run->Lines);
    if (reading.Guess() != nullptr) file.Guess = *reading.Guess();
    if (run->Result.Begun)
        file.Findings = check::Judge(run->Check.Finish(module, session, run->Result, reading.Automatic()));
    if (CountSamples(session.Device()) == 0) return file;
    file.Device = session.TakeDevice();
    MakeSignals(file, std::max(1u, std::thread::hardware_concurrency()));
    return file;
}
}  // namespace kelvarin::view
