#include "platform/framework/Terminal.h"

#include <sys/ioctl.h>
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

bool IsOutputTerminal() {
    return isatty(STDOUT_FILENO) != 0;
}

std::size_t OutputWidth() {
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
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
