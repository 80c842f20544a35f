// The terminal that a program talks to, if there is one.
#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <vector>

// The program's arguments behind its name, in UTF-8. Also opens the standard streams (StandardStreams.h) and
// makes them carry UTF-8 and plain line ends; called once, first.
std::vector<std::string> BeginProgram(int argc, char** argv);

// True if standard output, or standard error, goes to a terminal.
bool IsOutputTerminal();
bool IsErrorTerminal();

// Characters in a line of the terminal of standard output; 0 if there is none or it doesn't tell.
std::size_t OutputWidth();

// From now on Ctrl-C only sets a flag. A second Ctrl-C ends the program at once, unless it `staysCaught`: the
// copies of a program get one Ctrl-C from the terminal and from the program.
void CatchInterrupt(bool staysCaught = false);

// True after Ctrl-C. The flag becomes true at that moment.
bool WasInterrupted();
const std::atomic<bool>& InterruptFlag();
