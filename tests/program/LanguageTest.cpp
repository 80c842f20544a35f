// The language of a run, from the option or the environment.
#include <gtest/gtest.h>

#include "program/ProgramRun.h"

TEST(Language, DecidesTextsAndFormatLetters) {
    ProgramRun run;
    run.Write("a.csv", "t;n\n01.02.2024 10:00:00;1.5\n01.02.2024 10:00:01;x\n");
    const std::string german = "--set 'TimestampFormat=TT.MM.JJJJ hh:mm:ss' ";
    const std::string english = "--set 'TimestampFormat=DD.MM.YYYY hh:mm:ss' ";
    const std::pair<std::string, const char*> cases[] = {
        {german, "\"name\":\"Spalte 2\""},
        {german + "--language de", "\"count\":2"},
        {english + "--language en", "\"name\":\"Column 2\""},
        {english + "--language=en", "\"count\":2"},
        {german + "--language en", "No valid timestamp could be imported or generated"},
    };
    for (const auto& [options, expected] : cases) {
        const ProgramResult result = run.Command("import --json a.csv " + options);
        EXPECT_NE(result.Out.find(expected), std::string::npos) << expected << " in " << result.Out;
    }
}
