// Shell commands around the program: limits, redirections, processes that end.
#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <string>

// A small table with dates, and nothing wrong about it.
inline constexpr const char* DatedRows = "t;v\n2024-02-01;1\n2024-02-02;2\n";

struct ShellResult {
    int Status = -1;  // 1000 and the number of the signal that ended it
    std::string Out;
};

inline int StatusOf(int waited) {
    return WIFEXITED(waited) ? WEXITSTATUS(waited) : 1000 + WTERMSIG(waited);
}

// Runs a command of the shell and takes what it prints.
inline ShellResult RunShell(const std::string& command) {
    ShellResult result;
    FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return result;
    char block[4096];
    while (const std::size_t count = fread(block, 1, sizeof block, pipe)) result.Out.append(block, count);
    result.Status = StatusOf(pclose(pipe));
    return result;
}
