#include "platform/framework/Terminal.h"

#include <unistd.h>

#include <csignal>

namespace {

volatile std::sig_atomic_t interrupted = 0;

void RememberInterrupt(int signal) {
    interrupted = 1;
    std::signal(signal, SIG_DFL);
}

}  // namespace

std::vector<std::string> BeginProgram(int argc, char** argv) {
    return {argv + 1, argv + argc};
}

bool IsErrorTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

void CatchInterrupt() {
    std::signal(SIGINT, RememberInterrupt);
}

bool WasInterrupted() {
    return interrupted != 0;
}
