#include <algorithm>

#include "host/HostSession.h"
#include "host/Reading.h"
#include "host/SourceFiles.h"
#include "host/TypeNames.h"
#include "host/language/Phrase.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "python/native/Convert.h"
#include "python/native/Failure.h"
#include "python/native/ReadFile.h"

namespace kelvarin::python {
namespace {
[[noreturn]] void RefuseColumn(const Request& request, const std::string& column) {
    throw Failure{FailureKind::SettingError, Phrase("there is no column '{}'", column), request.Path};
}

plan::ColumnWish ParseWish(const Wish& wish) {
    plan::ColumnWish parsed{Utf8ToUtf16(wish.Column), {}, {}, 0, wish.Skip};
    if (wish.Name) parsed.Name = Utf8ToUtf16(*wish.Name);
    if (wish.Unit) parsed.Unit = Utf8ToUtf16(*wish.Unit);
    if (!wish.Type) return parsed;
    parsed.Type = TypeNamed(*wish.Type);
    if (parsed.Type == 0)
        throw Failure{FailureKind::SettingError,
                      Phrase("'{}' is no data type; allowed are {}", *wish.Type, AllTypeNames()),
                      {}};
    return parsed;
}

bool IsNamed(const ColumnSummary& column, const std::string& wanted) {
    return Utf16ToUtf8(column.Name) == wanted || std::to_string(column.Index + 1) == wanted;
}
}  // namespace

FileInWork::FileInWork(const ModuleLoader& module, const Request& request, CallState& state)
    : Path(PathFromNative(request.Path)), Module(module), Wanted(request), State(state) {
    for (const auto& [key, value] : request.Settings) {
        if (key == LettersKey) {
            How.FormatLetters = Utf8ToUtf16(value);
            continue;
        }
        ParsedSetting& setting = Chosen.emplace_back();
        const std::string wrong = ParseSetting(key, value, setting);
        if (!wrong.empty()) throw Failure{FailureKind::SettingError, key + ": " + wrong, {}};
        Layer.Set(setting);
    }
    const std::string unread = sidecar::WhyUnread(Path);
    if (!unread.empty()) throw Failure{FailureKind::FileError, unread, request.Path + ".info"};
    for (const Wish& wish : request.Wishes) How.Wishes.push_back(ParseWish(wish));
    How.NoGuess = !request.Guess;
    How.Cancel = &state.Cancel;
    How.OnProgress = [&state](std::uint32_t percent) { state.Percent = percent; };
    Find();
    if (request.Signals) KeepSignals(*request.Signals);
}

void FileInWork::Find() {
    Plan.reset();  // the layers of settings end in reverse order
    Plan.emplace(Module, Path, Chosen, How);
    const plan::AutomaticReading& automatic = *Plan->Automatic();
    if (!automatic.WhyUnread().empty())
        throw Failure{FailureKind::FileError, automatic.WhyUnread(), Wanted.Path};
    if (!automatic.UnknownColumns().empty())
        RefuseColumn(Wanted, Utf16ToUtf8(automatic.UnknownColumns().front()));
}

void FileInWork::KeepSignals(const std::vector<std::string>& wanted) {
    std::vector<ColumnSummary> columns;
    {
        HostSession session(Module, Path, Options());
        if (!session.Filter().AnalyzeFile()) return;  // a run says why
        columns = SummarizeColumns(session.Filter());
    }
    for (const std::string& name : wanted) {
        const auto isIt = [&](const ColumnSummary& column) {
            return column.IsSignal && IsNamed(column, name);
        };
        if (std::none_of(columns.begin(), columns.end(), isIt)) RefuseColumn(Wanted, name);
    }
    bool leavesAny = false;
    for (const ColumnSummary& column : columns) {
        const auto isIt = [&](const std::string& name) { return IsNamed(column, name); };
        if (!column.IsSignal || std::any_of(wanted.begin(), wanted.end(), isIt)) continue;
        const std::string number = std::to_string(column.Index + 1);
        How.Wishes.push_back(plan::ColumnWish{Utf8ToUtf16(number), {}, {}, 0, true});
        leavesAny = true;
    }
    if (leavesAny) Find();
}

RunOptions FileInWork::Options() {
    RunOptions run;
    run.BaseTime = Wanted.BaseTime;
    run.Cancel = &State.Cancel;
    run.Threads = Wanted.Threads;
    run.OnProgress = How.OnProgress;
    run.Reading = Plan->Automatic();
    return run;
}
}  // namespace kelvarin::python
