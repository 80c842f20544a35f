// The language of a run, from the option or the environment.
#include <gtest/gtest.h>

#include "program/ProgramRun.h"

TEST(Language, DecidesTextsAndFormatLetters) {
    ProgramRun run;
    run.Write("a.csv", "t;n\n01.02.2024 10:00:00;1.5\n01.02.2024 10:00:01;x\n");
    struct Case {
        std::vector<std::string> Arguments;
        std::string Format;
        std::string Expected;
    };
    const Case cases[] = {
        {{}, "TT.MM.JJJJ hh:mm:ss", "\"name\":\"Spalte 2\""},
        {{"--language", "de"}, "TT.MM.JJJJ hh:mm:ss", "\"count\":2"},
        {{"--language", "en"}, "DD.MM.YYYY hh:mm:ss", "\"name\":\"Column 2\""},
        {{"--language=en"}, "DD.MM.YYYY hh:mm:ss", "\"count\":2"},
        {{"--language", "en"}, "TT.MM.JJJJ hh:mm:ss", "No valid timestamp could be imported or generated"},
    };
    for (const Case& c : cases) {
        std::vector<std::string> arguments = {"import", "--json", "--set", "TimestampFormat=" + c.Format};
        arguments.insert(arguments.end(), c.Arguments.begin(), c.Arguments.end());
        arguments.push_back("a.csv");
        const ProgramResult result = run(arguments);
        EXPECT_NE(result.Out.find(c.Expected), std::string::npos) << c.Expected << " in " << result.Out;
    }
}
