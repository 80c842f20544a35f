// The largest of everything: files, lines, columns, messages and filters. Slow; `./test --limits` runs them.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include "kit/ImportRun.h"
#include "kit/Shell.h"
#include "program/ProgramRun.h"

namespace {

constexpr std::uint64_t Mebi = 1 << 20;

TEST(Limits, AFileOfFiveGibibytesHasRightPositionsAndPercentages) {
    constexpr std::uint64_t Lines = 5 * 1024;
    ImportRun run("n\n");
    // Lines of a mebibyte, of which the disk holds the first block and the last alone.
    const int file = open(run.Folder.NativePath("data.csv").c_str(), O_WRONLY);
    for (std::uint64_t line = 0; line < Lines; ++line) {
        ASSERT_EQ(pwrite(file, "5", 1, static_cast<off_t>(2 + line * Mebi)), 1);
        ASSERT_EQ(pwrite(file, "\n", 1, static_cast<off_t>(1 + (line + 1) * Mebi)), 1);
    }
    close(file);
    ASSERT_TRUE(run.Filter->BeginImport());
    int told = 0;
    for (std::uint64_t line = 1; run.Next(); ++line) {
        if ((line + 1) % 100 != 0) continue;
        EXPECT_EQ(run.Progress, (2 + line * Mebi) * 100 / (2 + Lines * Mebi)) << line;
        ++told;
    }
    run.Filter->EndImport();
    EXPECT_EQ(told, 51);
    EXPECT_EQ(run.Host.Signals.at(0)->Count, static_cast<int>(Lines));
    EXPECT_EQ(run.Messages(), "");
}

TEST(Limits, ALineMayHave256Mebibytes) {
    ImportRun run("a;b\n5;" + std::string(256 * Mebi, 'x') + "\n6;y\n");
    ASSERT_TRUE(run.Filter->BeginImport());
    while (run.Next()) continue;
    run.Filter->EndImport();
    EXPECT_EQ(run.Messages(), "");
    EXPECT_EQ(run.Host.Signals.at(0)->Samples, " 1=5 2=6");
    EXPECT_EQ(run.Host.Signals.at(1)->Values.at(0).size(), 256 * Mebi + 2);
    EXPECT_EQ(run.Host.Signals.at(1)->Values.at(1), "\"y\"");
}

TEST(Limits, ATableMayHave100000Columns) {
    constexpr int Columns = 100'000;
    std::string bytes;
    for (const char* cell : {"name", "5", "6", "x"}) {
        for (int i = 0; i < Columns; ++i) bytes += (i == 0 ? "" : ";") + std::string(cell);
        bytes += '\n';
    }
    ImportRun run(bytes);
    ASSERT_TRUE(run.Filter->BeginImport());
    while (run.Next()) continue;
    run.Filter->EndImport();
    ASSERT_EQ(run.Host.Signals.size(), static_cast<std::size_t>(Columns));
    for (const auto& signal : run.Host.Signals) ASSERT_EQ(signal->Samples, " 1=\"5\" 2=\"6\" 3=\"x\"");
}

TEST(Limits, TenMillionFailingRowsDontFillTheMemory) {
    const ProgramRun run;
    std::string bytes = "n;m\n";
    for (int i = 0; i < 10'000'000; ++i) bytes += "5;6\n";
    run.Write("big.csv", bytes);
    // Without a timestamp format no row has a time. A message of each would take a gibibyte and more.
    const std::string command = "ulimit -v 200000; " + run.CommandLine({"--no-guess", "big.csv"}) + " 2>&1";
    const ShellResult result = RunShell(command);
    EXPECT_EQ(result.Status, 0) << result.Out;
    EXPECT_NE(result.Out.find("1 from 10000000 lines"), std::string::npos) << result.Out;
    EXPECT_NE(result.Out.find("(10000000 in all)"), std::string::npos) << result.Out;
}

// Changes how many files this process may have open, and back.
class FileLimit {
  public:
    explicit FileLimit(rlim_t count) {
        getrlimit(RLIMIT_NOFILE, &Before);
        const rlimit limit{std::min(count, Before.rlim_max), Before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;
    ~FileLimit() { setrlimit(RLIMIT_NOFILE, &Before); }

  private:
    rlimit Before{};
};

TEST(Limits, AThousandFiltersMayRunAtOnce) {
    constexpr std::size_t Filters = 1000;
    const FileLimit enough(Filters + 100);
    std::vector<std::unique_ptr<ImportRun>> runs;
    for (std::size_t i = 0; i < Filters; ++i) {
        runs.push_back(std::make_unique<ImportRun>("n\n5\n" + std::to_string(i) + "\n"));
    }
    for (const auto& run : runs) ASSERT_TRUE(run->Filter->BeginImport());
    runs[500]->Settings().DateColumn = 77;
    runs[500]->Settings().CopyToAllInstances();
    for (std::size_t i = 0; i < Filters; ++i) {
        while (runs[i]->Next()) continue;
        runs[i]->Filter->EndImport();
        EXPECT_EQ(runs[i]->Host.DescribeSamples(), "n: 1=5 2=" + std::to_string(i) + "\n");
        EXPECT_EQ(runs[i]->Settings().DateColumn, 77);
    }
    const FileLimit few(64);
    std::size_t begun = 0;
    for (const auto& run : runs) {
        run->Messages();
        const bool begins = run->Filter->BeginImport();
        begun += begins ? 1 : 0;
        EXPECT_EQ(run->Messages(), begins ? "" : ReadError);
    }
    EXPECT_TRUE(begun > 10 && begun < 64) << begun;
}

}  // namespace
