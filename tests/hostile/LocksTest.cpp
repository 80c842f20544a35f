// Files that another program holds: it is named as the cause, and nobody waits for ever.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <iostream>
#include <sstream>

#include "cli/CommandLine.h"
#include "kit/FileFaults.h"
#include "kit/HostModule.h"
#include "kit/TestProfile.h"
#include "platform/framework/ProfileStore.h"
#include "program/ProgramRun.h"

namespace locks {
namespace {

// Holds a lock for as long as it lives.
class Holder {
  public:
    explicit Holder(const std::filesystem::path& path)
        : Descriptor(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        flock(Descriptor, LOCK_EX);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder() { close(Descriptor); }

  private:
    const int Descriptor;
};

int pauses = 0;

TEST(HostileLocks, OfAProfileAreWaitedForWithAnEnd) {
    const Workdir folder;
    const std::u16string path = folder.Write("profile.ini", "[A]\nKey=1\n");
    const auto store = OpenProfileFile(path);
    {
        const Holder holder(folder.NativePath("profile.ini.lock"));
        const FileFaults quick;
        pauses = 0;
        GetFileCalls().Pause = [] { ++pauses; };
        EXPECT_FALSE(store->WriteInt(u"A", u"Key", 2));
    }
    EXPECT_GT(pauses, 0) << "it is waited for";
    EXPECT_EQ(store->WriteFailure(), u"in use by another program");
    EXPECT_EQ(folder.Read("profile.ini"), "[A]\nKey=1\n");
    EXPECT_TRUE(store->WriteInt(u"A", u"Key", 2)) << "it was let go";
}

TEST(HostileLocks, OfALinkThatAnotherUserLaidAreNotTaken) {
    const Workdir folder;
    std::filesystem::create_symlink("elsewhere", folder.NativePath("profile.ini.lock"));
    EXPECT_FALSE(OpenProfileFile(folder.Path("profile.ini"))->WriteInt(u"A", u"Key", 2));
    EXPECT_EQ(folder.Names(), "profile.ini.lock") << "no file is made through it";
}

// The other reader may be gone when the command looks for the cause.
TEST(HostileLocks, OfASourceAreTheReasonThatEachCommandNames) {
    using namespace kelvarin::cli;
    for (const char* command : {"import", "analyze", "explain", "check"}) {
        const Workdir folder;
        folder.Write("data.csv", "t;n\n2024-01-01 00:00:00;1\n2024-01-01 00:00:01;2\n");
        const TestProfile profile;
        CommandLine line;
        AddImportCommand(line);
        AddAnalyzeCommand(line);
        AddExplainCommand(line);
        AddCheckCommand(line);
        ASSERT_EQ(line.Parse({command, folder.NativePath("data.csv").string()}), std::nullopt);
        HostModule();
        std::ostringstream out, errors;
        std::streambuf* const outBefore = std::cout.rdbuf(out.rdbuf());
        std::streambuf* const errorsBefore = std::cerr.rdbuf(errors.rdbuf());
        FileFaults faults;
        faults.Failing = CallLock;
        faults.Error = EWOULDBLOCK;
        faults.Armed = true;
        const int status = line.Run(HostModule());
        std::cout.rdbuf(outBefore);
        std::cerr.rdbuf(errorsBefore);
        EXPECT_EQ(status, 1) << command;
        EXPECT_TRUE(errors.str().ends_with("data.csv: in use by another program\n"))
            << command << ": " << errors.str();
    }
}

}  // namespace
}  // namespace locks
