#include "platform/framework/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>

#include "platform/framework/StandardStreams.h"
#include "platform/framework/portable/RemovedAtEnd.h"

namespace {

std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);  // a signal handler sets it

std::atomic<bool> endsWithNext = false;  // an interrupt after the first one ends the process

void RememberInterrupt(int signal) {
    interrupted = true;
    if (endsWithNext) LetSignalEnd(signal);
}

}  // namespace

std::vector<std::string> BeginProgram(int argc, char** argv) {
    OpenStandardStreams();
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

void CatchInterrupt(bool staysCaught) {
    endsWithNext = !staysCaught;
    struct sigaction action {};
    action.sa_handler = RememberInterrupt;
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
}

bool WasInterrupted() {
    return interrupted;
}

const std::atomic<bool>& InterruptFlag() {
    return interrupted;
}
