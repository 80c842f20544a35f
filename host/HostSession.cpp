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
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin {
// Compares in place: a copy of each text without its digits would cost more than all the rest.
bool MessageList::KindOrder::operator()(const ImportMessage& one, const ImportMessage& other) const {
    if (one.Column != other.Column || one.Column >= 0) return one.Column < other.Column;
    auto a = one.Text.begin();
    auto b = other.Text.begin();
    for (;; ++a, ++b) {
        a = std::find_if_not(a, one.Text.end(), IsDigit);
        b = std::find_if_not(b, other.Text.end(), IsDigit);
        if (a == one.Text.end() || b == other.Text.end()) return b != other.Text.end();
        if (*a != *b) return *a < *b;
    }
}

void MessageList::Add(ImportMessage message, std::uint64_t line) {
    constexpr std::size_t LinesKept = 100;
    auto kind = GroupOfKind.find(message);
    if (kind == GroupOfKind.end()) {
        kind = GroupOfKind.emplace(message, AllGroups.size()).first;
        AllGroups.push_back({message.Text, {}, 0, message.Failure});
    }
    MessageGroup& group = AllGroups[kind->second];
    ++group.Count;
    if (group.Lines.size() < LinesKept) group.Lines.push_back(line);
    ++Count;
    if (First.size() < Keep) First.push_back(std::move(message));
}

HostSession::HostSession(const ModuleLoader& module, const std::u16string& path, RunOptions options)
    : Source(path),
      Options(std::move(options)),
      AllMessages(Options.KeepMessages),
      ImportFilter(module.MakeFilter(Options.Reading == nullptr ? path : Options.Reading->Path())) {
    if (Options.Reading != nullptr) Options.Reading->Guide(*ImportFilter);
    ImportFilter->DeviceHost = this;
    ImportFilter->TimeContext = this;
}

// A copy that is read in place of the file has another name.
CDevice* HostSession::CreateDevice(std::u16string name, const char16_t* description, int) {
    if (Options.Reading != nullptr && Options.Reading->Copy() != nullptr) name = PathStripPath(Source);
    if (Options.Joined != nullptr)
        return Options.Joined->BeginRun(name, description, SignalColumns(*ImportFilter));
    Store = std::make_unique<store::StoredDevice>(std::move(name), description, Options.KeepSamples,
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
    if (!ImportFilter->HasMessages()) return false;
    bool anyFailure = false;
    for (ImportMessage& message : ImportFilter->TakeMessages()) {
        if (message.Failure) {
            anyFailure = true;
            result.Failure = Utf16ToUtf8(message.Text);
        }
        AllMessages.Add(std::move(message), SourceLine(line));
    }
    return anyFailure;
}

std::uint64_t HostSession::SourceLine(std::uint64_t line) const {
    return Options.Reading == nullptr ? line : Options.Reading->SourceLine(line);
}

RunResult HostSession::Run() {
    RunResult result;
    try {
        BeginAndRead(result);
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
    if (!result.Begun) return;
    if (Options.OnBegun) Options.OnBegun(*ImportFilter);
    ReadLines(result, static_cast<std::uint64_t>(ReadingOf(*ImportFilter).FirstDataLine));
}

void HostSession::ReadLines(RunResult& result, std::uint64_t firstDataLine) {
    constexpr std::uint32_t Unset = std::numeric_limits<std::uint32_t>::max();
    std::uint32_t progress = Unset;
    std::uint32_t shown = Unset;
    while (result.Lines < Options.MostLines) {
        if (Options.Sink != nullptr && Options.Sink->HasFailed()) return;
        if (Options.Cancel != nullptr && *Options.Cancel) {
            result.Interrupted = true;
            return;
        }
        const bool more = ImportFilter->ImportNextLine(&progress);
        const bool anyFailure = CollectMessages(firstDataLine + result.Lines, result);
        if (progress != shown) {
            shown = progress;
            result.Progress.push_back(progress);
            if (Options.OnProgress) Options.OnProgress(progress);
        }
        if (!more) {
            // Only a read error ends the run with a failure; the end of the file adds no message.
            result.Failed = anyFailure;
            return;
        }
        ++result.Lines;
    }
}
}  // namespace kelvarin
