// What the program answers to the shell.
#pragma once

enum ExitStatus : int {
    ExitDone = 0,          // every file was done
    ExitFileFailed = 1,    // a file could not be imported or analysed; the others are done
    ExitWrongUsage = 2,    // the command line is wrong; nothing was done
    ExitFindings = 3,      // a check or a comparison has found something; none failed
    ExitInterrupted = 130  // ended by Ctrl-C
};
