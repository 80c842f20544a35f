#include "view/model/FileImport.h"

#include <utility>

#include "host/FileReading.h"
#include "host/ImportFailure.h"
#include "host/check/CheckRun.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"
#include "view/model/CheckedRun.h"

namespace kelvarin::view {
ImportedFile ImportFile(const ModuleLoader& module, const ImportOrder& order) {
    ImportedFile file;
    file.Path = order.Path;
    ReadingOptions options;
    options.Save = order.Saves;
    options.Cancel = order.Cancel;
    options.OnProgress = [&order](std::uint32_t percent) {
        if (order.OnProgress) order.OnProgress({true, percent, {}, {}, false});
    };
    FileReading reading(module, order.Path, order.Settings, options);
    std::shared_ptr<CheckedRun> run = order.Before;
    if (run != nullptr && !run->GoOn(module, order, reading.Automatic())) run = nullptr;
    while (run == nullptr || (!run->LastResult().Interrupted && reading.TakesCopy())) {
        run.reset();
        run = std::make_shared<CheckedRun>(order.Path);
        run->Read(module, order, reading.Automatic());
    }
    HostSession& session = run->LastSession();
    file.IsInterrupted = run->LastResult().Interrupted || reading.Automatic()->IsInterrupted();
    file.LinesRead = run->LastResult().Lines;
    file.Failure = WhyImportFailed(order.Path, run->LastResult(), session).Reason;
    if (file.Failure.empty()) file.Failure = reading.Automatic()->WhyUnread();
    if (file.Failure.empty() && CountSamples(session.Device()) == 0 && !file.IsInterrupted)
        file.Failure = WhyNothingIsStored(run->LastResult(), session.Device());
    file.Origin = session.Origin();
    file.Size = file.Origin.SourceSize;
    file.Modified = file.Origin.SourceModified;
    file.IsRelative = file.Origin.IsRelative;
    file.Format = ReadingOf(session.Filter());
    file.Messages = session.Messages().Groups();
    file.LinesBefore = run->LinesReadBefore();
    file.Lines = run->RowsByLine();
    if (reading.Guess() != nullptr) file.Guess = *reading.Guess();
    if (run->LastResult().Begun) file.Findings = check::Judge(run->Checked(module, reading.Automatic()));
    if (CountSamples(session.Device()) == 0) return file;
    file.Device = session.TakeDevice();
    file.Signals = run->AllSignals(file.Device);
    if (run->HasEnd()) file.Next = run;
    return file;
}
}  // namespace kelvarin::view
