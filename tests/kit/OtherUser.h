// Work as a user whom the system can refuse something.
#pragma once

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include "kit/Workdir.h"

// Does the work in a process of its own and returns its result, 0 to 255; -1 if it ended otherwise. Where the
// tests run as root, to whom nothing is refused, that process has the user and the group 65534, and the
// folder and its files are given to it before, links aside.
template <class Work>
int AsOrdinaryUser(const Workdir& folder, Work work) {
    constexpr unsigned Nobody = 65534;
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.NativePath(""))) {
            if (lchown(entry.path().c_str(), Nobody, Nobody) != 0) return -1;
        }
        if (chown(folder.NativePath("").c_str(), Nobody, Nobody) != 0) return -1;
    }
    const pid_t child = fork();
    if (child == 0) {
        const bool isDropped =
            !isRoot || (setgroups(0, nullptr) == 0 && setgid(Nobody) == 0 && setuid(Nobody) == 0);
        _exit(isDropped ? work() : 255);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
