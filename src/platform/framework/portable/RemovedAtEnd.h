// Files that must not outlast the process, also when a signal ends it.
#pragma once

#include <csignal>
#include <string>

// Holds the process's signals back for as long as it lives, so that a file can't be made without being
// entered.
class SignalsHeld {
  public:
    SignalsHeld();
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;
    ~SignalsHeld();

  private:
    sigset_t Before;
};

// One path. While it is entered, each signal that would end the process by default (SIGHUP, SIGINT, SIGQUIT,
// SIGABRT, SIGPIPE, SIGALRM, SIGTERM, SIGXCPU, SIGXFSZ) removes the file first. A signal that has a handler
// or is ignored stays as it is.
class RemovedAtEnd {
  public:
    RemovedAtEnd() = default;
    RemovedAtEnd(const RemovedAtEnd&) = delete;
    RemovedAtEnd& operator=(const RemovedAtEnd&) = delete;
    ~RemovedAtEnd() { Leave(); }

    // Enters the path of a file that this process has made. At most 64 are entered at a time; a further one
    // is left to the next run.
    void Enter(const std::string& path);

    // Takes the path out again.
    void Leave();

  private:
    std::string Path;
    int Place = -1;
};

// Lets the signal end the process from now on, after its files have been removed. A signal handler may call
// it.
void LetSignalEnd(int signal);
