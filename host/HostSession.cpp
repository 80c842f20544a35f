#include "host/HostSession.h"

#include <algorithm>
#include <chrono>
#include <new>
#include <stdexcept>
#include <utility>

#include "contract/TimeReader.h"
#include "host/Reading.h"
#include "host/SettingText.h"
#include "host/language/Phrase.h"
#include "host/plan/AutomaticReading.h"
#include "host/ranges/RangeTeam.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin {
namespace {
constexpr std::uint32_t NoProgress = std::numeric_limits<std::uint32_t>::max();
}  // namespace

HostSession::HostSession(const ModuleLoader& module, const std::u16string& path, RunOptions options)
    : Source(path),
      Options(std::move(options)),
      Module(module),
      AllMessages(Options.KeepMessages),
      ImportFilter(module.MakeFilter(Options.Reading == nullptr ? path : Options.Reading->Path())) {
    if (Options.Reading != nullptr) Options.Reading->Guide(*ImportFilter);
    ImportFilter->DeviceHost = this;
    ImportFilter->TimeContext = this;
}

// A copy that is read in place of the file has another name.
CDevice* HostSession::CreateDevice(std::u16string name, const char16_t* description, int) {
    if (Options.Reading != nullptr && Options.Reading->Copy() != nullptr) name = PathStripPath(Source);
    if (Options.After != nullptr) {
        Store = Options.After->Device;
        Store->Resume();
        return Store.get();
    }
    if (Options.Joined != nullptr)
        return Options.Joined->BeginRun(name, description, SignalColumns(*ImportFilter));
    Store = std::make_shared<store::StoredDevice>(std::move(name), description, Options.KeepSamples,
                                                  Options.Sink, SignalColumns(*ImportFilter));
    return Store.get();
}

// The device stays with the session: its content is what the caller wants to see.
void HostSession::FinishDevice(CDevice*) {
    if (Store != nullptr) Store->Finish();
}

store::SampleOrigin HostSession::Origin() const {
    store::SampleOrigin origin;
    std::error_code ignored;
    const std::filesystem::path path = PathForStream(Source);
    origin.SourceSize = std::filesystem::file_size(path, ignored);
    const auto written = std::filesystem::last_write_time(path, ignored);
    const auto moment = std::chrono::file_clock::to_sys(written).time_since_epoch();
    origin.SourceModified = std::chrono::duration_cast<std::chrono::seconds>(moment).count();
    if (const CCsvImportSettings* const settings = SettingsOf(*ImportFilter))
        origin.Settings = SettingsAsText(*settings);
    if (ITimeReader* const reader = ImportFilter->Find<ITimeReader>())
        origin.FormatLetters = reader->FormatLetters();
    origin.BaseTime = Options.BaseTime;
    origin.IsAutomatic = Options.Reading != nullptr && Options.Reading->Plan() != nullptr;
    origin.IsCopied = origin.IsAutomatic && Options.Reading->Copy() != nullptr;
    origin.IsRelative = ReadingOf(*ImportFilter).DateSetting == DateNone;
    return origin;
}

bool HostSession::CollectMessages(std::uint64_t line, RunResult& result) {
    bool anyFailure = false;
    for (ImportMessage& message : ImportFilter->TakeMessages()) {
        anyFailure |= message.Failure;
        AddMessage(std::move(message), line, result);
    }
    return anyFailure;
}

void HostSession::AddMessage(ImportMessage message, std::uint64_t line, RunResult& result) {
    if (message.Failure) result.Failure = Utf16ToUtf8(message.Text);
    AllMessages.Add(std::move(message), SourceLine(line));
}

std::uint64_t HostSession::SourceLine(std::uint64_t line) const {
    return Options.Reading == nullptr ? line : Options.Reading->SourceLine(line);
}

RunResult HostSession::Run() {
    RunResult result;
    try {
        BeginAndRead(result);
        NoteEnd(result);
    } catch (const std::bad_alloc&) {
        result.OutOfMemory = true;
    } catch (const std::length_error&) {  // a text longer than any memory
        result.OutOfMemory = true;
    }
    ImportFilter->EndImport();
    if (result.OutOfMemory) {
        result.Failed = true;
        result.Failure = Phrase("not enough memory");
    }
    if (result.Failed && result.Failure.empty())
        result.Failure = Phrase("the module can't read the file and doesn't say why");
    return result;
}

void HostSession::BeginAndRead(RunResult& result) {
    if (IObservedRun* const run = ImportFilter->Find<IObservedRun>()) run->ObserveRun(Options.Observer);
    result.Begun = ImportFilter->BeginImport();
    result.Failed = !result.Begun;
    CollectMessages(0, result);
    if (Options.NotesEnd && Store != nullptr && result.Begun)
        Begin = BeginOf(*ImportFilter, *Store, Guide(), AllMessages);
    result.IsUnlike = Options.After != nullptr && !GoOn(result);
    if (!result.Begun || result.IsUnlike) return;
    IRangeReading* const reading = ImportFilter->Find<IRangeReading>();
    if (Options.WholeLines && reading != nullptr)
        StopAt = LastLineStart(*reading, reading->GetOffset(), SizeOfFile());
    if (Options.OnBegun) Options.OnBegun(*ImportFilter);
    FirstDataLine = static_cast<std::uint64_t>(ReadingOf(*ImportFilter).FirstDataLine);
    if (!ReadRanges(result)) ReadLines(result, Options.MostLines);
}

bool HostSession::GoOn(RunResult& result) {
    const RunEnd& end = *Options.After;
    if (!result.Begun || !Begin || !(*Begin == end.Begin)) return false;
    ImportFilter->Find<IRangeReading>()->SetState(end.State);
    AllMessages = end.Messages;
    result.Lines = end.Lines;
    result.Failure = end.Failure;
    if (Guide() != nullptr) Guide()->BeginBehind(end.Losses);
    return true;
}

plan::RunGuide* HostSession::Guide() const {
    return Options.Reading == nullptr ? nullptr : Options.Reading->Guiding();
}

std::uint64_t HostSession::SizeOfFile() const {
    std::error_code unknown;
    const std::uint64_t size = std::filesystem::file_size(PathForStream(ImportFilter->FilePath), unknown);
    return unknown ? 0 : size;
}

void HostSession::NoteEnd(const RunResult& result) {
    const bool isWhole = Begin && !result.Failed && !result.Interrupted && !result.OutOfMemory &&
                         !result.IsUnlike && Options.KeepSamples == KeepAll && Options.Sink == nullptr &&
                         Options.MostLines == AllLines;
    const bool isCopied = Options.Reading != nullptr && Options.Reading->Copy() != nullptr;
    if (!isWhole || isCopied) return;
    IRangeReading& reading = *ImportFilter->Find<IRangeReading>();
    RunState state = reading.GetState();
    std::optional<std::uint64_t> start;
    const bool isLineStart =
        state.Offset != 0 && reading.FindLineStart(state.Offset, start) && start == state.Offset;
    if (!isLineStart) return;
    Last = std::move(state);
    LinesRead = result.Lines;
    LastFailure = result.Failure;
}

std::optional<RunEnd> HostSession::End() const {
    if (!Last || Store == nullptr) return std::nullopt;
    RunEnd end{*Begin,      *Last, BytesBefore(Source, Last->Offset), Store, AllMessages, LinesRead,
               LastFailure, {}};
    if (Guide() != nullptr) end.Losses = Guide()->Losses();
    return end;
}

bool HostSession::ReadLines(RunResult& result, std::uint64_t mostLines) {
    constexpr std::uint64_t LinesPerLook = 64;
    std::uint32_t noted = result.Progress.empty() ? NoProgress : result.Progress.back();
    std::uint32_t progress = noted;
    const IRangeReading* const reading = StopAt ? ImportFilter->Find<IRangeReading>() : nullptr;
    while (result.Lines < mostLines) {
        if (reading != nullptr && reading->GetOffset() >= *StopAt) return false;
        if (Options.Sink != nullptr && Options.Sink->HasFailed()) return false;
        if (Options.Cancel != nullptr && *Options.Cancel) {
            result.Interrupted = true;
            return false;
        }
        const bool more = ImportFilter->ImportNextLine(&progress);
        const bool anyFailure =
            ImportFilter->HasMessages() && CollectMessages(FirstDataLine + result.Lines, result);
        if (progress != noted) NoteProgress(noted = progress, result);
        if (!more) {
            // Only a read error ends the run with a failure; the end of the file adds no message.
            result.Failed = anyFailure;
            return false;
        }
        ++result.Lines;
        if (result.Lines % LinesPerLook == 0 && Options.OnGrown) Options.OnGrown();
    }
    return true;
}

void HostSession::NoteProgress(std::uint32_t progress, RunResult& result) const {
    if (progress == (result.Progress.empty() ? NoProgress : result.Progress.back())) return;
    result.Progress.push_back(progress);
    if (Options.OnProgress) Options.OnProgress(progress);
}

bool HostSession::CanReadRanges() const {
    if (Options.Threads < 2 || Options.MostLines != AllLines || Store == nullptr) return false;
    const CCsvImportSettings* const settings = SettingsOf(*ImportFilter);
    if (settings == nullptr || settings->GetColumnCount() > Options.Sizes.MostColumns) return false;
    const IRangeReading* const reading = ImportFilter->Find<IRangeReading>();
    const std::uint64_t size = SizeOfFile();
    const std::uint64_t read = Options.After == nullptr || reading == nullptr ? 0 : reading->GetOffset();
    return reading != nullptr && size != 0 && size >= read + Options.Sizes.LeastFile;
}

bool HostSession::ReadRanges(RunResult& result) {
    if (!CanReadRanges()) return false;
    // The first row decides on the times of all.
    const IRangeReading& leader = *ImportFilter->Find<IRangeReading>();
    const std::int64_t firstRow = leader.GetState().Line;
    do {
        if (!ReadLines(result, result.Lines + Options.Sizes.HeadLines)) return true;
    } while (leader.GetState().Line == firstRow);
    ranges::RangeTeam team({Module, *ImportFilter, *Store, *this, Guide(), Options.Cancel, Options.Observer,
                            [&](ranges::RangeResult& range) { return TakeRange(range, result); }, StopAt},
                           Options.Sizes, Options.Threads);
    const ranges::RangeTeam::Outcome outcome = team.Run();
    result.Interrupted = outcome == ranges::RangeTeam::Outcome::Interrupted;
    result.RepeatedRanges = team.Repeated();
    return outcome != ranges::RangeTeam::Outcome::GivenUp;
}

bool HostSession::TakeRange(ranges::RangeResult& range, RunResult& result) {
    for (auto& [lines, message] : range.Messages)
        AddMessage(std::move(message), FirstDataLine + result.Lines + lines, result);
    for (const std::uint32_t progress : range.Progress) NoteProgress(progress, result);
    result.Lines += range.Lines;
    result.Failed = range.Failed;
    if (Options.OnGrown) Options.OnGrown();
    return Options.Sink == nullptr || !Options.Sink->HasFailed();
}
}  // namespace kelvarin
