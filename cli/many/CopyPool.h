// Copies of the program at work on shares of a list of files.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cli/many/Tally.h"

class ChildProcess;

namespace kelvarin::cli {

class CopyPool {
  public:
    // `arguments` come before the files of each copy; at most `jobs` run at a time.
    CopyPool(std::vector<std::string> arguments, std::size_t jobs);
    ~CopyPool();

    // Does all files. What the copies write comes out in the order of the files. Ctrl-C goes to all of them.
    // Answers the worst exit status.
    int Run(const std::vector<std::string>& files, Tally& tally);

  private:
    // A run of neighbouring files for one copy.
    struct Share {
        std::vector<std::string> Files;
        std::unique_ptr<ChildProcess> Copy;  // null before its start and once its output has been passed on
    };

    void Start(Share& share, int& status, Tally& tally);
    void PassOn(Share& share, int& status, Tally& tally);
    std::size_t CountRunning();

    const std::vector<std::string> Arguments;
    const std::size_t Jobs;
    std::vector<Share> Shares;
};

}  // namespace kelvarin::cli
