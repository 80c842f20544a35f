// The processes of --jobs: a full disk for what they write, Ctrl-C, and the end of the one that started them.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>

#include "kit/Shell.h"
#include "platform/framework/Terminal.h"
#include "program/BytesRead.h"
#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

const std::vector<std::string> Counted = {"--set", "TimeSetting=1", "--set", "DateSetting=2"};

std::string NameOf(int number) {
    return "f" + std::to_string(100 + number) + ".csv";
}

// The names of the files whose reports are whole; an empty one for half a report.
std::vector<std::string> FilesIn(const std::string& reports) {
    std::vector<std::string> names;
    for (std::size_t begin = 0, end = 0; begin < reports.size(); begin = end + 1) {
        end = std::min(reports.find('\n', begin), reports.size());
        const Json report = Json::parse(reports.substr(begin, end - begin), nullptr, false);
        names.push_back(report.is_discarded() ? "" : report.value("file", std::string()));
    }
    return names;
}

// Files of which every third has a report of some hundred kilobytes.
class HostileProcesses : public testing::Test {
  protected:
    static constexpr int Files = 15;

    HostileProcesses() {
        std::string large = "n;m\n";
        for (int i = 0; i < 10'000; ++i) large += std::to_string(i) + ";1\n";
        for (int i = 0; i < Files; ++i) Run.Write(NameOf(i), i % 3 == 0 ? large : "n;m\n1;2\n");
        Arguments.insert(Arguments.end(), Counted.begin(), Counted.end());
        for (int i = 0; i < Files; ++i) Arguments.push_back(NameOf(i));
    }

    const ProgramRun Run;
    std::vector<std::string> Arguments = {"import", "--json", "--samples", "all", "--jobs", "3"};
};

TEST_F(HostileProcesses, OnAFullDiskEveryFileIsReportedWholeOrNamed) {
    // No file may be larger than that; what is beyond fails as on a full disk.
    const std::string errors = Run.Folder.NativePath("err.txt").string();
    const ShellResult result =
        RunShell("trap '' XFSZ; ulimit -f 100; " + Run.CommandLine(Arguments) + " 2>'" + errors + "'");
    EXPECT_EQ(result.Status, 1);
    const std::string messages = Run.Folder.Read("err.txt");
    const std::vector<std::string> reported = FilesIn(result.Out);
    EXPECT_EQ(reported.size(), 10u);
    for (int i = 0; i < Files; ++i) {
        const bool isReported = std::count(reported.begin(), reported.end(), NameOf(i)) == 1;
        EXPECT_EQ(isReported, i % 3 != 0) << NameOf(i);
        const bool isNamed = messages.find("kelvarin-import: " + NameOf(i) + ": ") != std::string::npos;
        EXPECT_EQ(isNamed, !isReported) << NameOf(i) << "\n" << messages;
    }
    EXPECT_NE(messages.find("15 files: 10 imported, 5 failed: "), std::string::npos) << messages;
    EXPECT_NE(messages.find("standard output can't be written: "), std::string::npos) << messages;
}

TEST_F(HostileProcesses, WithoutATemporaryFolderEveryFileIsNamed) {
    const ShellResult result =
        RunShell("export TMPDIR=/nonexistent; " + Run.CommandLine(Arguments) + " 2>&1");
    EXPECT_EQ(result.Status, 1);
    for (int i = 0; i < Files; ++i)
        EXPECT_NE(result.Out.find(NameOf(i) + ": no process could be started: "), std::string::npos)
            << NameOf(i);
}

// What becomes of a process that gets Ctrl-C twice.
int StatusAfterTwoInterrupts(bool staysCaught) {
    const pid_t process = fork();
    if (process == 0) {
        CatchInterrupt(staysCaught);
        raise(SIGINT);
        raise(SIGINT);
        _exit(WasInterrupted() ? 0 : 1);
    }
    int status = 0;
    waitpid(process, &status, 0);
    return StatusOf(status);
}

TEST(HostileInterrupt, OfTheTerminalAndOfTheProgramIsOneForAProcessOfJobs) {
    EXPECT_EQ(StatusAfterTwoInterrupts(true), 0);
    EXPECT_EQ(StatusAfterTwoInterrupts(false), 1000 + SIGINT) << "the second one ends the program itself";
}

// A run over two files that take long, in a group of its own as the terminal starts it.
class HostileGroup : public testing::Test {
  protected:
    HostileGroup() {
        for (const char* const name : Names) Run.Write(name, SlowFile(std::size_t{16} << 20));
    }

    void Start() {
        std::vector<std::string> arguments = {"import", "--jobs", "2", "--set", "AutoFormat=0"};
        arguments.insert(arguments.end(), Counted.begin(), Counted.end());
        arguments.insert(arguments.end(), std::begin(Names), std::end(Names));
        const std::string output = Run.Folder.NativePath("out.txt").string();
        const std::string command = Run.CommandLine(arguments) + " >" + output + " 2>&1";
        Parent = fork();
        if (Parent == 0) {
            setpgid(0, 0);
            execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char*>(nullptr));
            _exit(127);
        }
    }

    // Waits until both files are being read, and returns the processes that do so. They are stopped.
    std::vector<pid_t> StopReaders() const {
        std::vector<pid_t> readers;
        for (const char* const name : Names) {
            const auto path = std::filesystem::canonical(Run.Folder.NativePath(name));
            pid_t reader = 0;
            while (reader == 0 && waitpid(Parent, nullptr, WNOHANG) == 0) {
                const std::string id = std::to_string(Parent);
                std::ifstream children("/proc/" + id + "/task/" + id + "/children");
                for (pid_t child = 0; children >> child;) {
                    if (BytesRead(child, path) > 2'000'000) reader = child;
                }
                usleep(1000);
            }
            if (reader != 0) kill(reader, SIGSTOP);
            readers.push_back(reader);
        }
        return readers;
    }

    static constexpr const char* Names[] = {"one.csv", "two.csv"};
    const ProgramRun Run;
    pid_t Parent = 0;
};

TEST_F(HostileGroup, OneCtrlCIsOneInterruptForEachProcess) {
    Start();
    for (const pid_t reader : StopReaders()) {
        ASSERT_NE(reader, 0) << "the run was over too soon";
        kill(reader, SIGCONT);
    }
    kill(-Parent, SIGINT);
    int status = 0;
    waitpid(Parent, &status, 0);
    EXPECT_EQ(StatusOf(status), 130);
    const std::string report = Run.Folder.Read("out.txt");
    for (const char* const name : Names)
        EXPECT_NE(report.find(std::string(name) + "\n"), std::string::npos) << "no report of it: " << report;
    std::size_t interrupted = 0;
    for (std::size_t at = report.find("ended by Ctrl-C"); at != report.npos;
         at = report.find("ended by Ctrl-C", at + 1))
        ++interrupted;
    EXPECT_EQ(interrupted, 2u) << report;
}

TEST_F(HostileGroup, ProcessesEndWithTheOneThatStartedThem) {
    // What loses its parent becomes a child of this test, which so sees its end.
    ASSERT_EQ(prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
    Start();
    const std::vector<pid_t> readers = StopReaders();
    for (const pid_t reader : readers) ASSERT_NE(reader, 0) << "the run was over too soon";
    kill(Parent, SIGKILL);
    int status = 0;
    waitpid(Parent, &status, 0);
    for (const pid_t reader : readers) {
        kill(reader, SIGCONT);
        ASSERT_EQ(waitpid(reader, &status, 0), reader);
        EXPECT_TRUE(WIFSIGNALED(status)) << "it ended by itself with " << StatusOf(status);
    }
    prctl(PR_SET_CHILD_SUBREAPER, 0);
}

}  // namespace
