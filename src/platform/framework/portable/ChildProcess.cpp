#include "platform/framework/ChildProcess.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

#include "platform/framework/portable/TemporaryFile.h"

extern char** environ;

namespace {

// std::tmpfile knows nothing of TMPDIR, and what it opens goes on to the copies started later.
std::FILE* OpenNamelessStream() {
    const int descriptor = OpenNamelessFile();
    return descriptor < 0 ? nullptr : fdopen(descriptor, "w+b");
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
    if (Out == nullptr || Err == nullptr) {
        reason = std::strerror(errno);
        return false;
    }
    std::vector<char*> list;
    std::string name = "kelvarin-import";
    std::vector<std::string> copies = arguments;
    list.push_back(name.data());
    for (std::string& argument : copies) list.push_back(argument.data());
    list.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fileno(Out), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, fileno(Err), STDERR_FILENO);
    pid_t process = 0;
    const int error = posix_spawn(&process, "/proc/self/exe", &actions, nullptr, list.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        reason = std::strerror(error);
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
