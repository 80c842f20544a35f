#include "python/native/StoreFile.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

#include "host/ImportFailure.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "host/store/SampleFile.h"
#include "host/store/StoredDevice.h"
#include "python/native/Failure.h"

namespace kelvarin::python {
namespace {
struct Stored {
    std::size_t Signals = 0;
    std::uint64_t Samples = 0;
};

void RequireWritten(const std::string& reason, const std::string& out) {
    if (!reason.empty()) throw Failure{FailureKind::CopyError, reason, out};
}

void RefuseSource(const Request& request, const std::string& out) {
    std::vector<std::string> inputs = SidecarsOf({request.Path});
    inputs.push_back(request.Path);
    if (!FindOverwriting(inputs, {out}).Output.empty())
        RequireWritten(Phrase("this file is read, and would be overwritten"), out);
}

Stored Store(const ModuleLoader& module, const Request& request, const std::string& out, CallState& state) {
    RefuseSource(request, out);
    FileInWork file(module, request, state);
    std::string complaint;
    const std::unique_ptr<store::SampleFile> target = store::CreateSampleFile(out, complaint);
    RequireWritten(complaint, out);
    std::optional<HostSession> session;
    RunResult result;
    do {
        session.reset();
        target->DropDevice();
        RunOptions run = file.Options();
        run.Sink = &target->BeginDevice();
        session.emplace(module, file.Path, std::move(run));
        result = session->Run();
    } while (!result.Interrupted && file.Reading().TakesCopy());
    if (state.Cancel) return {};
    RefuseFailed(module, request, file, *session, result);
    const store::StoredDevice& device = *session->Device();
    RequireWritten(target->KeepDevice(device, session->Origin()), out);
    RequireWritten(target->Finish(), out);
    return {device.Signals.size(), CountSamples(&device)};
}
}  // namespace

py::tuple StoreFile(const Request& request, const std::string& out, const py::object& progress) {
    Stored stored;
    DoCall([&](const ModuleLoader& module, CallState& state) { stored = Store(module, request, out, state); },
           progress);
    return py::make_tuple(stored.Signals, stored.Samples);
}
}  // namespace kelvarin::python
