// Ctrl-C in the middle of a run.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "program/ProgramRun.h"

namespace {

// True once the process holds the file open a second time: the first is the analysis, which ends soon.
bool HoldsOpen(pid_t process, const std::filesystem::path& file) {
    std::error_code ignored;
    const std::filesystem::path folder = "/proc/" + std::to_string(process) + "/fd";
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
        if (std::filesystem::read_symlink(entry.path(), ignored) == file) return true;
    }
    return false;
}

TEST(Interrupt, EndsTheRunAndReportsWhatWasStored) {
    const ProgramRun run;
    // Blank lines cost a run time and nothing else: the samples stand before them, so the signal can't come
    // too early to find them, nor too late as long as some of the blank lines are left.
    std::string file = "n\n";
    for (int i = 0; i < 100; ++i) file += "5\n";
    file.append(48u << 20, '\n');
    run.Write("long.csv", file);
    const std::string command = run.CommandLine({"--set", "TimeSetting=1", "--set", "DateSetting=2", "--set",
                                                 "AutoFormat=0", "long.csv", "next.csv"});
    const std::string output = run.Folder.NativePath("out.txt").string();

    const pid_t process = fork();
    ASSERT_GE(process, 0);
    if (process == 0) {
        execl("/bin/sh", "sh", "-c", (command + " >" + output + " 2>&1").c_str(),
              static_cast<char*>(nullptr));
        _exit(127);
    }
    const auto path = std::filesystem::canonical(run.Folder.NativePath("long.csv"));
    int status = 0;
    while (!HoldsOpen(process, path) && waitpid(process, &status, WNOHANG) == 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));  // past the analysis
    kill(process, SIGINT);
    waitpid(process, &status, 0);
    ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
    EXPECT_EQ(WEXITSTATUS(status), 130);
    const std::string report = run.Folder.Read("out.txt");
    EXPECT_NE(report.find("ended by Ctrl-C"), std::string::npos) << report;
    EXPECT_NE(report.find("n  integer  100  samples"), std::string::npos) << report;
    EXPECT_EQ(report.find("next.csv"), std::string::npos) << "the files behind it must not be begun";
}

}  // namespace
