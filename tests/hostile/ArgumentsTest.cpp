// Names and an environment that a command line takes as they are.
#include <gtest/gtest.h>

#include "kit/Shell.h"
#include "program/ProgramRun.h"

namespace {

TEST(HostileArguments, NamesInBracketsAreNoLists) {
    const ProgramRun run;
    const std::vector<std::string> names = {"[a,b]", "[c]", "[]", "[[d],[e]]", "f,g", "'h'", "{}"};
    std::vector<std::string> arguments = {"analyze"};
    std::string expected;
    for (const std::string& name : names) {
        run.Write(name, DatedRows);
        arguments.push_back(name);
        expected += name + "|";
    }
    const ProgramResult alone = run(arguments);
    EXPECT_EQ(Headings(alone.Out), expected) << alone.Err;
    arguments.insert(arguments.end(), {"--jobs", "2"});
    EXPECT_EQ(Headings(run(arguments).Out), expected);
    EXPECT_EQ(run({"[c]"}).Status, 0);
    EXPECT_EQ(run({"sidecar", "--guess-time", "[a,b]"}).Status, 0);
    EXPECT_EQ(run({"sidecar", "apply", "[a,b].info", "[c]", "[]"}).Status, 0);
    EXPECT_NE(run.Folder.Read("[c].info"), "");
    EXPECT_NE(run.Folder.Read("[].info"), "");
}

TEST(HostileArguments, ValuesInBracketsAreOne) {
    const ProgramRun run;
    run.Write("a.csv", DatedRows);
    run.Write("[p,q]", "[CsvImport]\nDateColumn=7\n");
    const ProgramResult result = run({"analyze", "--json", "--profile", "[p,q]", "a.csv"});
    EXPECT_NE(result.Out.find("\"DateColumn\":7"), std::string::npos) << result.Out << result.Err;
}

TEST(HostileArguments, AProfileMayBeginWithAByteOrderMark) {
    const ProgramRun run;
    run.Write("a.csv", DatedRows);
    run.Write("p.ini", "\xEF\xBB\xBF[CsvImport]\nDateColumn=7\n");
    const ProgramResult result = run({"analyze", "--json", "--profile", "p.ini", "a.csv"});
    EXPECT_NE(result.Out.find("\"DateColumn\":7"), std::string::npos) << result.Out << result.Err;
}

TEST(HostileArguments, WithoutAHomeThereIsNoProfile) {
    const ProgramRun run;
    run.Write("a.csv", DatedRows);
    run.Write("b.csv", DatedRows);
    const std::string command = "env -u HOME XDG_CONFIG_HOME= " + std::string(KELVARIN_IMPORT);
    const std::string file = run.Folder.NativePath("a.csv").string();
    const std::string other = run.Folder.NativePath("b.csv").string();
    const ShellResult read =
        RunShell(command + " analyze --jobs 2 " + file + " " + other + " 2>&1 >/dev/null");
    EXPECT_EQ(read.Status, 0);
    EXPECT_EQ(read.Out,
              "kelvarin-import: no profile: HOME is not set\nkelvarin-import: 2 files: 2 analyzed\n");
    const ShellResult stored =
        RunShell("printf 'ok\\n' | " + command + " dialog --set TimestampFormat=JJJJ-MM-TT --script - " +
                 file + " 2>&1 >/dev/null");
    EXPECT_EQ(stored.Status, 1);
    EXPECT_NE(stored.Out.find("the profile can't be written: HOME is not set"), std::string::npos)
        << stored.Out;
}

// The program is then English, and the module with it.
TEST(HostileArguments, ALanguageWithoutTextsMixesNone) {
    const ProgramRun run;
    run.Write("a.csv", "a text\nwithout a table\n");
    const ShellResult read =
        RunShell("env LC_ALL=fr_FR.UTF-8 XDG_CONFIG_HOME=/nowhere " + std::string(KELVARIN_IMPORT) +
                 " --no-guess " + run.Folder.NativePath("a.csv").string() + " 2>&1");
    EXPECT_NE(read.Out.find("No valid timestamp"), std::string::npos) << read.Out;
    EXPECT_NE(read.Out.find("messages"), std::string::npos) << read.Out;
}

}  // namespace
