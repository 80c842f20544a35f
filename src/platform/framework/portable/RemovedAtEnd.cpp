#include "platform/framework/portable/RemovedAtEnd.h"

#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <mutex>

namespace {

constexpr int EndingSignals[] = {SIGHUP,  SIGINT,  SIGQUIT, SIGABRT, SIGPIPE,
                                 SIGALRM, SIGTERM, SIGXCPU, SIGXFSZ};
constexpr int MostPaths = 64;

// Read by a signal handler: nothing of it may need a constructor or a lock.
std::atomic<const char*> Paths[MostPaths];
std::atomic<pid_t> Process;  // a forked child must not remove its parent's files
static_assert(std::atomic<const char*>::is_always_lock_free && std::atomic<pid_t>::is_always_lock_free);

void RemoveAndEnd(int signal) {
    if (Process == getpid()) {
        for (auto& path : Paths) {
            if (const char* const entered = path.exchange(nullptr)) unlink(entered);
        }
    }
    // It is held back until this handler returns, and ends the process then.
    std::signal(signal, SIG_DFL);
    raise(signal);
}

// Puts `to` in the place of `from`, and leaves any other handler.
void Exchange(void (*from)(int), void (*to)(int)) {
    for (const int signal : EndingSignals) {
        struct sigaction action {};
        sigaction(signal, nullptr, &action);
        if ((action.sa_flags & SA_SIGINFO) != 0 || action.sa_handler != from) continue;
        action.sa_handler = to;
        sigaction(signal, &action, nullptr);
    }
}

std::mutex& Entering() {
    static std::mutex mutex;
    return mutex;
}

int Entered = 0;  // under the mutex

}  // namespace

SignalsHeld::SignalsHeld() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, &Before);
}

SignalsHeld::~SignalsHeld() {
    pthread_sigmask(SIG_SETMASK, &Before, nullptr);
}

void RemovedAtEnd::Enter(const std::string& path) {
    const std::lock_guard lock(Entering());
    if (Process.exchange(getpid()) != getpid()) {
        for (auto& other : Paths) other = nullptr;
        Entered = 0;
    }
    for (Place = MostPaths - 1; Place >= 0 && Paths[Place] != nullptr;) --Place;
    if (Place < 0) return;
    Path = path;
    Paths[Place] = Path.c_str();
    if (Entered++ == 0) Exchange(SIG_DFL, RemoveAndEnd);
}

void RemovedAtEnd::Leave() {
    const std::lock_guard lock(Entering());
    if (Place < 0 || Paths[Place].exchange(nullptr) != Path.c_str()) return;
    Place = -1;
    // The handler must not outlive the library that it lies in.
    if (--Entered == 0) Exchange(RemoveAndEnd, SIG_DFL);
}

void LetSignalEnd(int signal) {
    std::signal(signal, RemoveAndEnd);
}
