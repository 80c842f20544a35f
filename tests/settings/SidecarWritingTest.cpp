// Whatever happens while a sidecar is written, the old one or the new one stands.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "kit/Workdir.h"
#include "settings/CsvInfoFile.h"

namespace {

// A sidecar of some length, made of one letter.
void WriteOne(const std::u16string& source, char16_t letter) {
    CCsvInfoFile file(source);
    file.TimestampFormat.assign(100'000, letter);
    file.Write();
}

// The letter of a whole sidecar; anything else fails.
char LetterOf(const std::u16string& source) {
    CCsvInfoFile file(source);
    EXPECT_EQ(file.Read(), 0) << file.GetDiagnosis().Reason;
    EXPECT_EQ(file.TimestampFormat.size(), 100'000u);
    if (file.TimestampFormat.empty()) return '?';
    EXPECT_EQ(file.TimestampFormat.find_first_not_of(file.TimestampFormat[0]), std::u16string::npos);
    return static_cast<char>(file.TimestampFormat[0]);
}

TEST(SidecarWriting, SurvivesAKilledWriter) {
    const Workdir folder;
    const std::u16string source = folder.Path("a.csv");
    WriteOne(source, u'a');
    for (int round = 0; round < 20; ++round) {
        const pid_t writer = fork();
        ASSERT_GE(writer, 0);
        if (writer == 0) {
            for (;;) {
                WriteOne(source, u'a');
                WriteOne(source, u'b');
            }
        }
        usleep(static_cast<useconds_t>(500 + round * 700));
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        const char letter = LetterOf(source);
        EXPECT_TRUE(letter == 'a' || letter == 'b') << letter;
    }
}

TEST(SidecarWriting, LeavesTheOldFileWhenTheNewOneHasNoRoom) {
    const Workdir folder;
    const std::u16string source = folder.Path("a.csv");
    WriteOne(source, u'a');
    const pid_t writer = fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{50'000, 50'000};
        setrlimit(RLIMIT_FSIZE, &limit);
        CCsvInfoFile file(source);
        file.TimestampFormat.assign(100'000, u'b');
        std::string reason;
        _exit(file.Replace(reason) || reason.empty() ? 1 : 0);
    }
    int status = 0;
    waitpid(writer, &status, 0);
    EXPECT_EQ(status, 0) << "the failure must be told";
    EXPECT_EQ(LetterOf(source), 'a');
    EXPECT_EQ(folder.Names(), "a.csv.info") << "no temporary file is left";
}

TEST(SidecarWriting, KeepsThePermissionsAndNeedsTheFolder) {
    const Workdir folder;
    const std::u16string source = folder.Path("a.csv");
    WriteOne(source, u'a');
    const std::string path = folder.NativePath("a.csv.info").string();
    chmod(path.c_str(), 0640);
    WriteOne(source, u'b');
    struct stat status {};
    stat(path.c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777u, 0640u);
    CCsvInfoFile elsewhere(folder.Path("missing/a.csv"));
    std::string reason;
    EXPECT_FALSE(elsewhere.Replace(reason));
    EXPECT_EQ(reason, "No such file or directory");
    EXPECT_EQ(elsewhere.Write(), 0) << "who can't write beside the source works without a sidecar";
}

}  // namespace
