#include "view/program/PlotCommand.h"

#include <tuple>
#include <utility>

#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/ReplacingFile.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"
#include "view/model/Choice.h"
#include "view/model/FileImport.h"
#include "view/plot/Picture.h"
#include "view/plot/PlotArea.h"

namespace kelvarin::view {
namespace {
constexpr std::size_t MostByThemselves = 12;

PlotOutcome WrongUsage(std::string reason) {
    return {std::move(reason), true, {}};
}

// Narrows what is visible to --from and --to.
std::string TakeTimes(const Arguments& arguments, PlotModel& model) {
    TimeRange range = model.Whole();
    const std::int64_t start = range.From;
    for (const auto& [option, text, time] :
         {std::tuple("--from", &arguments.From, &range.From), std::tuple("--to", &arguments.To, &range.To)}) {
        if (!text->empty() && !ReadMoment(model.Times, *text, start, *time))
            return Phrase("{}: '{}' is no time such as {}", option, *text, MomentText(model.Times, start));
    }
    if (range.To <= range.From) return Phrase("--to is not later than --from");
    model.ShowTimes(range);
    return {};
}

std::string Joined(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts) joined += (joined.empty() ? "" : ", ") + text;
    return joined;
}

std::string WritePicture(const Arguments& arguments, PlotModel& model) {
    PlotArea area(model);
    area.Arrange({arguments.Width, arguments.Height});
    const QByteArray bytes = PictureOf(area, PictureEnding(arguments.Picture));
    if (bytes.isEmpty()) return Phrase("the picture could not be drawn");
    try {
        ReplaceFile(PathFromNative(arguments.Picture), bytes.toStdString());
    } catch (CFileException* failure) {
        const std::string reason = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
        return Phrase("{} can't be written: {}", arguments.Picture, reason);
    }
    return {};
}
}  // namespace

PlotOutcome PlotFile(const ModuleLoader& module, const Arguments& arguments) {
    if (!FindOverwriting(arguments.Files, {arguments.Picture}).Output.empty())
        return WrongUsage(Phrase("{} is the file that is read", arguments.Picture));
    ImportOrder order{PathFromNative(arguments.Files.front())};
    order.Cancel = &InterruptFlag();
    for (const std::string& text : arguments.Settings) {
        const std::string reason = ParseSetting(text, order.Settings.emplace_back());
        if (!reason.empty()) return WrongUsage("--set: " + reason);
    }
    const ImportedFile file = ImportFile(module, order);
    if (file.IsInterrupted) return {Phrase("interrupted"), false, {}};
    if (!file.Failure.empty()) return {file.Failure, false, {}};
    std::vector<std::string> unknown;
    const std::vector<SignalPointer> wanted = arguments.Signals.empty()
                                                  ? FirstSignals(file.Signals, MostByThemselves)
                                                  : NamedSignals(file.Signals, arguments.Signals, unknown);
    if (!unknown.empty()) {
        std::vector<std::string> names;
        for (const SignalPointer& signal : file.Signals) names.push_back(signal->Name());
        return WrongUsage(
            Phrase("--signals: there is no signal {}; there are {}", Joined(unknown), Joined(names)));
    }
    PlotModel model;
    model.Times = ClockFor(file.IsRelative);
    PlotAll(model, wanted);
    const std::string reason = TakeTimes(arguments, model);
    if (!reason.empty()) return WrongUsage(reason);
    PlotOutcome outcome{WritePicture(arguments, model), false, {}};
    if (arguments.Signals.empty() && file.Signals.size() > wanted.size())
        outcome.Left =
            Phrase("{} of {} signals are drawn; --signals names others", wanted.size(), file.Signals.size());
    return outcome;
}
}  // namespace kelvarin::view
