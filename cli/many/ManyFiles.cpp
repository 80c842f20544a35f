#include "cli/many/ManyFiles.h"

#include <iostream>

#include "cli/Complaints.h"
#include "cli/ExitStatus.h"
#include "cli/many/CopyPool.h"
#include "host/FileList.h"
#include "host/language/Phrase.h"
#include "platform/framework/Terminal.h"

namespace kelvarin::cli {

namespace {

constexpr int MostJobs = 256;
constexpr const char* JobsOption = "--jobs";
constexpr const char* TallyOption = "--tally";

// The command line of this run without its files and without what concerns many files.
std::vector<std::string> ArgumentsOfCopies(const CLI::App& command) {
    std::vector<std::string> arguments = {command.get_name()};
    for (const CLI::Option* option : command.get_options()) {
        if (option->count() == 0 || option->get_lnames().empty()) continue;
        const std::string name = "--" + option->get_lnames().front();
        if (name == JobsOption || name == "--recursive") continue;
        const bool isFlag = option->get_items_expected_max() == 0;
        for (const std::string& value : option->results())
            arguments.push_back(isFlag ? name : name + "=" + value);
    }
    arguments.push_back(TallyOption);
    return arguments;
}

}  // namespace

void ManyFiles::AddOptions(CLI::App& command) {
    Command = &command;
    command.add_option(JobsOption, Jobs, Phrase("Spread the files over N processes"))
        ->type_name("N")
        ->check(CLI::Range(1, MostJobs));
    command.add_flag("--recursive", Recursive, Phrase("With a folder as FILE: also the folders in it"));
    command.add_flag(TallyOption, TellsTally)->group("");
}

int ManyFiles::Run(const CommonOptions& common, const std::string& done, const Work& work) const {
    CatchInterrupt();
    const FileList list = ListFiles(common.Files, Recursive);
    Tally tally;
    const bool inCopies = Jobs > 1 && list.Files.size() > 1;
    const int status = inCopies ? RunInCopies(list.Files, tally) : RunHere(list.Files, work, tally);
    if (TellsTally) {
        std::cout.flush();
        std::cerr << TallyLine(tally);
    } else if (list.IsExpanded || Jobs != 0) {
        Complain(TallyText(tally, done));
    }
    return status;
}

std::vector<std::string> ManyFiles::FilesOf(const CommonOptions& common) const {
    return ListFiles(common.Files, Recursive).Files;
}

int ManyFiles::RunHere(const std::vector<std::string>& files, const Work& work, Tally& tally) const {
    int status = ExitDone;
    for (const std::string& file : files) {
        if (WasInterrupted()) return ExitInterrupted;
        const int done = work(file, tally);
        ++tally.Files;
        if (done == ExitFileFailed) tally.Failed.push_back(file);
        if (done == ExitFindings) ++tally.WithFindings;
        status = WorseStatus(status, done);
        if (done == ExitInterrupted) break;
    }
    return status;
}

int ManyFiles::RunInCopies(const std::vector<std::string>& files, Tally& tally) const {
    return CopyPool(ArgumentsOfCopies(*Command), static_cast<std::size_t>(Jobs)).Run(files, tally);
}

}  // namespace kelvarin::cli
