// A build without HDF5: what would need it is refused with the reason, and before any work is done.
#include <gtest/gtest.h>

#include "program/ProgramRun.h"

namespace {

TEST(NoHdf5, FilesOfSamplesAreRefused) {
    const ProgramRun run;
    run.Write("a.csv", "t;x\n1;2\n");
    run.Write("a.h5", "");
    const std::vector<std::string> commands[] = {{"--store", "b.h5", "a.csv"}, {"verify", "a.h5", "a.csv"}};
    for (const auto& command : commands) {
        SCOPED_TRACE(command.front());
        const ProgramResult result = run(command);
        EXPECT_NE(result.Status, 0);
        EXPECT_EQ(result.Out, "");
        EXPECT_NE(result.Err.find("this build has no HDF5"), std::string::npos) << result.Err;
    }
}

}  // namespace
