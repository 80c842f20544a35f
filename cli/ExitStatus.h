// What the program answers to the shell.
#pragma once

namespace kelvarin::cli {

enum ExitStatus : int {
    ExitDone = 0,          // every file was done
    ExitFileFailed = 1,    // a file could not be imported or analysed; the others are done
    ExitWrongUsage = 2,    // the command line is wrong; nothing was done
    ExitFindings = 3,      // a check or a comparison has found something; none failed
    ExitInterrupted = 130  // ended by Ctrl-C
};

// The status of two pieces of work: a failure outweighs findings, an interruption everything.
constexpr int WorseStatus(int one, int other) {
    constexpr auto weight = [](int status) {
        return status == ExitFindings     ? 1
               : status == ExitFileFailed ? 2
               : status == ExitDone       ? 0
                                          : 3 + status;
    };
    return weight(one) < weight(other) ? other : one;
}

}  // namespace kelvarin::cli
