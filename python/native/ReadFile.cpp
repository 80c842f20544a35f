#include "python/native/ReadFile.h"

#include <memory>
#include <thread>
#include <utility>

#include "host/ImportFailure.h"
#include "host/Reading.h"
#include "host/check/Findings.h"
#include "host/language/Phrase.h"
#include "host/plan/TimeAdvice.h"
#include "platform/framework/Text.h"
#include "python/native/Convert.h"
#include "python/native/Failure.h"
#include "python/native/Samples.h"

namespace kelvarin::python {
namespace {
// As many as the program's JSON lists.
constexpr std::size_t MostMessages = 10'000;

// What a run leaves, on the thread that takes it to Python.
struct FileRead {
    std::shared_ptr<store::StoredDevice> Samples;
    std::uint64_t Lines = 0;
    bool IsRelative = false;
    bool HasDates = false;  // in its rows, with times of day
    std::vector<ImportMessage> Messages;
    std::vector<std::uint64_t> MessageLines;  // of these, 0 for none
    std::uint64_t MessagesLeftOut = 0;
    std::string CopyFailure;
    std::optional<plan::Guess> Guess;
    std::vector<check::Finding> Findings;
};

// On a thread of its own, since Ctrl-C is not to wait for gibibytes that are given back to the system.
void FreeLater(std::shared_ptr<store::StoredDevice> samples) {
    std::thread([own = std::move(samples)]() mutable { own.reset(); }).detach();
}

FileRead Import(const ModuleLoader& module, const Request& request, CallState& state) {
    FileInWork file(module, request, state);
    std::optional<HostSession> session;
    std::optional<check::CheckOfRun> check;
    RunResult result;
    do {
        session.reset();
        check.emplace(file.Path);
        RunOptions run = file.Options();
        run.KeepSamples = KeepAll;
        run.KeepMessages = MostMessages;
        check->Observe(run);
        session.emplace(module, file.Path, std::move(run));
        result = session->Run();
    } while (!result.Interrupted && file.Reading().TakesCopy());
    FileRead read;
    if (state.Cancel) {
        std::shared_ptr<store::StoredDevice> samples = session->TakeDevice();
        session.reset();
        FreeLater(std::move(samples));
        return read;
    }
    RefuseFailed(module, request, file, *session, result);
    read.Findings = check::Judge(check->Finish(module, *session, result, file.Reading().Automatic()));
    read.Lines = result.Lines;
    const Reading reading = ReadingOf(session->Filter());
    read.IsRelative = reading.DateSetting == DateNone;
    read.HasDates = reading.DateSetting == DateFromColumn && reading.TimeSetting == TimeFromColumn;
    read.Messages = session->Messages().Kept();
    read.MessageLines = session->Messages().KeptLines();
    read.MessagesLeftOut = session->Messages().LeftOut();
    read.CopyFailure = file.Reading().Automatic()->CopyFailure();
    if (file.Reading().Guess() != nullptr) read.Guess = *file.Reading().Guess();
    read.Samples = session->TakeDevice();
    return read;
}

py::list MessagesToPython(const FileRead& read) {
    py::list messages;
    if (!read.CopyFailure.empty()) {
        const std::string text = Phrase("no clean copy could be made: {}", read.CopyFailure);
        messages.append(py::make_tuple(TextToPython(text), 0, false));
    }
    for (std::size_t i = 0; i < read.Messages.size(); ++i) {
        const ImportMessage& message = read.Messages[i];
        messages.append(py::make_tuple(TextToPython(message.Text), read.MessageLines[i], message.Failure));
    }
    return messages;
}

py::list SignalsToPython(FileRead& read) {
    py::list signals;
    const Device device = std::move(read.Samples);
    for (std::size_t i = 0; i < device->Signals.size(); ++i) {
        signals.append(std::make_unique<SignalSamples>(device, i));
    }
    return signals;
}
}  // namespace

void RefuseFailed(const ModuleLoader& module, const Request& request, FileInWork& file,
                  const HostSession& session, const RunResult& result) {
    const ImportFailure failure = WhyImportFailed(file.Path, result, session);
    if (!failure.Reason.empty()) {
        const FailureKind kind = failure.IsTableMissing ? FailureKind::FormatError : FailureKind::FileError;
        throw Failure{kind, failure.Reason, request.Path, failure.Line, {}, failure.IsTableMissing};
    }
    if (CountSamples(session.Device()) != 0) return;
    Failure none{FailureKind::FormatError,
                 Phrase("not one sample is stored, since {}", WhyNothingIsStored(result, session.Device())),
                 request.Path};
    none.SaysExplain = true;
    const Reading reading = ReadingOf(session.Filter());
    if (LostEveryRow(result, session.Device()) && reading.TimeSetting == TimeFromColumn)
        none.Advice = plan::AdviseTimes(module, file.Path, reading);
    throw none;
}

py::dict ReadFile(const Request& request, const py::object& progress) {
    FileRead read;
    DoCall([&](const ModuleLoader& module, CallState& state) { read = Import(module, request, state); },
           progress);
    py::dict result;
    result["signals"] = SignalsToPython(read);
    result["lines"] = read.Lines;
    result["is_relative"] = read.IsRelative;
    result["has_dates"] = read.HasDates;
    result["messages"] = MessagesToPython(read);
    result["messages_left_out"] = read.MessagesLeftOut;
    result["findings"] = FindingsToPython(read.Findings);
    result["settings"] =
        read.Guess ? SettingsToPython(read.Guess->Settings, read.Guess->Letters) : py::dict();
    result["assumed"] = AssumptionsToPython(read.Guess ? read.Guess->Assumed : std::vector<Assumption>());
    return result;
}
}  // namespace kelvarin::python
