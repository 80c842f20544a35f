// Ctrl-C in the middle of a run.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

#include "program/BytesRead.h"
#include "program/ProgramRun.h"

namespace {

struct Ended {
    int Status;
    std::string Report;
};

// The import of a file of 100 samples and of so many bytes of blank lines, interrupted while it reads these.
// The analysis reads less than a million bytes, and the samples were stored long before the second million.
Ended Interrupted(std::size_t blank_lines) {
    const ProgramRun run;
    std::string file = "n\n";
    for (int i = 0; i < 100; ++i) file += "5\n";
    file.append(blank_lines, '\n');
    run.Write("long.csv", file);
    // Several threads read at places that the system doesn't tell.
    const std::string command =
        run.CommandLine({"--threads", "1", "--set", "TimeSetting=1", "--set", "DateSetting=2", "--set",
                         "AutoFormat=0", "long.csv", "next.csv"});
    const std::string output = run.Folder.NativePath("out.txt").string();
    const pid_t process = fork();
    if (process == 0) {
        execl("/bin/sh", "sh", "-c", (command + " >" + output + " 2>&1").c_str(),
              static_cast<char*>(nullptr));
        _exit(127);
    }
    const auto path = std::filesystem::canonical(run.Folder.NativePath("long.csv"));
    int status = 0;
    bool ended = false;
    while (!ended && BytesRead(process, path) < 2'000'000) {
        ended = waitpid(process, &status, WNOHANG) != 0;
        std::this_thread::yield();
    }
    if (!ended) {
        kill(process, SIGINT);
        waitpid(process, &status, 0);
    }
    return {status, run.Folder.Read("out.txt")};
}

TEST(Interrupt, EndsTheRunAndReportsWhatWasStored) {
    Ended ended{};
    // On a busy machine the whole file may be read before this process gets to run again: then a longer one.
    for (std::size_t blank_lines = 48u << 20; blank_lines <= 768u << 20; blank_lines *= 2) {
        ended = Interrupted(blank_lines);
        if (!WIFEXITED(ended.Status) || WEXITSTATUS(ended.Status) != 1) break;
    }
    ASSERT_TRUE(WIFEXITED(ended.Status)) << "ended by signal " << WTERMSIG(ended.Status);
    EXPECT_EQ(WEXITSTATUS(ended.Status), 130) << ended.Report;
    EXPECT_NE(ended.Report.find("ended by Ctrl-C"), std::string::npos) << ended.Report;
    EXPECT_NE(ended.Report.find("n  integer  100  samples"), std::string::npos) << ended.Report;
    EXPECT_EQ(ended.Report.find("next.csv"), std::string::npos) << "the files after it must not be begun";
}

}  // namespace
