// The program with the library that shows its dialog, where there is no display. `on-display` runs it on one.
#include <gtest/gtest.h>

#include "program/ProgramRun.h"

namespace {

TEST(ViewProgram, SaysWhereThereIsNoDisplay) {
    const ProgramRun run;
    run.Write("data.csv", "t;v\n10:00:00;1\n");
    for (const char* display : {"", "DISPLAY=:4711", "WAYLAND_DISPLAY=none"}) {
        SCOPED_TRACE(display);
        const std::string command =
            "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " + std::string(display) + " sh -c \"" +
            run.CommandLine({"dialog", "data.csv"}) + "\" 2>" + run.Folder.NativePath("said.txt").string();
        EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 2);
        EXPECT_EQ(
            run.Folder.Read("said.txt"),
            "kelvarin-import: there is no display for the dialog here; drive it with --script FILE, or set "
            "values with --set\n");
    }
}

}  // namespace
