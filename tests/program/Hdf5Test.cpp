// The option --store FILE.h5 and the command verify, as scripts and other programs see them.
#include <gtest/gtest.h>
#include <signal.h>

#include <fstream>
#include <iterator>

#include "kit/Shell.h"
#include "program/ProgramRun.h"

namespace {

const std::vector<std::string> Settings = {"--set", "TimestampFormat=[s],000", "--set", "DateSetting=2"};

std::vector<std::string> Import(std::vector<std::string> more) {
    std::vector<std::string> arguments = {"import", "--no-guess"};
    arguments.insert(arguments.end(), Settings.begin(), Settings.end());
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

// A table of every kind of signal, with cells that are refused.
std::string Table(int rows) {
    std::string table = "t;Druck;n;Hex;Zeichen;Bemerkung;Ventil\n";
    for (int i = 0; i < rows; ++i) {
        const std::string number = std::to_string(i);
        table += number + ";" + (i == 600 ? "?" : number + ",25 bar") + ";" + number + "000;0x" + number +
                 (i % 2 == 0 ? ";x;" : ";y;") +
                 (i % 3 == 0   ? "Öl auf"
                  : i % 3 == 1 ? "zu"
                               : "") +
                 ";" + (i % 2 == 0 ? "true" : "false") + "\n";
    }
    return table;
}

// Runs a line of the shell before the program, with both outputs. What the shell itself says is dropped:
// under a limit it would end the shell where the log that takes it is longer.
ShellResult RunAfter(const std::string& line, const ProgramRun& run,
                     const std::vector<std::string>& arguments) {
    return RunShell("{ " + line + "; (" + run.CommandLine(arguments) + ") 2>&1; } 2>/dev/null");
}

// The pieces of Python in the page about the file.
std::string PythonOfTheDocs() {
    std::ifstream page(KELVARIN_TEST_DATA "/../../docs/hdf5.md");
    const std::string text(std::istreambuf_iterator<char>(page), {});
    const std::string open = "```python\n";
    std::string code;
    for (std::size_t at = text.find(open); at != std::string::npos; at = text.find(open, at)) {
        at += open.size();
        code += text.substr(at, text.find("```", at) - at);
    }
    return code;
}

TEST(Hdf5, IsReadByThePythonOfTheDocsAsTheProgramTellsIt) {
    const ProgramRun run;
    run.Write("data.csv", Table(1000));
    const ProgramResult json = run(Import({"--json", "--samples", "all", "--store", "data.h5", "data.csv"}));
    ASSERT_EQ(json.Status, 0) << json.Err;
    run.Write("told.json", json.Out);
    run.Write("read.py", PythonOfTheDocs() + R"(
import json
for told in json.load(open("told.json"))["signals"]:
    signal = device[told["symbol"]]
    assert signal.attrs["unit"] == told["unit"] and signal.attrs["type"] == told["type"], told["symbol"]
    assert signal.attrs["name"] == "Spalte %d" % (signal.attrs["column"] + 1), told["symbol"]
    values = texts if told["symbol"] == "Bemerkung" else signal["value"][:].tolist()
    if told["type"] == 0: values = [value != 0 for value in values]
    valid = signal["valid"][:] if "valid" in signal else [1] * len(values)
    read = [[time, value if good else None] for time, value, good in zip(signal["time"][:].tolist(), values, valid)]
    assert read == told["samples"], (told["symbol"], read[:3], told["samples"][:3])
assert str(times[1]) == "1979-12-31T23:00:01.000000000", times[1]
print(len(device), "valid" in device["Druck"], "valid" in device["n"])
)");
    const std::string folder = run.Folder.NativePath("").string();
    const ShellResult read = RunShell("cd '" + folder + "' && /usr/bin/python3 read.py 2>&1");
    EXPECT_EQ(read.Status, 0) << read.Out;
    EXPECT_TRUE(read.Out.ends_with("7 True False\n")) << read.Out;
}

TEST(Hdf5, VerifyTellsWhatDiffersByStatusAndJson) {
    const ProgramRun run;
    run.Write("data.csv", Table(1000));
    ASSERT_EQ(run(Import({"--store", "data.h5", "data.csv"})).Status, 0);
    const ProgramResult equal = run({"verify", "data.h5", "data.csv"});
    EXPECT_EQ(equal.Status, 0) << equal.Err;
    EXPECT_EQ(equal.Out, "data.csv: equal to a fresh import, 6000 samples compared\n");

    std::string table = Table(1000);
    table.replace(table.find("\n700;700,25") + 5, 3, "707");
    run.Write("data.csv", table);
    const ProgramResult different = run({"verify", "--json", "data.h5", "data.csv"});
    EXPECT_EQ(different.Status, 3);
    EXPECT_NE(different.Out.find(R"("equal":false)"), std::string::npos) << different.Out;
    EXPECT_NE(different.Out.find(
                  R"({"signal":"Druck","sample":700,"what":"value","stored":"700.25","imported":"707.25"})"),
              std::string::npos)
        << different.Out;
    EXPECT_EQ(run({"verify", "--set", "DateSetting=1", "data.h5", "data.csv"}).Status, 3);

    run.Write("data.h5", run.Folder.Read("data.h5").substr(0, 20'000));
    EXPECT_EQ(run({"verify", "data.h5", "data.csv"}).Status, 1) << "cut off";
    EXPECT_EQ(run({"verify", "data.csv", "data.csv"}).Status, 1) << "no HDF5 at all";
    EXPECT_EQ(run({"verify", "data.h5"}).Status, 2);
}

TEST(Hdf5, KeepsTheFilesThatCouldBeImported) {
    const ProgramRun run;
    run.Write("a.csv", Table(10));
    const ProgramResult result = run(Import({"--store", "all.h5", "a.csv", "missing.csv", "a.csv"}));
    EXPECT_EQ(result.Status, 1);
    EXPECT_NE(result.Err.find("all.h5: holds 2 of 3 files"), std::string::npos) << result.Err;
    EXPECT_EQ(run({"verify", "all.h5", "a.csv", "a.csv"}).Status, 0);
    EXPECT_EQ(run({"verify", "--set", "DateSetting=1", "all.h5", "a.csv", "missing.csv"}).Status, 1)
        << "what can't be compared outweighs what differs";
    EXPECT_EQ(run({"verify", "--set", "DateSetting=1", "all.h5", "missing.csv", "a.csv"}).Status, 1);
    EXPECT_NE(run({"verify", "all.h5", "a.csv", "a.csv", "a.csv"}).Err.find("no device 'a.csv'"),
              std::string::npos);
    EXPECT_EQ(run(Import({"--store", "none.h5", "missing.csv"})).Status, 1);
    EXPECT_EQ(run.Folder.Names(), "a.csv all.h5") << "what has no samples is not written";
}

TEST(Hdf5, LeavesWhatWasThereUntilItIsWhole) {
    const ProgramRun run;
    run.Write("data.csv", Table(20'000));
    run.Write("data.h5", "before");
    // The system ends a writer, or refuses it, in the middle of the file.
    const auto arguments = Import({"--store", "data.h5", "data.csv"});
    const ShellResult killed = RunAfter("ulimit -f 20", run, arguments);
    EXPECT_EQ(killed.Status, 128 + SIGXFSZ) << killed.Out;
    EXPECT_EQ(run.Folder.Names(), "data.csv data.h5") << "no rest is left";
    EXPECT_TRUE(run.Folder.Read("data.h5") == "before");

    const ShellResult refused = RunAfter("trap '' XFSZ; ulimit -f 20", run, arguments);
    EXPECT_EQ(refused.Status, 1);
    EXPECT_NE(
        refused.Out.find("data.h5: can't be written: File too large; what was there before is unchanged."),
        std::string::npos)
        << refused.Out;
    EXPECT_EQ(run.Folder.Names(), "data.csv data.h5") << "no rest is left";
    EXPECT_TRUE(run.Folder.Read("data.h5") == "before");

    EXPECT_EQ(run(arguments).Status, 0);
    EXPECT_EQ(run({"verify", "data.h5", "data.csv"}).Status, 0);
    EXPECT_EQ(run.Folder.Names(), "data.csv data.h5");
    EXPECT_EQ(run(Import({"--store", "no/data.h5", "data.csv"})).Status, 1);
    EXPECT_EQ(run(Import({"--store", "data.hdf", "data.csv"})).Status, 2);
}

}  // namespace
