// The three standard streams of a program: that they are there, and that all of its output has arrived.
#pragma once

#include <string>

// Opens the streams that came closed, to nowhere: else the next files that the program opens would be written
// as its output. Then makes std::cout remember its first failure, and a reader that closes the pipe no reason
// for a signal. Called once, before anything else is opened.
void OpenStandardStreams();

enum class OutputState {
    Written,     // all of it
    ReaderGone,  // the program at the other end of the pipe wants no more
    Failed       // part of it is lost
};

// Writes what std::cout still holds, and says how all output has fared so far.
OutputState FlushOutput();

// As FlushOutput, for the end of a program: also asks the system for failures that it reports late.
OutputState CloseOutput();

// Why the output failed, as the system says it. After Failed only.
std::string OutputFailure();

// As FlushOutput. After Written the output up to here is kept whatever happens later; after a failure, output
// to a file is cut to what was kept last.
OutputState KeepOutput();
