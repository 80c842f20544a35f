// Replacing a file: what the user has laid down about it stays, and what he may not write is not replaced.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include "host/check/RejectsFile.h"
#include "kit/FileFaults.h"
#include "kit/OtherUser.h"
#include "kit/TestProfile.h"
#include "platform/framework/ReplacingFile.h"
#include "program/ProgramRun.h"
#include "settings/CsvInfoFile.h"

namespace replacing_files {
namespace {

struct stat StatusOf(const Workdir& folder, const char* name) {
    struct stat status {};
    stat(folder.NativePath(name).c_str(), &status);
    return status;
}

// The cause of a failure to replace the file by "new".
int CauseOfReplacing(const std::u16string& path) {
    try {
        ReplaceFile(path, "new");
    } catch (CFileException* error) {
        const int cause = error->Cause;
        error->Delete();
        return cause;
    }
    return CFileException::none;
}

std::string Attribute(const std::filesystem::path& path, const char* name) {
    char value[256];
    const ssize_t size = getxattr(path.c_str(), name, value, sizeof value);
    return size < 0 ? "" : std::string(value, static_cast<std::size_t>(size));
}

TEST(HostileReplacing, KeepsPermissionsAttributesAndOwner) {
    const Workdir folder;
    const std::filesystem::path path = folder.NativePath("file");
    folder.Write("file", "old");
    chmod(path.c_str(), 0640);
    const bool hasAttributes = setxattr(path.c_str(), "user.comment", "of the user", 11, 0) == 0;
    // Read and write for the user 65533 besides.
    const unsigned char list[] = {2,    0,    0,    0,    1,  0, 6, 0, 0xFF, 0xFF, 0xFF, 0xFF, 2,  0, 6, 0,
                                  0xFD, 0xFF, 0,    0,    4,  0, 4, 0, 0xFF, 0xFF, 0xFF, 0xFF, 16, 0, 6, 0,
                                  0xFF, 0xFF, 0xFF, 0xFF, 32, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF};
    const bool hasLists = setxattr(path.c_str(), "system.posix_acl_access", list, sizeof list, 0) == 0;
    constexpr uid_t Other = 65534;
    ASSERT_TRUE(geteuid() != 0 || chown(path.c_str(), Other, Other) == 0);
    const struct stat before = StatusOf(folder, "file");
    const std::string listBefore = Attribute(path, "system.posix_acl_access");
    EXPECT_EQ(CauseOfReplacing(folder.Path("file")), CFileException::none);
    const struct stat after = StatusOf(folder, "file");
    EXPECT_EQ(folder.Read("file"), "new");
    EXPECT_EQ(folder.Names(), "file");
    EXPECT_NE(after.st_ino, before.st_ino) << "it was written in place";
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(Attribute(path, "user.comment"), hasAttributes ? "of the user" : "");
    EXPECT_EQ(Attribute(path, "system.posix_acl_access"), listBefore);
    EXPECT_EQ(!listBefore.empty(), hasLists);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
}

TEST(HostileReplacing, FollowsLinks) {
    const Workdir folder;
    std::filesystem::create_directory(folder.NativePath("far"));
    const struct {
        const char* Link;
        const char* To;
        const char* Target;  // null: there is none
    } cases[] = {
        {"near", "file", "file"},       {"there", "far/file", "far/file"},  {"far/back", "../file", "file"},
        {"twice", "far/back", "file"},  {"dangling", "far/new", "far/new"}, {"loop", "loop", nullptr},
        {"lost", "none/file", nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Link);
        for (const char* file : {"file", "far/file"}) folder.Write(file, "old");
        std::filesystem::create_symlink(c.To, folder.NativePath(c.Link));
        const int cause = CauseOfReplacing(folder.Path(c.Link));
        EXPECT_EQ(cause == CFileException::none, c.Target != nullptr);
        EXPECT_EQ(std::filesystem::read_symlink(folder.NativePath(c.Link)), c.To) << "the link itself stays";
        EXPECT_TRUE(c.Target == nullptr || folder.Read(c.Target) == "new");
    }
    EXPECT_EQ(folder.Names(), "dangling far file loop lost near there twice");
}

TEST(HostileReplacing, LeavesWhatIsNoFile) {
    const Workdir folder;
    std::filesystem::create_directory(folder.NativePath("folder"));
    mkfifo(folder.NativePath("pipe").c_str(), 0600);
    EXPECT_EQ(CauseOfReplacing(folder.Path("folder")), CFileException::accessDenied);
    EXPECT_EQ(CauseOfReplacing(folder.Path("pipe")), CFileException::badSeek);
    EXPECT_EQ(folder.Names(), "folder pipe");
}

TEST(HostileReplacing, LeavesWhatIsWriteProtectedAndSaysSo) {
    const Workdir folder;
    for (const char* name : {"data.csv.info", "profile.ini", "rejects.csv"}) {
        folder.Write(name, "old");
        chmod(folder.NativePath(name).c_str(), 0444);
    }
    folder.Write("data.csv", "a\n1\n");
    const int wrong = AsOrdinaryUser(folder, [&] {
        std::string reason;
        const bool isWritten = CCsvInfoFile(folder.Path("data.csv")).Replace(reason);
        const auto profile = OpenProfileFile(folder.Path("profile.ini"));
        const bool isStored = profile->WriteInt(u"CsvImport", u"FirstLine", 3);
        const std::string rejects = kelvarin::check::WriteRejects(
            folder.Path("data.csv"), folder.Path("rejects.csv"), 1, kelvarin::check::LineSet());
        return (isWritten || reason != "Permission denied" ? 1 : 0) +
               (isStored || profile->WriteFailure() != u"Permission denied" ? 2 : 0) +
               (rejects != "Permission denied" ? 4 : 0);
    });
    EXPECT_EQ(wrong, 0) << "1: the sidecar, 2: the profile, 4: the rejected rows";
    for (const char* name : {"data.csv.info", "profile.ini", "rejects.csv"})
        EXPECT_EQ(folder.Read(name), "old") << name;
}

TEST(HostileReplacing, WritesInPlaceWhereNothingCanBeMade) {
    const Workdir folder;
    std::filesystem::create_directory(folder.NativePath("closed"));
    for (const char* name : {"closed/data.csv.info", "closed/profile.ini"})
        folder.Write(name, "[A]\nKey=1\n");
    const ino_t before = StatusOf(folder, "closed/data.csv.info").st_ino;
    chmod(folder.NativePath("closed").c_str(), 0555);
    const int wrong = AsOrdinaryUser(folder, [&] {
        std::string reason;
        const bool isWritten = CCsvInfoFile(folder.Path("closed/data.csv")).Replace(reason);
        const auto profile = OpenProfileFile(folder.Path("closed/profile.ini"));
        const bool isStored = profile->WriteInt(u"CsvImport", u"FirstLine", 3);
        const bool isMade = CauseOfReplacing(folder.Path("closed/new")) != CFileException::accessDenied;
        return (isWritten ? 0 : 1) + (isStored ? 0 : 2) + (isMade ? 4 : 0);
    });
    chmod(folder.NativePath("closed").c_str(), 0755);
    EXPECT_EQ(wrong, 0) << "1: the sidecar, 2: the profile, 4: a file that wasn't there";
    EXPECT_EQ(StatusOf(folder, "closed/data.csv.info").st_ino, before);
    EXPECT_NE(folder.Read("closed/data.csv.info").find("<CSV-INFO"), std::string::npos);
    EXPECT_EQ(folder.Read("closed/profile.ini"), "[A]\nKey=1\n[CsvImport]\nFirstLine=3\n");
}

TEST(HostileReplacing, WritesInPlaceWhatBelongsToAnother) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can make such a file";
    const Workdir folder;
    folder.Write("file", "old, and longer");
    const ino_t before = StatusOf(folder, "file").st_ino;
    const int cause = AsOrdinaryUser(folder, [] { return 0; });
    ASSERT_EQ(cause, 0);
    ASSERT_EQ(chown(folder.NativePath("file").c_str(), 0, 0), 0);
    chmod(folder.NativePath("file").c_str(), 0666);
    const pid_t child = fork();
    if (child == 0) {
        constexpr uid_t Nobody = 65534;
        const bool isDropped = setgroups(0, nullptr) == 0 && setgid(Nobody) == 0 && setuid(Nobody) == 0;
        _exit(isDropped ? CauseOfReplacing(folder.Path("file")) : 255);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(folder.Read("file"), "new");
    EXPECT_EQ(folder.Names(), "file");
    EXPECT_EQ(StatusOf(folder, "file").st_ino, before);
    EXPECT_EQ(StatusOf(folder, "file").st_uid, 0u);
}

const Workdir* synced = nullptr;
bool isFolderSynced = false;
FileCalls realCalls;

TEST(HostileReplacing, MakesTheNewNameLast) {
    const Workdir folder;
    synced = &folder;
    realCalls = GetFileCalls();
    GetFileCalls().Sync = [](int descriptor) {
        struct stat status {};
        fstat(descriptor, &status);
        if (S_ISDIR(status.st_mode) && synced->Read("file") == "new") isFolderSynced = true;
        return 0;
    };
    ReplaceFile(folder.Path("file"), "new");
    GetFileCalls() = realCalls;
    EXPECT_TRUE(isFolderSynced) << "after the rename";
}

TEST(HostileReplacing, OfTheProfileHappensOnceForAnOk) {
    const Workdir folder;
    const auto previous = GetProcessProfile();
    CCsvImportSettings settings;
    SetProcessProfile(OpenProfileFile(folder.Path("profile.ini")));
    {
        FileFaults counted;
        counted.Armed = true;
        EXPECT_TRUE(settings.SaveAtOk(true));
        EXPECT_EQ(counted.Calls[CallRename], 1);
    }
    SetProcessProfile(previous);
    const std::string text = folder.Read("profile.ini");
    EXPECT_EQ(std::count(text.begin(), text.end(), '='), 18) << text;
}

TEST(HostileReplacing, KeepsTheOldRejectedRowsUntilTheNewOnesAreWhole) {
    const Workdir folder;
    const std::u16string from = folder.Write("data.csv", "a\n" + std::string(1 << 20, '1') + "\n2\n");
    const std::u16string to = folder.Write("rejects.csv", "old");
    kelvarin::check::LineSet lines;
    for (const std::uint64_t line : {2u, 3u}) lines.Add(line);
    for (int number = 1; number <= 2; ++number) {
        FileFaults faults;
        faults.Failing = CallWrite;
        faults.FailsAt = number;
        faults.Error = ENOSPC;
        faults.Armed = true;
        EXPECT_EQ(kelvarin::check::WriteRejects(from, to, 2, lines), "No space left on device");
        EXPECT_EQ(folder.Read("rejects.csv"), "old");
        EXPECT_EQ(folder.Names(), "data.csv rejects.csv");
    }
    EXPECT_EQ(kelvarin::check::WriteRejects(from, to, 2, lines), "");
    EXPECT_EQ(folder.Read("rejects.csv"), folder.Read("data.csv"));
}

}  // namespace
}  // namespace replacing_files
