// Stores that are damaged, made to harm, or no files at all: `verify` ends with a message and opens nothing
// else.
#include <gtest/gtest.h>
#include <hdf5.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <iostream>
#include <random>

#include "platform/framework/GuardedProcess.h"
#include "program/ProgramRun.h"

namespace {

// A folder with a source, a.csv, and its store, a.h5.
class StoreRun : public ProgramRun {
  public:
    StoreRun() {
        std::string table = "t;n;Text\n";
        for (int i = 0; i < 300; ++i)
            table += std::to_string(i) + ";" + std::to_string(i) + ",25;x" + std::to_string(i) + "\n";
        Write("a.csv", table);
        const ProgramResult result =
            (*this)({"--store", "a.h5", "--set", "DateSetting=2", "--set", "TimestampFormat=[s]", "a.csv"});
        EXPECT_EQ(result.Status, 0) << result.Err;
        EXPECT_EQ((*this)({"verify", "a.h5", "a.csv"}).Status, 0);
    }

    // The store with its damage is compared; the outcome must be one of those that are promised.
    void Verify(const std::string& store) const {
        const ProgramResult result = (*this)({"verify", "--patience", "1", store, "a.csv"});
        EXPECT_TRUE(result.Status == 0 || result.Status == 1 || result.Status == 3) << result.Status;
        // An instrumented program reports what it sees of a crash, too.
        const bool isSaid = result.Err.find("kelvarin-import: " + store + ": ") != std::string::npos ||
                            result.Err.find("Sanitizer") != std::string::npos;
        EXPECT_TRUE(result.Status != 1 || isSaid) << result.Err;
    }
};

std::string Mutated(std::string bytes, unsigned seed) {
    std::minstd_rand random(seed);
    const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    const unsigned char extremes[] = {0, 1, 0x7F, 0xFF};
    const bool isRun = seed % 4 == 3;
    const std::size_t count = seed % 4 == 0 ? 1 : 1 + below(40);
    std::size_t at = below(bytes.size());
    for (std::size_t i = 0; i < count; ++i) {
        const bool isExtreme = seed % 4 == 2;
        bytes[at] = static_cast<char>(isExtreme ? extremes[below(4)] : below(256));
        at = isRun ? std::min(at + 1, bytes.size() - 1) : below(bytes.size());
    }
    return bytes;
}

void VerifyMutated(unsigned count) {
    const StoreRun run;
    const std::string store = run.Folder.Read("a.h5");
    for (unsigned seed = 0; seed < count; ++seed) {
        SCOPED_TRACE("mutation " + std::to_string(seed));
        run.Write("m.h5", Mutated(store, seed));
        run.Verify("m.h5");
        ASSERT_EQ(run.Folder.Names(), "a.csv a.h5 m.h5") << "nothing is left, not even a core";
    }
}

TEST(HostileStore, EndsWithAMessageWhateverIsDamaged) {
    VerifyMutated(100);
}

TEST(LimitsHostileStore, EndsWithAMessageWhateverIsDamaged) {
    VerifyMutated(2000);
}

TEST(HostileStore, EndsWithAMessageWhereverItIsCut) {
    const StoreRun run;
    const std::string store = run.Folder.Read("a.h5");
    for (std::size_t size = 0; size < store.size(); size += 409) {
        SCOPED_TRACE("cut after " + std::to_string(size));
        run.Write("m.h5", store.substr(0, size));
        run.Verify("m.h5");
    }
}

TEST(HostileStore, IsARegularFile) {
    const StoreRun run;
    ASSERT_EQ(mkfifo(run.Folder.NativePath("pipe.h5").c_str(), 0600), 0);
    std::filesystem::create_directory(run.Folder.NativePath("folder.h5"));
    std::filesystem::create_symlink("pipe.h5", run.Folder.NativePath("link.h5"));
    for (const std::string store : {"pipe.h5", "link.h5", "folder.h5", "/dev/zero", "/dev/null"}) {
        const ProgramResult result = run({"verify", store, "a.csv"});
        EXPECT_EQ(result.Status, 1);
        EXPECT_EQ(result.Err, "kelvarin-import: " + store + ": not a regular file\n");
    }
    std::filesystem::create_symlink("a.h5", run.Folder.NativePath("good.h5"));
    EXPECT_EQ(run({"verify", "good.h5", "a.csv"}).Status, 0) << "a link to a file is followed";
}

// Puts a data set in the place of the values of the signal n. `creation` says where its values are.
void ReplaceValues(hid_t file, hid_t creation, hsize_t count) {
    H5Ldelete(file, "/a.csv/n/value", H5P_DEFAULT);
    const hid_t space = H5Screate_simple(1, &count, nullptr);
    const hid_t set =
        H5Dcreate2(file, "/a.csv/n/value", H5T_NATIVE_DOUBLE, space, H5P_DEFAULT, creation, H5P_DEFAULT);
    ASSERT_GE(set, 0);
    H5Dclose(set);
    H5Sclose(space);
}

// Ways in which a store may lead out of itself, or ask for memory.
struct Trick {
    const char* What;
    void (*Play)(hid_t file);
    const char* Complaint;
};

constexpr hsize_t Rows = 300;

const Trick Tricks[] = {
    {"a group of another file",
     [](hid_t file) {
         H5Ldelete(file, "/a.csv", H5P_DEFAULT);
         H5Lcreate_external("b.h5", "/a.csv", file, "/a.csv", H5P_DEFAULT, H5P_DEFAULT);
     },
     "'a.csv' is a link by name, which is not followed"},
    {"values of another file by a link",
     [](hid_t file) {
         H5Ldelete(file, "/a.csv/n/value", H5P_DEFAULT);
         H5Lcreate_external("b.h5", "/a.csv/n/value", file, "/a.csv/n/value", H5P_DEFAULT, H5P_DEFAULT);
     },
     "'n/value' is a link by name, which is not followed"},
    {"a link by name inside",
     [](hid_t file) {
         H5Ldelete(file, "/a.csv/time", H5P_DEFAULT);
         H5Lcreate_soft("/a.csv/n/time", file, "/a.csv/time", H5P_DEFAULT, H5P_DEFAULT);
     },
     "'time' is a link by name, which is not followed"},
    {"values in a file without a format",
     [](hid_t file) {
         const hid_t creation = H5Pcreate(H5P_DATASET_CREATE);
         H5Pset_external(creation, "secret", 0, Rows * sizeof(double));
         ReplaceValues(file, creation, Rows);
         H5Pclose(creation);
     },
     "data set 'n/value' has its values in other files, which are not read"},
    {"values put together from other files",
     [](hid_t file) {
         const hid_t creation = H5Pcreate(H5P_DATASET_CREATE);
         const hid_t space = H5Screate_simple(1, &Rows, nullptr);
         H5Pset_virtual(creation, space, "b.h5", "/a.csv/n/value", space);
         ReplaceValues(file, creation, Rows);
         H5Sclose(space);
         H5Pclose(creation);
     },
     "data set 'n/value' has its values in other files, which are not read"},
    {"chunks of 4 GB",
     [](hid_t file) {
         const hid_t creation = H5Pcreate(H5P_DATASET_CREATE);
         const hsize_t chunk = hsize_t{4'000'000'000 / sizeof(double)};
         H5Pset_chunk(creation, 1, &chunk);
         ReplaceValues(file, creation, chunk);
         H5Pclose(creation);
     },
     "data set 'n/value' has chunks too large to read"},
};

TEST(HostileStore, LeadsNowhereElse) {
    for (const Trick& trick : Tricks) {
        SCOPED_TRACE(trick.What);
        const StoreRun run;
        run.Write("b.h5", run.Folder.Read("a.h5"));
        run.Write("secret", std::string(Rows * sizeof(double), '\0'));
        const hid_t file = H5Fopen(run.Folder.NativePath("a.h5").c_str(), H5F_ACC_RDWR, H5P_DEFAULT);
        ASSERT_GE(file, 0);
        trick.Play(file);
        H5Fclose(file);
        const ProgramResult result = run({"verify", "a.h5", "a.csv"});
        EXPECT_EQ(result.Status, 1) << result.Out;
        EXPECT_EQ(result.Err, std::string("kelvarin-import: a.h5: ") + trick.Complaint + "\n");
    }
}

// --- The process that such reading has of its own.

void SpendSeconds(double seconds, bool isAlive) {
    const std::clock_t end = std::clock() + static_cast<std::clock_t>(seconds * CLOCKS_PER_SEC);
    while (std::clock() < end) {
        if (isAlive) ReportLife();
    }
}

std::string Outcome(int (*work)()) {
    const GuardedResult result = RunGuarded(work, std::chrono::seconds(1));
    constexpr const char* Ends[] = {"done", "crashed", "stalled", "not started"};
    return std::string(Ends[result.End]) + " " + std::to_string(result.Status);
}

TEST(HostileStore, IsReadInAProcessThatMayEndInAnyWay) {
    EXPECT_EQ(Outcome([] { return 3; }), "done 3");
    EXPECT_EQ(Outcome([] { return std::raise(SIGSEGV); }), "crashed " + std::to_string(SIGSEGV));
    EXPECT_EQ(Outcome([]() -> int { throw 1; }), "crashed " + std::to_string(SIGABRT));
    EXPECT_EQ(Outcome([] {
                  SpendSeconds(60, false);
                  return 0;
              }),
              "stalled 0");
    EXPECT_EQ(Outcome([] {
                  SpendSeconds(1.5, true);
                  return 0;
              }),
              "done 0")
        << "as long as it goes on";
    testing::internal::CaptureStdout();
    std::cout << "before ";
    const std::string outcome = Outcome([] {
        std::cout << "within " << std::flush;
        return std::raise(SIGKILL);
    });
    std::cout << "after" << std::flush;
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "before within after");
    EXPECT_EQ(outcome, "crashed 9");
}

}  // namespace
