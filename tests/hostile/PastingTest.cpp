// The options that the program advises are pasted into a shell: what a file says is a value there, never a
// command.
#include <gtest/gtest.h>

#include <sstream>

#include "kit/Shell.h"
#include "platform/framework/ShellText.h"
#include "platform/framework/VisibleText.h"
#include "program/ProgramRun.h"

namespace {

const std::string HostileWords[] = {
    "';touch PWNED;'",
    "\";touch PWNED;\"",
    "$(touch PWNED)",
    "`touch PWNED`",
    "|touch PWNED",
    "&touch PWNED&",
    ">PWNED",
    "<(touch PWNED)",
    "\\';touch PWNED;\\'",
    "-rf",
    "--set",
    "~",
    "*",
    "[a-z]",
    "{a,b}",
    "#x",
    "!!",
    "a b",
    "'",
    "'''",
    "\\",
    "",
};

// What a terminal would obey, which is not printed as it is.
const std::string ObeyedWords[] = {
    "\n",
    "\ntouch PWNED\n",
    "\x1B[2J",
    "\x1B';touch PWNED;'",
    "';touch PWNED;'\r",
    "\t",
    "\x7F",
    "\xC2\x9B"
    "31m",
    "a\xE2\x80\xAE"
    "b'\xE2\x81\xA6",
    "\x07\x08\x0C",
    "\xE2\x80\xA8touch PWNED",
};

// What a shell prints for a text that is pasted into it, in the folder of the run.
std::string Pasted(const ProgramRun& run, const std::string& shell, const std::string& text) {
    run.Write("pasted", text + "\n");
    const std::string folder = run.Folder.NativePath("").string();
    const std::string output = RunShell("cd '" + folder + "' && " + shell + " ./pasted 2>&1").Out;
    std::filesystem::remove(run.Folder.NativePath("pasted"));
    return output;
}

bool Has(const std::string& shell) {
    return std::system((shell + " -c : >/dev/null 2>&1").c_str()) == 0;
}

TEST(HostilePasting, GivesAShellEveryWordAsItIs) {
    const ProgramRun run;
    const auto print = [&](const char* shell, const std::string& word) {
        return Pasted(run, shell, "printf '<%s>' " + ShellQuoted(word) + " end");
    };
    for (const std::string& word : HostileWords) {
        for (const char* const shell : {"sh", "bash"}) EXPECT_EQ(print(shell, word), "<" + word + "><end>");
    }
    for (const std::string& word : ObeyedWords) {
        EXPECT_EQ(MakeVisible(ShellQuoted(word)), ShellQuoted(word)) << "it can be printed";
        for (const char* const shell : {"bash", "zsh", "ksh", "mksh", "busybox sh"}) {
            if (!Has(shell)) continue;
            EXPECT_EQ(print(shell, word), "<" + word + "><end>") << shell;
        }
        // A shell that doesn't know the form still takes it for one word.
        const std::string other = print("sh", word);
        EXPECT_TRUE(other.ends_with("><end>") && other.find("><") == other.size() - 6) << other;
    }
    EXPECT_EQ(run.Folder.Names(), "") << "no command was run";
}

// The advice among what a run prints: each part of a line from its first option on.
std::vector<std::string> AdviceIn(const std::string& printed) {
    std::vector<std::string> advice;
    std::istringstream lines(printed);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t at = std::min(line.find(" --set "), line.find(" --rejects "));
        if (at != std::string::npos) advice.push_back(line.substr(at));
    }
    return advice;
}

// Pastes all advice of some commands on a.csv after a call of the program. No file but those of the test may
// come to be, and each must be a command line that the program takes.
std::size_t PasteAdvice(const ProgramRun& run, const std::vector<std::vector<std::string>>& commands) {
    std::set<std::string> pasted;
    for (const auto& command : commands) {
        const ProgramResult result = run(command);
        std::filesystem::remove(run.Folder.NativePath("rejects.csv"));
        const std::string before = run.Folder.Names();
        for (const std::string& advice : AdviceIn(result.Out + result.Err)) {
            SCOPED_TRACE(command[0] + " advised" + advice);
            if (!pasted.insert(advice).second) continue;
            Pasted(run, "sh", "printf %s" + advice);
            const std::string shown =
                Pasted(run, "bash", "'" KELVARIN_IMPORT "' check" + advice + " a.csv; echo $?");
            const bool isTaken = !shown.ends_with("2\n") && !shown.ends_with("127\n");
            EXPECT_TRUE(isTaken || advice.find("FirstLine=LINE") != std::string::npos ||
                        advice.find("FILE") != std::string::npos)
                << shown;
            std::filesystem::remove(run.Folder.NativePath("FILE"));
            EXPECT_EQ(run.Folder.Names(), before);
        }
    }
    return pasted.size();
}

// The words of a command, and settings whose values may hold any character.
std::vector<std::string> With(const std::string& command, const std::vector<std::string>& settings = {}) {
    std::vector<std::string> words = Words(command + " a.csv");
    for (const std::string& setting : settings) words.insert(words.end(), {"--set", setting});
    return words;
}

const std::string WordsInFiles[] = {"';touch PWNED;'",     "$(touch PWNED)",          ">PWNED", "-rf",
                                    "\x1B';touch PWNED;'", "\xE2\x80\xAE&touch PWNED"};

TEST(HostilePasting, OfAdviceRunsNoCommandOfAFile) {
    std::size_t count = 0;
    for (const std::string& word : WordsInFiles) {
        SCOPED_TRACE(MakeVisible(word));
        const ProgramRun run;
        // The word as separator, within the format of the times, and in cells and headers.
        const std::string mark =
            word.substr(0, 1) == "\xC2" || word.substr(0, 1) == "\xE2" ? ";" : word.substr(0, 1);
        run.Write("a.csv", "t" + word + mark + "v" + word + "\n01.02.2024" + word + "10:00" + mark +
                               "1\n01.02.2024" + word + "10:01" + mark + "2\nbad" + mark + "3\n01.02.2024" +
                               word + "10:02" + mark + "2\nx\n");
        const std::vector<std::string> table = {"AutoFormat=0", "Separator=4", "OtherSeparator=" + word};
        std::vector<std::string> timed = {"DateSetting=0", "TimestampFormat=TT.MM.JJJJ" + word + "hh:mm"};
        timed.insert(timed.end(), table.begin(), table.end());
        std::vector<std::vector<std::string>> commands = {
            With("check --rejects rejects.csv", timed), With("import --guess-time"),
            With("import --guess-time", table), With("import", {"Separator=4", table[2]}),
            With("import --set FirstLine=2")};
        for (const std::string command : {"import", "check", "explain"}) {
            for (const std::string guess : {"", " --no-guess"}) {
                commands.push_back(With(command + guess));
                commands.push_back(With(command + guess, table));
            }
            commands.push_back(With(command + " --set AutoFormat=0 --set FirstLine=500"));
            commands.push_back(With(command + " --set DateSetting=2 --set TimestampFormat=[s]"));
        }
        count += PasteAdvice(run, commands);
    }
    EXPECT_GT(count, 10u) << "that much advice is given";
}

// Names above a line of units are among the options.
TEST(HostilePasting, OfNamesRunsNoCommandOfAFile) {
    for (const std::string& word : WordsInFiles) {
        SCOPED_TRACE(MakeVisible(word));
        const ProgramRun run;
        run.Write("a.csv", "t\t" + word + "\ns\tV\n0\t1\n1\t2\n2\t3\n3\t4\n");
        EXPECT_NE(run({"analyze", "a.csv"}).Out.find(" --name "), std::string::npos);
        EXPECT_GT(
            PasteAdvice(run, {With("analyze"), With("check"), With("explain"), With("explain --no-guess")}),
            1u);
    }
}

}  // namespace
