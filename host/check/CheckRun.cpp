#include "host/check/CheckRun.h"

#include <algorithm>

#include "contract/TimeReader.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "host/plan/AutomaticReading.h"
#include "host/plan/PlanSettings.h"
#include "host/plan/TimeAdvice.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {
namespace {
void TakeFormat(const CImportFilter& filter, CheckResult& result) {
    result.Format = ReadingOf(filter);
    if (auto* const reader = filter.Find<ITimeReader>()) result.Letters = reader->FormatLetters();
}

// The lines that the copy names, and how many there are.
FilePlaces PlacesOf(const plan::LinesLeftOut& lines) {
    FilePlaces places;
    for (const std::uint64_t line : lines.First) places.Add({line, 0, {}});
    places.Count = lines.Count;
    return places;
}

void Prepare(const CImportFilter& filter, CheckResult& result) {
    TakeFormat(filter, result);
    result.Series = std::make_shared<TimeSeries>(result.Format, result.Letters);
    for (const ColumnSummary& column : SummarizeColumns(filter)) {
        if (column.IsSignal) result.Columns.push_back({column.Index + 1, column.Name, column.Type, 0, 0, {}});
    }
}

// The store has a signal for each of the columns, in their order.
void CountSamples(const store::StoredDevice& device, CheckResult& result) {
    for (std::size_t i = 0; i < std::min(device.Signals.size(), result.Columns.size()); ++i) {
        const store::SignalSummary& signal = device.Signals[i]->Summary();
        result.Columns[i].Samples = signal.Count;
        result.Columns[i].Empty = signal.WithoutValue - result.Columns[i].Refused.Count;
    }
}

// What ended the run, or else what was said before it.
std::u16string FailureOf(const MessageList& messages, bool failed) {
    std::u16string failure;
    for (const MessageGroup& group : messages.Groups()) {
        if (failed || group.Lines.front() == 0) failure = group.FirstText;
    }
    return failure;
}

// The format with the other decimal mark before the fraction; empty without a fraction.
std::u16string WithOtherDecimalMark(const std::u16string& format) {
    std::u16string other = format;
    for (std::size_t i = 1; i < other.size(); ++i) {
        char16_t& mark = other[i - 1];
        if (other[i] != u'0' || (mark != u',' && mark != u'.')) continue;
        mark = mark == u',' ? u'.' : u',';
        return other;
    }
    return {};
}

// Empty, or what became of the file while it was read.
std::string ChangeInWords(FileChange change) {
    switch (change) {
        case FileChange::Removed:
            return Phrase("the file was removed while it was checked");
        case FileChange::Replaced:
            return Phrase("the file was replaced by another one while it was checked");
        case FileChange::Cut:
            return Phrase("the file was cut while it was checked");
        case FileChange::Overwritten:
            return Phrase("the file was written to while it was checked");
        default:
            return {};
    }
}

std::u16string FindBetterFormat(const CImportFilter& filter, const CheckResult& result) {
    auto* const reader = filter.Find<ITimeReader>();
    const std::vector<std::u16string>& texts = result.Dropped.UnreadableTexts();
    if (reader == nullptr || texts.empty()) return {};
    const std::u16string& format = result.Format.TimestampFormat;
    for (const std::u16string& other :
         {WithOtherDecimalMark(format), WithDayAndMonthExchanged(format, result.Letters)}) {
        if (other.empty()) continue;
        const std::vector<std::int64_t> times =
            reader->ReadTimes(other, texts, result.Format.DateSetting == DateFromColumn);
        if (std::count(times.begin(), times.end(), -1) * 2 <= std::ssize(times)) return other;
    }
    return {};
}

RowsAbove FindRowsAbove(const ModuleLoader& module, const std::u16string& path, const Reading& format) {
    const std::optional<plan::ReadingPlan> plan = plan::FindPlanIfReadable(path);
    const auto begin = static_cast<std::uint64_t>(format.FirstDataLine);
    if (!plan || plan->FirstLine == 0 || plan->FirstLine >= begin) return {};
    const auto settings = plan::TableSettingsOf(*module.MakeFilter(path), *plan);
    return {plan->FirstLine, begin - 1, settings.value_or(SettingList())};
}
// What could be set otherwise. The same lines again.
void Advise(const ModuleLoader& module, const std::u16string& path, const CImportFilter& filter,
            plan::AutomaticReading* reading, CheckResult& result) {
    const bool hasPlan = reading != nullptr && reading->Plan() != nullptr;
    if (hasPlan && !reading->HasChosenTimes()) return;
    result.BetterFormat = FindBetterFormat(filter, result);
    // The module's analysis may find the table too far down, and rows are lost without a message.
    if (!hasPlan && !sidecar::HasSidecar(path)) result.Above = FindRowsAbove(module, path, result.Format);
    const bool lostAll = result.Begun && result.StoredRows() == 0 && result.Dropped.Count() != 0;
    if (lostAll && result.Format.TimeSetting != TimeInterval && result.Above.First == 0)
        result.TimeAdvice = plan::AdviseTimes(module, path, result.Format);
}
}  // namespace

void CheckObserver::OnRowStored(const RowPlace& place, std::int64_t time) {
    SettleBlankLines();
    if (Result.Columns.empty()) return;  // a row without signals has a time, and is not stored
    Result.Series->Add(time, place.Line);
    Result.Dropped.AddStored();
}

void CheckObserver::OnRowDropped(const DroppedRow& row) {
    SettleBlankLines();
    std::optional<std::int64_t> lastTime;
    if (Result.Series->Count != 0) lastTime = Result.Series->Last;
    Result.Dropped.Add(row, Result.Format.SeparatorSign(), lastTime);
    Result.Series->AddDropped();
    if (Wanted.Dropped != nullptr) Wanted.Dropped->Add(row.Place.Line);
}

void CheckObserver::OnCellRefused(const RefusedCell& cell) {
    const auto column =
        std::lower_bound(Result.Columns.begin(), Result.Columns.end(), cell.Column + 1,
                         [](const ColumnCheck& check, int number) { return check.Column < number; });
    if (column == Result.Columns.end() || column->Column != cell.Column + 1) return;
    column->Refused.Add({cell.Place.Line, cell.Place.MessageLine, cell.Text});
    if (Wanted.Refused != nullptr) Wanted.Refused->Add(cell.Place.Line);
}

CheckOfRun::CheckOfRun(const std::u16string& path, WantedLines wanted)
    : Path(path), Watch(path), Observer(std::make_unique<CheckObserver>(Result, wanted)) {}

void CheckOfRun::Observe(RunOptions& options) {
    options.OnBegun = [this](const CImportFilter& filter) { Prepare(filter, Result); };
    options.Observer = Observer.get();
}

void CheckOfRun::ObserveOn(RunOptions& options) {
    options.Observer = Observer.get();
}

CheckResult CheckOfRun::Finish(const ModuleLoader& module, const HostSession& session, const RunResult& run,
                               plan::AutomaticReading* reading) {
    CheckResult result = std::move(Result);
    Settle(result, module, session, run, reading);
    return result;
}

CheckResult CheckOfRun::FinishForNow(const ModuleLoader& module, const HostSession& session,
                                     const RunResult& run, plan::AutomaticReading* reading) const {
    CheckResult result = Result;
    if (Result.Series != nullptr) result.Series = std::make_shared<TimeSeries>(*Result.Series);
    Settle(result, module, session, run, reading);
    return result;
}

void CheckOfRun::Settle(CheckResult& result, const ModuleLoader& module, const HostSession& session,
                        const RunResult& run, plan::AutomaticReading* reading) const {
    result.Begun = run.Begun && result.Series != nullptr;
    result.Failed = run.Failed;
    result.Interrupted = run.Interrupted;
    result.OutOfMemory = run.OutOfMemory;
    result.Lines = run.Lines;
    result.Failure = FailureOf(session.Messages(), run.Failed);
    if (run.Failed) result.WhyUnreadable = WhyUnreadable(session.Filter(), Path);
    if (run.OutOfMemory || (run.Failed && result.Failure.empty())) result.Failure = Utf8ToUtf16(run.Failure);
    const std::string change = ChangeInWords(Watch.Change());
    result.SourceChanged = !change.empty();
    if (result.SourceChanged) {
        result.Failed = true;
        result.Failure = Utf8ToUtf16(change);
    }
    result.Dropped.Finish(!run.Interrupted && !run.Failed);
    if (reading != nullptr && reading->Copy() != nullptr)
        result.LeftOut = PlacesOf(reading->Copy()->Rows.Timeless);
    if (!run.Begun) TakeFormat(session.Filter(), result);
    if (result.Begun) CountSamples(*session.Device(), result);
    if (!run.OutOfMemory) Advise(module, Path, session.Filter(), reading, result);
}

CheckResult RunCheck(const ModuleLoader& module, const std::u16string& path, const CheckOptions& options) {
    CheckOfRun check(path, options.Wanted);
    RunOptions runOptions;
    runOptions.OnProgress = options.OnProgress;
    runOptions.Cancel = options.Cancel;
    runOptions.Threads = options.Threads;
    runOptions.Reading = options.Reading;
    check.Observe(runOptions);
    HostSession session(module, path, runOptions);
    if (session.Filter().Find<IObservedRun>() == nullptr) {
        CheckResult result;
        result.Failed = true;
        result.Failure = Utf8ToUtf16(Phrase("this module can't say what becomes of the rows"));
        return result;
    }
    const RunResult run = session.Run();
    return check.Finish(module, session, run, options.Reading);
}
}  // namespace kelvarin::check
