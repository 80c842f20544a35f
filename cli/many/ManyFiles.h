// A command's walk over its files, with the options --jobs, --recursive and --threads.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "cli/CommandLine.h"

namespace kelvarin::cli {
// What became of one file: its exit status, and the samples that were stored of it.
struct FileOutcome {
    FileOutcome(int status, std::uint64_t samples = 0) : Status(status), Samples(samples) {}

    int Status;
    std::uint64_t Samples;
};

// What became of the files of a command.
struct FilesSummary {
    std::size_t Files = 0;            // begun
    std::vector<std::string> Failed;  // as the command line named them
    std::uint64_t Samples = 0;        // stored
    std::size_t WithFindings = 0;     // checked, with something to be looked at

    void Add(const FilesSummary& other);

    // "26 files: 24 imported, 2 failed: a.csv, b.csv; 1,234,567 samples". `done` is the word for what was
    // done with a file; without samples their number is left out.
    std::string Text(const std::string& done) const;
};

// A process of the program has its summary in one line of its messages, which the one that started it takes
// out of them again. Messages without such a line give an empty summary.
std::string SummaryLine(const FilesSummary& summary);
FilesSummary TakeSummary(std::string& messages);

// The option of such a process.
constexpr const char* ProcessOption = "--summary-line";

class ManyFiles {
  public:
    using Work = std::function<FileOutcome(const std::string& file)>;

    enum class Sum { IfMany, Always };

    // Adds the options to a command, which outlives this object. Without them the files are done one by one.
    void AddOptions(CLI::App& command);

    // Adds --threads to a command that imports.
    void AddThreadsOption(CLI::App& command);

    // How many threads may read a large file: as asked for, else one for each processor, but one in a
    // process that has got a share of the files.
    std::size_t Threads() const;

    // Does the work for each file, or hands shares of the files to processes of the program. Folders and
    // patterns are expanded. One line at the end sums up, always or after an expansion and with --jobs;
    // `done` is its word for a file that was done. Returns the worst exit status.
    int Run(const std::vector<std::string>& arguments, const std::string& done, const Work& work,
            Sum sum = Sum::IfMany) const;

    // The files that Run will do.
    std::vector<std::string> FilesOf(const std::vector<std::string>& arguments) const;

    // True if the files are to be spread over processes.
    bool HasProcesses() const { return Jobs > 1; }

    // True in a process that has got a share of the files.
    bool IsShare() const { return IsProcess; }

    // Adds an argument for the processes, before Run.
    void GiveToProcesses(std::string argument) { Given.push_back(std::move(argument)); }

  private:
    CLI::App* Command = nullptr;
    int Jobs = 0;                   // 0: not asked for
    std::size_t WantedThreads = 0;  // 0: not asked for
    bool Recursive = false;
    std::vector<std::string> Given;
    bool IsProcess = false;  // started by another one, which makes the summary
};
}  // namespace kelvarin::cli
