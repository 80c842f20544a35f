#include "view/model/Export.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "host/FileReading.h"
#include "host/HostSession.h"
#include "host/ImportFailure.h"
#include "host/language/Phrase.h"
#include "host/store/SampleFile.h"
#include "platform/framework/Path.h"

namespace kelvarin::view {
namespace {
std::string Field(const std::string& text) {
    if (text.find_first_of(",\"\n\r") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

// A text loses the quotes in which a sample is shown.
std::string Cell(const PlottedSignal& signal, const SampleAt& sample) {
    if (signal.Kind() != SignalKind::Text || sample.Text.size() < 2) return Field(sample.Text);
    return Field(sample.Text.substr(1, sample.Text.size() - 2));
}

// The samples of one signal that are still to be written.
struct Column {
    SignalPointer Signal;
    std::uint64_t Row, End;

    std::optional<std::int64_t> Time() const {
        if (Row == End) return std::nullopt;
        return Signal->Times().Index().TimeAt(Row);
    }
};

std::vector<Column> ColumnsOf(const PlotModel& model) {
    std::vector<Column> columns;
    for (const Pane& pane : model.Panes()) {
        for (const SignalPointer& signal : pane.Signals) {
            const store::TimeIndex& times = signal->Times().Index();
            const std::uint64_t end = std::min(times.RowsBefore(model.Visible().To), signal->Count());
            columns.push_back({signal, std::min(times.RowsBefore(model.Visible().From), end), end});
        }
    }
    return columns;
}
}  // namespace

std::string CsvOf(const PlotModel& model, const std::atomic<bool>& cancel) {
    std::vector<Column> columns = ColumnsOf(model);
    std::string text = Field(Phrase("Time"));
    for (const Column& column : columns) {
        const std::string& unit = column.Signal->Unit();
        text += "," + Field(column.Signal->Name() + (unit.empty() ? "" : " [" + unit + "]"));
    }
    text += "\n";
    for (bool isAny = false; !cancel; isAny = true) {
        std::optional<std::int64_t> next;
        for (const Column& column : columns) {
            const std::optional<std::int64_t> time = column.Time();
            if (time && (!next || *time < *next)) next = time;
        }
        if (!next) return isAny ? text : std::string();
        text += MomentText(model.Times, *next);
        for (Column& column : columns) {
            text += ",";
            if (column.Time() == next) text += Cell(*column.Signal, column.Signal->Sample(column.Row++));
        }
        text += "\n";
    }
    return {};
}

std::string ExportHdf5(const ModuleLoader& module, const ImportOrder& order, const std::u16string& path) {
    std::string complaint;
    const std::unique_ptr<store::SampleFile> file = store::CreateSampleFile(PathToNative(path), complaint);
    if (file == nullptr) return complaint;
    ReadingOptions reading;
    reading.Cancel = order.Cancel;
    FileReading plan(module, order.Path, order.Settings, reading);
    std::unique_ptr<HostSession> session;
    RunResult result;
    do {
        if (session != nullptr) file->DropDevice();
        session.reset();
        RunOptions run;
        run.Sink = &file->BeginDevice();
        run.Cancel = order.Cancel;
        run.Reading = plan.Automatic();
        run.OnProgress = [&order](std::uint32_t percent) {
            if (order.OnProgress) order.OnProgress({false, percent, {}, {}, false});
        };
        session = std::make_unique<HostSession>(module, order.Path, std::move(run));
        result = session->Run();
    } while (!result.Interrupted && plan.TakesCopy());
    if (result.Interrupted) return Phrase("interrupted");
    const std::string reason = WhyImportFailed(order.Path, result, *session).Reason;
    if (!reason.empty()) return reason;
    if (session->Device() == nullptr) return WhyNothingIsStored(result, session->Device());
    complaint = file->KeepDevice(*session->Device(), session->Origin());
    return complaint.empty() ? file->Finish() : complaint;
}
}  // namespace kelvarin::view
