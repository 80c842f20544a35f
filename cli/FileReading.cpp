#include "cli/FileReading.h"

#include <CLI/CLI.hpp>

#include "cli/Complaints.h"
#include "cli/TypeNames.h"
#include "host/Words.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
namespace {
plan::AutomaticOptions AutomaticOptionsFor(const ReadingOptions& options,
                                           std::function<void(std::uint32_t)> onProgress) {
    plan::AutomaticOptions automatic;
    automatic.IsOff = options.NoGuess;
    automatic.ColumnsOnly = options.ColumnsOnly;
    automatic.Copies = options.Copies;
    automatic.Wishes = options.Wishes;
    automatic.FormatLetters = options.FormatLetters;
    automatic.Kinds = options.Kinds;
    automatic.Cancel = &InterruptFlag();
    automatic.OnProgress = std::move(onProgress);
    return automatic;
}

int TypeOrRefuse(const std::string& option, const std::string& word) {
    const int type = TypeNamed(word);
    if (type == 0) RefuseOption(option, Phrase("'{}' is no data type; allowed are {}", word, AllTypeNames()));
    return type;
}

// The parts of "COLUMN=VALUE"; a name may hold the sign itself, so the last one counts.
std::pair<std::u16string, std::string> ColumnAndValue(const std::string& option, const std::string& text) {
    const std::size_t equals = text.rfind('=');
    if (equals == std::string::npos || equals == 0)
        RefuseOption(option, Phrase("'{}' is not of the form COLUMN=VALUE", text));
    return {Utf8ToUtf16(text.substr(0, equals)), text.substr(equals + 1)};
}
}  // namespace

std::string Joint(const std::vector<std::string>& sentences) {
    std::string text;
    for (const std::string& sentence : sentences) text += (text.empty() ? "" : "; ") + sentence;
    return text;
}

void AddReadingOptions(CLI::App& command, ReadingOptions& options) {
    command.add_flag("--no-guess", options.NoGuess,
                     Phrase("Read the file as the module alone does, under the settings in force"));
    command.add_flag("--guess-time", options.GuessTime,
                     Phrase("Find out how the file is built, use and print it (the default)"));
    const auto add = [&command, &options](const char* name, const char* values,
                                          const std::string& description, const auto& set) {
        command
            .add_option_function<std::vector<std::string>>(
                name,
                [&options, set, option = std::string(name)](const std::vector<std::string>& texts) {
                    for (const std::string& text : texts) options.Wishes.push_back(set(option, text));
                },
                description)
            ->type_name(values)
            ->allow_extra_args(false);
    };
    add("--type", "COLUMN=TYPE",
        Phrase("Data type of a column, by number or name: {}; repeatable", AllTypeNames()),
        [](const std::string& option, const std::string& text) {
            const auto [column, value] = ColumnAndValue(option, text);
            return plan::ColumnWish{column, {}, {}, TypeOrRefuse(option, value), false};
        });
    add("--name", "COLUMN=NAME", Phrase("Name of a column's signal; repeatable"),
        [](const std::string& option, const std::string& text) {
            const auto [column, value] = ColumnAndValue(option, text);
            return plan::ColumnWish{column, Utf8ToUtf16(value), {}, 0, false};
        });
    add("--unit", "COLUMN=UNIT", Phrase("Unit of a column's signal; repeatable"),
        [](const std::string& option, const std::string& text) {
            const auto [column, value] = ColumnAndValue(option, text);
            return plan::ColumnWish{column, {}, Utf8ToUtf16(value), 0, false};
        });
    add("--skip", "COLUMN", Phrase("Make no signal of a column; repeatable"),
        [](const std::string&, const std::string& text) {
            return plan::ColumnWish{Utf8ToUtf16(text), {}, {}, 0, true};
        });
    command
        .add_option_function<std::string>(
            "--format-letters",
            [&options](const std::string& text) {
                options.FormatLetters = Utf8ToUtf16(text);
                constexpr std::size_t Fields = 6;
                if (options.FormatLetters.size() != Fields)
                    RefuseOption("--format-letters", Phrase("'{}' are not six letters", text));
            },
            Phrase("Letters of TimestampFormat for year, month, day, hours, minutes and seconds, such as "
                   "YMDhms, "
                   "in place of the language's"))
        ->type_name("LETTERS");
}

void AddSaveOption(CLI::App& command, ReadingOptions& options) {
    command.add_flag("--save", options.Save, Phrase("Keep what was found in FILE.info"));
}

FileReading::FileReading(const ModuleLoader& module, const std::string& file, const CommonOptions& common,
                         const ReadingOptions& options, std::function<void(std::uint32_t)> onProgress)
    : Module(module),
      File(file),
      IsToBeSaved(options.Save),
      Plan(module, PathFromNative(file), common.Settings,
           AutomaticOptionsFor(options, std::move(onProgress))) {
    if (!Plan.Unlikeness().empty()) {
        Unlike = Phrase("not read, as it is not like the files of the plan: {}", Joint(Plan.Unlikeness()));
        Found.emplace();
        Found->Failure = Unlike;
        return;
    }
    const bool isAsked = options.GuessTime || options.Save;
    if (Plan.Plan() == nullptr && (!isAsked || options.NoGuess)) return;
    Found = plan::GuessOf(Plan);
    if (options.Save) Save();
}

void FileReading::Save() {
    plan::SaveGuess(Module, PathFromNative(File), Plan, *Found);
}

bool FileReading::TakesCopy() {
    if (!Plan.TakesCopy()) return false;
    Found = plan::GuessOf(Plan);
    if (IsToBeSaved) Save();
    return true;
}

int FileReading::WithComplaints(int status) const {
    if (Found && Found->IsSaveLost) status = WorseStatus(status, Fail(File + ".info", Found->SaveFailure));
    for (const std::u16string& column : Plan.UnknownColumns())
        status = WorseStatus(status, Fail(File, Phrase("there is no column '{}'", Utf16ToUtf8(column))));
    const plan::ReadingPlan* const followed = Plan.Plan();
    if (followed != nullptr && followed->Kin && !followed->Kin->PlanFile.empty() &&
        !followed->Kin->Differences.empty()) {
        ComplainAbout(File, Phrase("unlike the files of the plan: {}", Joint(followed->Kin->Differences)));
        status = WorseStatus(status, ExitFindings);
    }
    if (!Plan.WhyUnread().empty() && (status == ExitDone || status == ExitFindings))
        status = Fail(File, Plan.WhyUnread());
    if (!Plan.CopyFailure().empty())
        ComplainAbout(File, Phrase("no clean copy could be made: {}", Plan.CopyFailure()));
    return status;
}
}  // namespace kelvarin::cli
