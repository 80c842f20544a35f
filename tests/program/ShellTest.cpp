// What the program gives to shells, manuals and readers of German.
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "program/ProgramRun.h"

TEST(Shell, ManualNamesEveryOptionOfEveryCommand) {
    const ProgramRun run;
    const std::string manual = run({"manual"}).Out;
    for (const char* command : {"import", "analyze", "explain", "sidecar", "dialog"}) {
        const std::size_t begin = manual.find(std::string(".SS ") + command + "\n");
        ASSERT_NE(begin, std::string::npos) << command;
        const std::string section = manual.substr(begin, manual.find(".SS ", begin + 1) - begin);
        std::istringstream help(run({command, "--help"}).Out);
        int options = 0;
        for (std::string word; help >> word;) {
            if (!word.starts_with("--") || word.find_first_not_of("-abcdefghijklmnopqrstuvwxyz") != word.npos)
                continue;
            std::string name;
            for (const char c : word) name += c == '-' ? std::string("\\-") : std::string(1, c);
            ++options;
            EXPECT_NE(section.find(".B " + name), std::string::npos) << command << " " << word;
        }
        EXPECT_GT(options, 2) << command;
    }
}

TEST(Shell, BashCompletesCommandsOptionsAndChoices) {
    const ProgramRun run;
    run.Write("bash", run({"completion", "bash"}).Out);
    struct Case {
        const char* Words;
        const char* Expected;
    };
    const Case cases[] = {{"ana", "analyze "},
                          {"import --sam", "--samples "},
                          {"import --store mem", "memory "},
                          {"sidecar --ch", "--check "},
                          {"import data", ""}};
    for (const Case& c : cases) {
        run.Write("ask", std::string(". ./bash; COMP_WORDS=(kelvarin-import ") + c.Words +
                             "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _kelvarin_import; "
                             "printf '%s ' \"${COMPREPLY[@]}\" >answer");
        const std::string command = "cd '" + run.Folder.NativePath("").string() + "' && bash ask";
        ASSERT_EQ(std::system(command.c_str()), 0) << c.Words;
        const std::string answer = run.Folder.Read("answer");
        EXPECT_EQ(answer == " " ? "" : answer, c.Expected) << c.Words;
    }
    EXPECT_EQ(run({"completion", "tcsh"}).Status, 2);
}

TEST(Shell, TellsInGermanAndWithoutColourInAFile) {
    const ProgramRun run;
    run.Write("a.csv", "t;n\n01.02.2024 10:00:00;1.5\n");
    const ProgramResult report = run({"analyze", "--language", "de", "a.csv"});
    EXPECT_NE(report.Out.find("getrennt durch Semikolon; Kopf in Zeile 1, Daten ab Zeile 2"),
              std::string::npos)
        << report.Out;
    EXPECT_EQ(report.Out.find('\033'), std::string::npos);
    EXPECT_EQ(run({"--language", "de", "--frob", "a.csv"}).Err.substr(0, 61),
              "kelvarin-import: Das Argument --frob ist hier nicht vorgesehe");
}
