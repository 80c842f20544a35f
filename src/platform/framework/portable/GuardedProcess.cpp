#include "platform/framework/GuardedProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <fstream>
#include <iostream>
#include <new>

#include "platform/framework/Terminal.h"

namespace {

using Counter = std::atomic<std::uint64_t>;
static_assert(Counter::is_always_lock_free);  // two processes share it

Counter* s_Life = nullptr;  // null outside of guarded work

void SetLimit(auto resource, rlim_t most) {
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0) return;
    limit.rlim_cur = std::min(limit.rlim_cur, most);
    setrlimit(resource, &limit);
}

// A damaged length must not take the memory of all other programs.
void LimitMemory() {
    constexpr rlim_t Most = rlim_t{4} << 30;
    rlim_t pages = 0;
    if (std::ifstream("/proc/self/statm") >> pages)
        SetLimit(RLIMIT_AS, pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + Most);
}

// The life of the copy.
[[noreturn]] void DoWork(const std::function<int()>& work, pid_t parent, int output) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(1);  // it ended before the call
    // A Ctrl-C comes from the parent alone, and once. A process outside the terminal's group may be stopped
    // when it writes there.
    setpgid(0, 0);
    std::signal(SIGTTOU, SIG_IGN);
    SetLimit(RLIMIT_CORE, 0);
    for (const int crash : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) std::signal(crash, SIG_DFL);
    LimitMemory();
    dup2(output, STDOUT_FILENO);
    int status = 0;
    try {
        status = work();
    } catch (...) {
        std::abort();
    }
    std::cout.flush();
    std::exit(status);
}

std::chrono::nanoseconds ProcessorTime(pid_t process) {
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0) return {};
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

// The parent's view of the copy.
class Watch {
  public:
    Watch(pid_t process, std::chrono::seconds patience) : Process(process), Patience(patience) {}

    // Passes its output on until it closes it.
    void PassOutput(int from) {
        constexpr int Pause = 50;  // milliseconds
        char block[4096];
        for (;;) {
            pollfd ready{from, POLLIN, 0};
            if (poll(&ready, 1, Pause) > 0) {
                const ssize_t count = read(from, block, sizeof block);
                if (count == 0) return;
                if (count > 0) std::cout.write(block, count).flush();
            }
            PassInterrupt();
            EndIfStalled();
        }
    }

    GuardedResult Result() const {
        int status = 0;
        while (waitpid(Process, &status, 0) < 0 && errno == EINTR) {
        }
        if (IsStalled) return {GuardedResult::Stalled, 0, {}};
        if (WIFEXITED(status)) return {GuardedResult::Done, WEXITSTATUS(status), {}};
        return {GuardedResult::Crashed, WTERMSIG(status), {}};
    }

  private:
    void PassInterrupt() {
        if (!WasInterrupted() || HasPassedInterrupt) return;
        HasPassedInterrupt = true;
        kill(Process, SIGINT);
    }

    void EndIfStalled() {
        const std::uint64_t life = *s_Life;
        const std::chrono::nanoseconds time = ProcessorTime(Process);
        if (life != LastLife) {
            LastLife = life;
            TimeOfLife = time;
        } else if (time - TimeOfLife > Patience && !IsStalled) {
            IsStalled = true;
            kill(Process, SIGKILL);
        }
    }

    const pid_t Process;
    const std::chrono::seconds Patience;
    std::uint64_t LastLife = 0;
    std::chrono::nanoseconds TimeOfLife{};
    bool HasPassedInterrupt = false;
    bool IsStalled = false;
};

}  // namespace

GuardedResult RunGuarded(const std::function<int()>& work, std::chrono::seconds patience) {
    void* const shared =
        mmap(nullptr, sizeof(Counter), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    int ends[2];
    if (shared == MAP_FAILED || pipe2(ends, O_CLOEXEC) != 0)
        return {GuardedResult::NotStarted, 0, std::strerror(errno)};
    s_Life = new (shared) Counter(0);
    std::cout.flush();  // else the copy would write it too
    const pid_t parent = getpid();
    const pid_t process = fork();
    const int error = errno;
    if (process == 0) DoWork(work, parent, ends[1]);
    close(ends[1]);
    GuardedResult result{GuardedResult::NotStarted, 0, std::strerror(error)};
    if (process > 0) {
        Watch watch(process, patience);
        watch.PassOutput(ends[0]);
        result = watch.Result();
    }
    close(ends[0]);
    s_Life = nullptr;
    munmap(shared, sizeof(Counter));
    return result;
}

void ReportLife() {
    if (s_Life != nullptr) s_Life->fetch_add(1, std::memory_order_relaxed);
}
