// Writers that are killed, and writers at once: what was stored stays, and nothing is half.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <random>

#include "kit/Workdir.h"
#include "platform/framework/ProfileStore.h"
#include "settings/CsvInfoFile.h"

namespace {

constexpr const char16_t* Section = u"CsvImport";

// How often a test does what it does: a few times, or as the environment says.
int Times() {
    const char* const times = std::getenv("KELVARIN_WRITES");
    return times == nullptr ? 100 : std::atoi(times);
}

// The result of the work in a process of its own.
template <class Work>
bool InOtherProcess(Work work) {
    const pid_t child = fork();
    if (child == 0) _exit(work() ? 0 : 1);
    int status = -1;
    waitpid(child, &status, 0);
    return status == 0;
}

// Kills writers of 1, 2, 3 and so on at random moments. What then reads back is the last number whose writing
// had ended, or the one that was being written.
template <class Write, class Read>
void KillWriters(Write write, Read read) {
    void* const shared = mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(shared, MAP_FAILED);
    auto& written = *new (shared) std::atomic<int>(0);
    std::mt19937 random(7);
    ASSERT_TRUE(write(0));
    int inTheMiddle = 0;
    for (int i = 0; i < Times(); ++i) {
        const pid_t writer = fork();
        ASSERT_GE(writer, 0);
        if (writer == 0) {
            for (int number = written + 1; write(number); ++number) written = number;
            _exit(1);
        }
        usleep(static_cast<useconds_t>(random() % 12000));
        kill(writer, SIGKILL);
        int status = 0;
        waitpid(writer, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "a write failed";
        const int value = read();
        ASSERT_TRUE(value == written || value == written + 1) << value << " after " << written;
        inTheMiddle += value - written;
        written = value;
    }
    std::printf("%d writers killed in %d writes, %d of them after the new content stood\n", Times(),
                written.load(), inTheMiddle);
    munmap(shared, 4096);
}

TEST(Crash, OfAProfilesWriterLosesNothing) {
    const Workdir folder;
    const auto store = OpenProfileFile(folder.Path("profile.ini"));
    for (const char16_t* key : {u"First", u"Second"}) ASSERT_TRUE(store->WriteText(Section, key, key));
    KillWriters([&](int number) { return store->WriteInt(Section, u"Number", number); },
                [&] {
                    for (const char16_t* key : {u"First", u"Second"}) {
                        if (store->ReadText(Section, key) != key) return -1;
                    }
                    return store->ReadInt(Section, u"Number").value_or(-1);
                });
    EXPECT_TRUE(InOtherProcess([&] { return store->WriteInt(Section, u"Number", 0); }));
    EXPECT_EQ(folder.Names(), "profile.ini profile.ini.lock") << "a later run removes what was left";
}

TEST(Crash, OfASidecarsWriterLeavesAWholeOne) {
    const Workdir folder;
    CCsvInfoFile file(folder.Path("data.csv"));
    std::string reason;
    const auto write = [&](int number) {
        file.StartLine = number;
        file.TimestampFormat.assign(static_cast<std::size_t>(number % 5000), u'-');
        return file.Replace(reason);
    };
    KillWriters(write, [&] {
        CCsvInfoFile read(folder.Path("data.csv"));
        const bool whole =
            read.Read() == 0 && static_cast<int>(read.TimestampFormat.size()) == read.StartLine % 5000;
        return whole ? read.StartLine : -1;
    });
    EXPECT_TRUE(InOtherProcess([&] { return write(0); }));
    EXPECT_EQ(folder.Names(), "data.csv.info") << "a later run removes what was left";
}

// Two processes that do `work(1, i)` and `work(2, i)` as often as the test does; this one does `watch`
// meanwhile.
template <class Work, class Watch>
void WorkAtOnce(Work work, Watch watch) {
    for (const int worker : {1, 2}) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child != 0) continue;
        bool done = true;
        for (int i = 0; i < Times() && done; ++i) done = work(worker, i);
        _exit(done ? 0 : 1);
    }
    int status = 0;
    for (int ended = 0; ended < 2;) {
        watch();
        if (waitpid(-1, &status, WNOHANG) <= 0) continue;
        ++ended;
        EXPECT_EQ(status, 0) << "a write failed";
    }
}

TEST(Crash, IsNeededForTwoWritersOfAProfileToLoseAnything) {
    const Workdir folder;
    const auto store = OpenProfileFile(folder.Path("profile.ini"));
    const auto key = [](int writer, int i) {
        return std::u16string(1, static_cast<char16_t>(u'0' + writer)) + PathFromNative(std::to_string(i));
    };
    WorkAtOnce([&](int writer, int i) { return store->WriteInt(Section, key(writer, i), i); },
               [] { usleep(1000); });
    int found = 0;
    for (int i = 0; i < Times(); ++i) {
        for (const int writer : {1, 2}) found += store->ReadInt(Section, key(writer, i)) == i ? 1 : 0;
    }
    EXPECT_EQ(found, 2 * Times());
}

TEST(Crash, IsNoMatterOfTwoWritersOfASidecar) {
    const Workdir folder;
    CCsvInfoFile file(folder.Path("data.csv"));
    file.Write();
    const auto write = [&](int writer, int i) {
        std::string reason;
        file.StartLine = writer;
        file.TimestampFormat.assign(static_cast<std::size_t>(i), static_cast<char16_t>(u'0' + writer));
        return file.Replace(reason);
    };
    WorkAtOnce(write, [&] {
        CCsvInfoFile read(folder.Path("data.csv"));
        ASSERT_EQ(read.Read(), 0);
        const auto own = static_cast<char16_t>(u'0' + read.StartLine);
        EXPECT_EQ(read.TimestampFormat.find_first_not_of(own), std::u16string::npos)
            << "half of each writer's";
    });
    EXPECT_EQ(folder.Names(), "data.csv.info");
}

}  // namespace
