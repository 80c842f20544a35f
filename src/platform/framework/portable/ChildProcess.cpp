#include "platform/framework/ChildProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

#include "platform/framework/portable/TemporaryFile.h"

namespace {

// std::tmpfile knows nothing of TMPDIR, and what it opens goes on to the copies started later.
std::FILE* OpenNamelessStream() {
    const int descriptor = OpenNamelessFile();
    return descriptor < 0 ? nullptr : fdopen(descriptor, "w+b");
}

// Takes room for messages on the disk, so that a copy can still say that the disk is full.
bool ReserveMessages(std::FILE* file) {
    constexpr off_t Size = 16384;
    return fallocate(fileno(file), FALLOC_FL_KEEP_SIZE, 0, Size) == 0 || errno != ENOSPC;
}

// In the new process, which may call nothing that takes a lock: becomes the copy.
[[noreturn]] void BecomeCopy(pid_t parent, int out, int err, char* const* arguments) {
    // A parent that ended before the call is no longer there to end this process.
    if (prctl(PR_SET_PDEATHSIG, SIGTERM) == 0 && getppid() == parent && dup2(out, STDOUT_FILENO) >= 0 &&
        dup2(err, STDERR_FILENO) >= 0)
        execv("/proc/self/exe", arguments);
    constexpr int CantExecute = 126;
    _exit(CantExecute);
}

pid_t IdOf(void* process) {
    return static_cast<pid_t>(reinterpret_cast<std::intptr_t>(process));
}

}  // namespace

ChildProcess::~ChildProcess() {
    if (Process != nullptr) {
        kill(IdOf(Process), SIGKILL);
        int status = 0;
        waitpid(IdOf(Process), &status, 0);
    }
    for (std::FILE* const file : {Out, Err}) {
        if (file != nullptr) std::fclose(file);
    }
}

bool ChildProcess::Start(const std::vector<std::string>& arguments, std::string& reason) {
    Out = OpenNamelessStream();
    Err = OpenNamelessStream();
    if (Out == nullptr || Err == nullptr || !ReserveMessages(Err)) {
        reason = std::strerror(errno);
        return false;
    }
    std::vector<char*> list;
    std::string name = "kelvarin-import";
    std::vector<std::string> copies = arguments;
    list.push_back(name.data());
    for (std::string& argument : copies) list.push_back(argument.data());
    list.push_back(nullptr);

    const pid_t parent = getpid();
    const pid_t process = fork();
    if (process == 0) BecomeCopy(parent, fileno(Out), fileno(Err), list.data());
    if (process < 0) {
        reason = std::strerror(errno);
        return false;
    }
    Process = reinterpret_cast<void*>(static_cast<std::intptr_t>(process));
    return true;
}

bool ChildProcess::HasEnded() {
    if (Process == nullptr) return true;
    int status = 0;
    if (waitpid(IdOf(Process), &status, WNOHANG) == 0) return false;
    constexpr int FirstSignal = 128;
    ExitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : FirstSignal + WTERMSIG(status);
    Process = nullptr;
    std::rewind(Out);
    std::rewind(Err);
    return true;
}

void ChildProcess::Interrupt() {
    if (Process != nullptr) kill(IdOf(Process), SIGINT);
}
