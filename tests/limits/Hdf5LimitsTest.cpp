// A file of samples that is wider than any table should be.
#include <gtest/gtest.h>

#include <cstdlib>

#include "program/ProgramRun.h"

namespace {

TEST(Limits, TenThousandSignalsGoToAFileInLittleMemory) {
    const ProgramRun run;
    std::string bytes = "t";
    for (int column = 0; column < 10'000; ++column) bytes += ";K" + std::to_string(column);
    for (int row = 0; row < 2000; ++row) {
        bytes += "\n" + std::to_string(row);
        for (int column = 0; column < 10'000; ++column) bytes += ";" + std::to_string((row * column) % 9973);
    }
    run.Write("wide.csv", bytes + "\n");
    // The samples alone would take 160 MB, and the data sets twice that if they were open at once.
    const std::string command =
        "ulimit -v 300000; " + run.CommandLine({"--set", "TimestampFormat=[s]", "--set", "DateSetting=2",
                                                "--store", "wide.h5", "wide.csv"});
    EXPECT_EQ(std::system((command + " >/dev/null").c_str()), 0);
    const ProgramResult check = run({"verify", "wide.h5", "wide.csv"});
    EXPECT_EQ(check.Out, "wide.csv: equal to a fresh import, 20000000 samples compared\n") << check.Err;
}

}  // namespace
