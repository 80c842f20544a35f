// The terminal that a program talks to, if there is one.
#pragma once

// True if standard error goes to a terminal.
bool IsErrorTerminal();

// From now on Ctrl-C only sets a flag. A second Ctrl-C ends the program at once.
void CatchInterrupt();

// True after Ctrl-C.
bool WasInterrupted();
