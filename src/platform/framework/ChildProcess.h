// This program once more, at the same time, for a share of the work.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

// One running copy. What it writes is kept in temporary files without a name until it is asked for, so that
// it never waits for a reader, and goes with this object. A copy that still runs then is ended, and so it is
// when this process ends in whatever way.
class ChildProcess {
  public:
    ChildProcess() = default;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    // Starts the copy with these arguments in UTF-8. False, with the reason, if the system has no room for
    // it.
    bool Start(const std::vector<std::string>& arguments, std::string& reason);

    // True once the copy has ended; doesn't wait.
    bool HasEnded();

    // Asks the copy to end as Ctrl-C does.
    void Interrupt();

    // After the end: the exit status; 128 and more for a copy that was ended from outside or crashed.
    int Status() const { return ExitStatus; }

    // After the end: what the copy wrote, from the start.
    std::FILE* Output() const { return Out; }
    std::FILE* Errors() const { return Err; }

  private:
    std::FILE* Out = nullptr;
    std::FILE* Err = nullptr;
    void* Process = nullptr;  // null before the start and after the end
    int ExitStatus = -1;
};
