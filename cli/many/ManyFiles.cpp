#include "cli/many/ManyFiles.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <new>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <thread>

#include "cli/Complaints.h"
#include "cli/SharedPlan.h"
#include "cli/many/ProcessPool.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Path.h"
#include "platform/framework/StandardStreams.h"
#include "platform/framework/Terminal.h"

namespace kelvarin::cli {
using Json = nlohmann::ordered_json;

namespace {
// No message begins with it.
constexpr char SummaryMark = '\x1e';

constexpr std::size_t MostNamed = 20;

std::string Grouped(std::uint64_t number) {
    std::string text = std::to_string(number);
    const std::string mark = Phrase(",");
    for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, mark);
    return text;
}

constexpr int MostJobs = 256;
constexpr const char* JobsOption = "--jobs";

// The command line of this run without its files and without what concerns many files.
std::vector<std::string> ArgumentsOfProcesses(const CLI::App& command) {
    std::vector<std::string> arguments = {command.get_name()};
    for (const CLI::Option* option : command.get_options()) {
        if (option->count() == 0 || option->get_lnames().empty()) continue;
        const std::string name = "--" + option->get_lnames().front();
        if (name == JobsOption || name == "--recursive" || name == PlanOption) continue;
        const bool isFlag = option->get_items_expected_max() == 0;
        for (const std::string& value : option->results())
            arguments.push_back(isFlag ? name : name + "=" + value);
    }
    arguments.push_back(ProcessOption);
    return arguments;
}

// The work for one file; what it takes from others, such as memory, it fails for alone.
FileOutcome DoOne(const std::string& file, const ManyFiles::Work& work) {
    const std::string unread = sidecar::WhyUnread(PathFromNative(file));
    if (!unread.empty()) ComplainAbout(file + ".info", unread);
    try {
        FileOutcome outcome = work(file);
        if (!unread.empty()) outcome.Status = WorseStatus(outcome.Status, ExitFileFailed);
        return outcome;
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {  // a text longer than any memory
    }
    return Fail(file, Phrase("not enough memory"));
}

int RunOneByOne(const std::vector<std::string>& files, const ManyFiles::Work& work, FilesSummary& summary,
                bool isProcess) {
    int status = ExitDone;
    for (const std::string& file : files) {
        if (WasInterrupted()) return ExitInterrupted;
        const FileOutcome outcome = DoOne(file, work);
        const OutputState output = isProcess ? KeepOutput() : FlushOutput();
        if (output == OutputState::ReaderGone) return ExitReaderGone;
        // Who started this process passes on whole reports only.
        if (isProcess && output == OutputState::Failed) return ExitFileFailed;
        ++summary.Files;
        summary.Samples += outcome.Samples;
        if (outcome.Status == ExitFileFailed) summary.Failed.push_back(file);
        if (outcome.Status == ExitFindings) ++summary.WithFindings;
        status = WorseStatus(status, outcome.Status);
        if (status == ExitInterrupted) break;
    }
    return status;
}
}  // namespace

void FilesSummary::Add(const FilesSummary& other) {
    Files += other.Files;
    Failed.insert(Failed.end(), other.Failed.begin(), other.Failed.end());
    Samples += other.Samples;
    WithFindings += other.WithFindings;
}

std::string FilesSummary::Text(const std::string& done) const {
    std::string text = Phrase("{} files: {} {}", Files, Files - Failed.size(), done);
    if (WithFindings != 0) text += Phrase(", {} of them with findings", WithFindings);
    if (!Failed.empty()) {
        std::string names;
        for (std::size_t i = 0; i < std::min(Failed.size(), MostNamed); ++i)
            names += (i == 0 ? "" : ", ") + Failed[i];
        if (Failed.size() > MostNamed) names += ", ...";
        text += Phrase(", {} failed: {}", Failed.size(), names);
    }
    if (Samples != 0) text += Phrase("; {} samples", Grouped(Samples));
    return text;
}

std::string SummaryLine(const FilesSummary& summary) {
    const Json document = {{"files", summary.Files},
                           {"failed", summary.Failed},
                           {"samples", summary.Samples},
                           {"findings", summary.WithFindings}};
    return SummaryMark + document.dump(-1, ' ', true, Json::error_handler_t::replace) + "\n";
}

FilesSummary TakeSummary(std::string& messages) {
    const std::size_t mark = messages.rfind(SummaryMark);
    if (mark == std::string::npos) return {};
    const std::size_t end = messages.find('\n', mark);
    const Json document = Json::parse(messages.substr(mark + 1, end - mark - 1), nullptr, false);
    messages.erase(mark, end == std::string::npos ? end : end + 1 - mark);
    if (document.is_discarded()) return {};
    return {document.value("files", std::size_t{0}), document.value("failed", std::vector<std::string>()),
            document.value("samples", std::uint64_t{0}), document.value("findings", std::size_t{0})};
}

void ManyFiles::AddOptions(CLI::App& command) {
    Command = &command;
    command.add_option(JobsOption, Jobs, Phrase("Spread the files over N processes"))
        ->type_name("N")
        ->check(CLI::Range(1, MostJobs));
    command.add_flag("--recursive", Recursive, Phrase("With a folder as FILE: also the folders in it"));
    command.add_flag(ProcessOption, IsProcess)->group("");
}

void ManyFiles::AddThreadsOption(CLI::App& command) {
    constexpr std::size_t MostThreads = 256;
    command
        .add_option("--threads", WantedThreads,
                    Phrase("Read a large file by N threads (default: one for each processor)"))
        ->type_name("N")
        ->check(CLI::Range(std::size_t{1}, MostThreads));
}

std::size_t ManyFiles::Threads() const {
    if (WantedThreads != 0) return WantedThreads;
    // The processors are those of the other processes too.
    return IsProcess ? 1 : std::thread::hardware_concurrency();
}

int ManyFiles::Run(const std::vector<std::string>& arguments, const std::string& done, const Work& work,
                   Sum sum) const {
    CatchInterrupt(IsProcess);
    const FileList list = ListFiles(arguments, Recursive);
    FilesSummary summary;
    std::vector<std::string> processArguments;
    if (Command != nullptr) processArguments = ArgumentsOfProcesses(*Command);
    processArguments.insert(processArguments.end(), Given.begin(), Given.end());
    int status = HasProcesses() && list.Files.size() > 1
                     ? RunInProcesses(processArguments, static_cast<std::size_t>(Jobs), list.Files, summary)
                     : RunOneByOne(list.Files, work, summary, IsProcess);
    for (const auto& [name, reason] : list.Unread) {
        ComplainAbout(name, reason);
        ++summary.Files;
        summary.Failed.push_back(name);
        status = WorseStatus(status, ExitFileFailed);
    }
    if (IsProcess) {
        std::cerr << SummaryLine(summary);
    } else if (sum == Sum::Always || list.IsExpanded || Jobs != 0) {
        Complain(summary.Text(done));
    }
    return status;
}

std::vector<std::string> ManyFiles::FilesOf(const std::vector<std::string>& arguments) const {
    return ListFiles(arguments, Recursive).Files;
}
}  // namespace kelvarin::cli
