// What goes to standard error, and the exit status.
#pragma once

#include <string>

namespace kelvarin::cli {
enum ExitStatus : int {
    ExitDone = 0,           // every file was done
    ExitFileFailed = 1,     // a file could not be imported or analysed; the others are done
    ExitWrongUsage = 2,     // the command line is wrong; nothing was done
    ExitFindings = 3,       // a check or a comparison has found something; none failed
    ExitInterrupted = 130,  // ended by Ctrl-C
    ExitReaderGone = 141    // nobody reads the output any more; what a shell shows for SIGPIPE
};

// The status of two pieces of work: a failure outweighs findings, a wrong use both, an interruption all.
int WorseStatus(int one, int other);

// One line about the program itself.
void Complain(const std::string& reason);

// One line: the program, the file, what is wrong with it.
void ComplainAbout(const std::string& file, const std::string& reason);

// The same, and ExitFileFailed.
int Fail(const std::string& file, const std::string& reason);

// The same if there is a reason, else ExitDone.
int Finish(const std::string& file, const std::string& reason);

// The status at the end of the program: that of its work, unless output was lost, which is complained about,
// or the reader has gone.
int FinishOutput(int status);

// A file's name as valid UTF-8, whatever its bytes are.
std::string PrintableName(const std::string& file);
}  // namespace kelvarin::cli
