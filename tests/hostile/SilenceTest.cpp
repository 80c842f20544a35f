// What could not be read or written: said with the system's reason, and counted in the exit status.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#include "host/SourceFiles.h"
#include "kit/Shell.h"
#include "program/ProgramRun.h"

namespace {

// Links that lead to themselves can be read by nobody, by the system's administrator neither.
constexpr const char* LoopReason = "Too many levels of symbolic links";

class HostileSilence : public testing::Test {
  protected:
    HostileSilence() { Run.Write("a.csv", DatedRows); }

    void MakeLoop(const std::string& name) const {
        std::filesystem::create_symlink(name, Run.Folder.NativePath(name));
    }

    const ProgramRun Run;
};

TEST_F(HostileSilence, AFileBelowAFolderThatCantBeReadIsNamed) {
    std::filesystem::create_directories(Run.Folder.NativePath("d/e"));
    Run.Write("d/e/good.csv", DatedRows);
    std::filesystem::create_symlink("bad.csv", Run.Folder.NativePath("d/e/bad.csv"));
    for (const char* const command : {"analyze --recursive d", "analyze --recursive d --jobs 2"}) {
        const ProgramResult result = Run.Command(command);
        EXPECT_EQ(result.Status, 1);
        EXPECT_EQ(result.Err, "kelvarin-import: d/e/bad.csv: " + std::string(LoopReason) +
                                  "\nkelvarin-import: 2 files: 1 analyzed, 1 failed: d/e/bad.csv\n");
    }
}

// Makes folders of one name in one another, with a file in the last.
void MakeDeep(const std::filesystem::path& top, const std::string& name, int depth) {
    int folder = open(top.c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < depth; ++i) {
        ASSERT_EQ(mkdirat(folder, name.c_str(), 0700), 0);
        const int next = openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY);
        close(folder);
        folder = next;
    }
    const int file = openat(folder, "deep.csv", O_WRONLY | O_CREAT, 0600);
    ASSERT_GT(write(file, DatedRows, std::strlen(DatedRows)), 0);
    close(file);
    close(folder);
}

TEST_F(HostileSilence, FoldersMayBeDeeperThanTheDescriptorsReach) {
    std::filesystem::create_directory(Run.Folder.NativePath("top"));
    MakeDeep(Run.Folder.NativePath("top"), "d", 200);
    const ShellResult result =
        RunShell("ulimit -n 32; " + Run.CommandLine({"analyze", "--recursive", "top"}) + " 2>&1");
    EXPECT_EQ(result.Status, 0) << result.Out;
    EXPECT_NE(result.Out.find("/deep.csv\n"), std::string::npos) << result.Out;
}

TEST_F(HostileSilence, FoldersDeeperThanAPathReachesAreNamed) {
    std::filesystem::create_directory(Run.Folder.NativePath("top"));
    Run.Write("top/b.csv", DatedRows);
    MakeDeep(Run.Folder.NativePath("top"), std::string(200, 'd'), 25);
    const ProgramResult result = Run({"analyze", "--recursive", "top"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_NE(result.Err.find(": File name too long\n"), std::string::npos) << result.Err;
    EXPECT_TRUE(result.Out.starts_with("top/b.csv\n")) << result.Out;
    RunShell("rm -rf '" + Run.Folder.NativePath("top").string() + "'");
}

TEST_F(HostileSilence, AFolderOfOthersIsNamed) {
    const std::filesystem::path closed = Run.Folder.NativePath("d/closed");
    std::filesystem::create_directories(closed);
    Run.Write("d/b.csv", DatedRows);
    chmod(closed.c_str(), 0);
    constexpr uid_t Nobody = 65534;
    const bool isAdministrator = geteuid() == 0;
    if (isAdministrator) {
        ASSERT_EQ(seteuid(Nobody), 0);
    }
    const kelvarin::FileList list = kelvarin::ListFiles({Run.Folder.NativePath("d").string()}, true);
    if (isAdministrator) {
        ASSERT_EQ(seteuid(0), 0);
    }
    chmod(closed.c_str(), 0700);
    EXPECT_EQ(list.Files.size(), 1u);
    ASSERT_EQ(list.Unread.size(), 1u);
    EXPECT_EQ(list.Unread[0].first, closed.string());
    EXPECT_EQ(list.Unread[0].second, "Permission denied");
}

TEST_F(HostileSilence, ASidecarThatCantBeReadIsNamed) {
    MakeLoop("a.csv.info");
    const std::string complaint = "kelvarin-import: a.csv.info: " + std::string(LoopReason) + "\n";
    for (const char* const command : {"import", "analyze", "explain", "check"}) {
        const ProgramResult result = Run({command, "a.csv"});
        EXPECT_EQ(result.Status, 1) << command;
        EXPECT_TRUE(result.Err.starts_with(complaint)) << command << ": " << result.Err;
        EXPECT_TRUE(result.Out.starts_with("a.csv\n")) << "it is read without the sidecar: " << result.Out;
    }
}

struct ProfileCase {
    const char* Name;
    const char* Reason;
};

TEST_F(HostileSilence, AProfileThatCantBeReadEndsTheRun) {
    std::filesystem::create_directory(Run.Folder.NativePath("folder"));
    MakeLoop("loop.ini");
    const ProfileCase cases[] = {
        {"folder", "Is a directory"}, {"a.csv/p.ini", "Not a directory"}, {"loop.ini", LoopReason}};
    for (const ProfileCase& c : cases) {
        for (const char* const command : {"import", "analyze", "explain", "check", "sidecar"}) {
            SCOPED_TRACE(std::string(command) + " --profile " + c.Name);
            const ProgramResult result = Run({command, "--profile", c.Name, "a.csv"});
            EXPECT_EQ(result.Status, 1);
            EXPECT_EQ(result.Err,
                      "kelvarin-import: no profile: " + std::string(c.Name) + ": " + c.Reason + "\n");
            EXPECT_EQ(result.Out, "");
        }
    }
    EXPECT_EQ(Run.Folder.Names(), "a.csv folder loop.ini");
}

TEST_F(HostileSilence, AProfileThatIsMissingIsNamedAndTheWorkGoesOn) {
    for (const std::string command : {"import", "analyze", "explain", "check"}) {
        const std::string line = command + " --set TimestampFormat=JJJJ-MM-TT a.csv";
        SCOPED_TRACE(line);
        const ProgramResult result = Run.Command(line + " --profile missing.ini");
        EXPECT_EQ(result.Status, 1);
        EXPECT_EQ(result.Err, "kelvarin-import: no profile: missing.ini: No such file or directory\n");
        EXPECT_EQ(result.Out, Run.Command(line).Out);
    }
    EXPECT_EQ(Run.Folder.Names(), "a.csv");
}

TEST_F(HostileSilence, TheUsersOwnProfileThatCantBeReadIsNamed) {
    std::filesystem::create_directories(Run.Folder.NativePath("config/Brenholt/kelvarin.ini"));
    const ProgramResult result = Run({"analyze", "a.csv"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_NE(result.Err.find("/Brenholt/kelvarin.ini: Is a directory\n"), std::string::npos) << result.Err;
    EXPECT_TRUE(result.Out.starts_with("a.csv\n"));
}

// A name so long that with any ending it is one too many for the file system.
std::string LongName(const std::string& ending) {
    constexpr std::size_t Longest = 255;
    return std::string(Longest - ending.size(), 'n') + ending;
}

TEST_F(HostileSilence, WhatADialogsOkCantStoreIsNamed) {
    const std::string file = LongName(".csv");
    Run.Write(file, DatedRows);
    Run.Write("script.txt", "ok\n");
    const ProgramResult sidecar = Run({"dialog", "--set", "TimestampFormat=JJJJ-MM-TT", "--set",
                                       "SaveSidecarFile=1", "--script", "script.txt", file});
    EXPECT_EQ(sidecar.Status, 1) << sidecar.Out;
    EXPECT_NE(sidecar.Out.find("\"result\":1"), std::string::npos) << sidecar.Out;
    EXPECT_EQ(sidecar.Err, "kelvarin-import: " + file + ".info: File name too long\n");
    const ProgramResult profile = Run({"dialog", "--set", "TimestampFormat=JJJJ-MM-TT", "--profile",
                                       LongName(".ini"), "--script", "script.txt", "a.csv"});
    EXPECT_EQ(profile.Status, 1) << profile.Out;
    EXPECT_NE(profile.Out.find("\"result\":1"), std::string::npos) << profile.Out;
    EXPECT_NE(profile.Err.find("the profile can't be written: "), std::string::npos) << profile.Err;
}

TEST_F(HostileSilence, AGuessThatCantBeSavedIsNamed) {
    const std::string file = LongName(".csv");
    Run.Write(file, DatedRows);
    for (const char* const command : {"import", "analyze"}) {
        for (const char* const format : {"--json", "--guess-time"}) {
            const ProgramResult result = Run({command, format, "--guess-time", "--save", file});
            EXPECT_EQ(result.Status, 1) << command << " " << format;
            EXPECT_EQ(result.Err, "kelvarin-import: " + file + ".info: File name too long\n");
        }
    }
    MakeLoop("a.csv.info");
    EXPECT_EQ(Run({"analyze", "--guess-time", "--save", "a.csv"}).Status, 1);
    EXPECT_TRUE(std::filesystem::is_symlink(Run.Folder.NativePath("a.csv.info"))) << "what is there stays";
}

}  // namespace
