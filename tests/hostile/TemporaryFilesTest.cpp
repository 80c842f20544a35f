// Files for content that isn't complete: nobody's file is touched, nobody reads them, and none is left.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "host/store/SampleFile.h"
#include "kit/OtherUser.h"
#include "platform/framework/ReplacingFile.h"
#include "platform/framework/Terminal.h"
#include "platform/framework/portable/FileCalls.h"
#include "program/BytesRead.h"
#include "program/ProgramRun.h"

namespace temporary_files {
namespace {

constexpr const char* Table = "t;n\n2024-01-01 00:00:00;1\n2024-01-01 00:00:01;x\n";

mode_t ModeOf(const std::filesystem::path& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

// The one name that begins so; empty if there is none.
std::string NameFrom(const Workdir& folder, const std::string& begin) {
    const std::string names = " " + folder.Names() + " ";
    const std::size_t at = names.find(" " + begin);
    return at == std::string::npos ? "" : names.substr(at + 1, names.find(' ', at + 1) - at - 1);
}

// How a child ended that did this work and then waits for a signal.
template <class Work>
int EndOf(Work work, int signal) {
    int ready[2] = {};
    if (pipe(ready) != 0) return -1;
    const pid_t child = fork();
    if (child == 0) {
        std::signal(signal, SIG_DFL);  // a background job ignores some
        work([&] {
            if (write(ready[1], "x", 1) != 1) _exit(2);
            for (;;) pause();
        });
        _exit(1);
    }
    close(ready[1]);
    char byte = 0;
    const bool isReady = read(ready[0], &byte, 1) == 1;
    close(ready[0]);
    kill(child, isReady ? signal : SIGKILL);
    int status = -1;
    waitpid(child, &status, 0);
    return isReady && WIFSIGNALED(status) ? WTERMSIG(status) : -1;
}

TEST(HostileTemporaryFiles, LeaveFilesOfOthersAlone) {
    const ProgramRun run;
    const char* const own[] = {"data.csv.info.tmp", "data.csv.info.part", "data.h5.part",    "data.h5.tmp",
                               "rejects.csv.tmp",   "p.ini.tmp",          "data.h5.kelvarin"};
    run.Write("data.csv", Table);
    run.Write("victim", "another's");
    run.Write("steps", "type 1015 1\nleave\nselect 1020 0\nclick 1065\nclick 1009\nok\n");
    // As files, as links of both kinds to another one.
    for (int kind = 0; kind < 3; ++kind) {
        for (const char* name : own) {
            const std::filesystem::path path = run.Folder.NativePath(name);
            std::filesystem::remove(path);
            if (kind == 0) run.Write(name, "own");
            if (kind == 1) std::filesystem::create_symlink("victim", path);
            if (kind == 2) std::filesystem::create_hard_link(run.Folder.NativePath("victim"), path);
        }
        SCOPED_TRACE(kind);
        EXPECT_EQ(run({"dialog", "--script", "steps", "--profile", "p.ini", "data.csv"}).Status, 0);
        EXPECT_EQ(run({"sidecar", "--guess-time", "data.csv"}).Status, 1) << "there is one already";
        EXPECT_NE(run.Folder.Read("data.csv.info"), "");
        EXPECT_NE(run.Folder.Read("p.ini"), "");
        run({"check", "--guess-time", "--rejects", "rejects.csv", "data.csv"});
        if (kelvarin::store::HasSampleFiles()) run({"--store", "data.h5", "data.csv"});
        for (const char* name : own)
            EXPECT_EQ(run.Folder.Read(name), kind == 0 ? "own" : "another's") << name;
        EXPECT_EQ(run.Folder.Read("victim"), "another's");
        for (const char* name : {"data.csv.info", "p.ini"})
            std::filesystem::remove(run.Folder.NativePath(name));
    }
    EXPECT_EQ(NameFrom(run.Folder, "data.h5.kelvarin-"), "");
}

TEST(HostileTemporaryFiles, AreForTheUserAloneUntilTheyAreWhole) {
    const Workdir folder;
    folder.Write("old", "old");
    chmod(folder.NativePath("old").c_str(), 0664);
    for (const char* name : {"old", "new"}) {
        ReplacingFile file(folder.Path(name));
        EXPECT_EQ(ModeOf(folder.NativePath(NameFrom(folder, std::string(name) + ".kelvarin-"))), 0600u);
        file.Write("x", 1);
        file.Finish();
    }
    EXPECT_EQ(ModeOf(folder.NativePath("old")), 0664u);
    folder.Write("plain", "x");
    EXPECT_EQ(ModeOf(folder.NativePath("new")), ModeOf(folder.NativePath("plain")));
}

const Workdir* attacked = nullptr;
int attacks = 0;
FileCalls realCalls;

// Someone takes the name in the very moment before it is made, three times.
TEST(HostileTemporaryFiles, FollowNoLinkThatTakesTheirName) {
    const Workdir folder;
    folder.Write("victim", "another's");
    attacked = &folder;
    attacks = 0;
    realCalls = GetFileCalls();
    GetFileCalls().Open = [](const char* path, int flags, mode_t mode) {
        if ((flags & O_CREAT) != 0 && attacks < 3) {
            std::filesystem::create_symlink("victim", path);
            ++attacks;
        }
        return realCalls.Open(path, flags, mode);
    };
    EXPECT_NO_THROW(ReplaceFile(folder.Path("file"), "new"));
    GetFileCalls() = realCalls;
    EXPECT_EQ(attacks, 3);
    EXPECT_EQ(folder.Read("victim"), "another's");
    EXPECT_EQ(folder.Read("file"), "new");
    EXPECT_FALSE(std::filesystem::is_symlink(folder.NativePath("file")));
}

TEST(HostileTemporaryFiles, EndWithTheSignalThatEndsTheProcess) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGXFSZ, SIGQUIT, SIGPIPE}) {
        const Workdir folder;
        folder.Write("file", "old");
        const int ended = EndOf(
            [&](auto wait) {
                ReplacingFile file(folder.Path("file"));
                ReplacingFile other(folder.Path("other"));
                file.Write("new", 3);
                wait();
            },
            signal);
        EXPECT_EQ(ended, signal);
        EXPECT_EQ(folder.Names() + " " + folder.Read("file"), "file old") << "signal " << signal;
    }
}

TEST(HostileTemporaryFiles, EndWithTheSecondInterrupt) {
    const Workdir folder;
    const int ended = EndOf(
        [&](auto wait) {
            CatchInterrupt();
            const ReplacingFile file(folder.Path("file"));
            raise(SIGINT);
            if (WasInterrupted()) wait();
        },
        SIGINT);
    EXPECT_EQ(ended, SIGINT);
    EXPECT_EQ(folder.Names(), "");
}

TEST(HostileTemporaryFiles, OfAKilledProcessAreRemovedByTheNextOne) {
    const Workdir folder;
    const char* const likeThem[] = {"file.kelvarin-1-0123456789abcde", "file.kelvarin-x-0123456789abcdef",
                                    "file.kelvarin-1-0123456789abcdeg", "file.kelvarin-0123456789abcdef",
                                    "file.kelvarin-1-0123456789abcdef.csv"};
    for (const char* name : likeThem) folder.Write(name, "own");
    const ReplacingFile living(folder.Path("living"));
    EXPECT_EQ(EndOf(
                  [&](auto wait) {
                      const ReplacingFile killed(folder.Path("killed"));
                      wait();
                  },
                  SIGKILL),
              SIGKILL);
    ASSERT_NE(NameFrom(folder, "killed.kelvarin-"), "");
    const pid_t next = fork();
    if (next == 0) {
        ReplaceFile(folder.Path("killed"), "new");
        _exit(0);
    }
    int status = -1;
    waitpid(next, &status, 0);
    EXPECT_EQ(NameFrom(folder, "killed.kelvarin-"), "");
    EXPECT_NE(NameFrom(folder, "living.kelvarin-"), "") << "a living process holds it";
    EXPECT_EQ(folder.Read("killed"), "new");
    for (const char* name : likeThem) EXPECT_EQ(folder.Read(name), "own") << name;
}

// Ends the program in the middle of an import into a store.
TEST(HostileTemporaryFiles, OfTheProgramEndWithIt) {
    if (!kelvarin::store::HasSampleFiles()) GTEST_SKIP() << "no such files in this build";
    for (const int signal : {SIGTERM, SIGHUP}) {
        const ProgramRun run;
        run.Write("data.csv", SlowFile(std::size_t{16} << 20));
        run.Write("data.h5", "before");
        const std::string command =
            run.CommandLine({"import", "--set", "TimeSetting=1", "--set", "DateSetting=2", "--set",
                             "AutoFormat=0", "--store", "data.h5", "data.csv"});
        const pid_t program = fork();
        if (program == 0) {
            std::signal(signal, SIG_DFL);
            execl("/bin/sh", "sh", "-c", (command + " >/dev/null 2>&1").c_str(), static_cast<char*>(nullptr));
            _exit(127);
        }
        int status = -1;
        while (NameFrom(run.Folder, "data.h5.kelvarin-").empty() && waitpid(program, &status, WNOHANG) == 0)
            std::this_thread::yield();
        kill(program, signal);
        waitpid(program, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "it ended before the signal";
        EXPECT_EQ(WTERMSIG(status), signal);
        EXPECT_EQ(run.Folder.Names(), "data.csv data.h5");
        EXPECT_EQ(run.Folder.Read("data.h5"), "before");
    }
}

}  // namespace
}  // namespace temporary_files
