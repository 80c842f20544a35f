#include "cli/FileReading.h"

#include <CLI/CLI.hpp>

#include "cli/Complaints.h"
#include "host/TypeNames.h"
#include "host/Words.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/Text.h"

namespace kelvarin::cli {
namespace {
ReadingOptions UntilInterrupted(ReadingOptions options, std::function<void(std::uint32_t)> onProgress) {
    options.Cancel = &InterruptFlag();
    options.OnProgress = std::move(onProgress);
    return options;
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
    : kelvarin::FileReading(module, PathFromNative(file), common.Settings,
                            UntilInterrupted(options, std::move(onProgress))),
      File(file) {}

int FileReading::WithComplaints(int status) const {
    if (Guess() != nullptr && Guess()->IsSaveLost)
        status = WorseStatus(status, Fail(File + ".info", Guess()->SaveFailure));
    const plan::AutomaticReading& plan = *Automatic();
    for (const std::u16string& column : plan.UnknownColumns())
        status = WorseStatus(status, Fail(File, Phrase("there is no column '{}'", Utf16ToUtf8(column))));
    const plan::ReadingPlan* const followed = plan.Plan();
    if (followed != nullptr && followed->Kin && !followed->Kin->PlanFile.empty() &&
        !followed->Kin->Differences.empty()) {
        ComplainAbout(File, Phrase("unlike the files of the plan: {}", Joint(followed->Kin->Differences)));
        status = WorseStatus(status, ExitFindings);
    }
    if (!plan.WhyUnread().empty() && (status == ExitDone || status == ExitFindings))
        status = Fail(File, plan.WhyUnread());
    if (!plan.CopyFailure().empty())
        ComplainAbout(File, Phrase("no clean copy could be made: {}", plan.CopyFailure()));
    return status;
}
}  // namespace kelvarin::cli
