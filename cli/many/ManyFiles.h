// The options --jobs and --recursive, and a command's walk over its files.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/CommandLine.h"
#include "cli/many/Tally.h"

namespace kelvarin::cli {

class ManyFiles {
  public:
    // Does one file and answers the exit status; may add samples to the tally.
    using Work = std::function<int(const std::string& file, Tally& tally)>;

    // Adds the options to a command, which outlives this object.
    void AddOptions(CLI::App& command);

    // Does the files one after the other, or hands shares of them to copies of the program, whose output
    // comes in the order of the files. Folders and patterns are expanded. `done` is the word of the summary
    // for a file that was done; there is one after an expansion and with --jobs. Answers the worst exit
    // status.
    int Run(const CommonOptions& common, const std::string& done, const Work& work) const;

    // The files that Run will do.
    std::vector<std::string> FilesOf(const CommonOptions& common) const;

    // True if the files are to be spread over processes.
    bool HasCopies() const { return Jobs > 1; }

  private:
    int RunHere(const std::vector<std::string>& files, const Work& work, Tally& tally) const;
    int RunInCopies(const std::vector<std::string>& files, Tally& tally) const;

    CLI::App* Command = nullptr;
    int Jobs = 0;  // 0: not asked for
    bool Recursive = false;
    bool TellsTally = false;  // this is a copy: the summary is made by who started it
};

}  // namespace kelvarin::cli
