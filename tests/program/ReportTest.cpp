// What people read: the text report as a whole, and the advice when no row has a timestamp.
#include <gtest/gtest.h>

#include "program/ProgramRun.h"

namespace {

constexpr const char* GermanFile =
    "Prüfstand 7\n"
    "Zeit;Drehzahl;Druck;Wort;An;Text\n"
    "01.02.2024 10:00:00;800 U/min;1,5;0x1A;1;a\n"
    "01.02.2024 10:00:01;810 U/min;-1,75;0xFF;0;\n"
    "01.02.2024 10:00:01;820 U/min;2;0xFF;0;b\n"
    "01.02.2024 10:00:03,25;? U/min;2;0xFF;2;b\n";

TEST(Report, ShowsFormatColumnsSignalsTimeAndMessages) {
    const ProgramRun run;
    run.Write("bench.csv", GermanFile);
    const ProgramResult result =
        run({"--no-guess", "--set", "TimestampFormat=TT.MM.JJJJ hh:mm:ss,000", "bench.csv"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Err, "");
    EXPECT_EQ(result.Out,
              "bench.csv\n"
              "  format    separated by semicolon; header in line 2, data from line 3\n"
              "  columns\n"
              "    1  Datum / Uhrzeit  timestamp\n"
              "    2  Drehzahl         text\n"
              "    3  Druck            float\n"
              "    4  Wort             hexadecimal\n"
              "    5  An               integer\n"
              "    6  Text             text\n"
              "  signals   5 from 4 lines\n"
              "    Drehzahl  text     3  samples  \"800 U/min\"  ->  \"? U/min\"\n"
              "    Druck     float    3  samples          1.5  ->          2  ▇▁█ -1.75 .. 2\n"
              "    Wort      integer  3  samples           26  ->        255  ▁██ 26 .. 255\n"
              "    An        integer  3  samples            1  ->          2  ▅▁█ 0 .. 2\n"
              "    Text      text     3  samples          \"a\"  ->        \"b\"\n"
              "  time      2024-02-01 10:00:00 to 2024-02-01 10:00:03.25, span 00:00:03.25\n"
              "  messages\n"
              "    Für den Datensatz in Zeile 5 konnte kein gültiger Zeitstempel importiert bzw. generiert "
              "werden.\n"
              "      line 5\n");
}

TEST(Report, GroupsMessagesAndCountsTheRest) {
    const ProgramRun run;
    std::string file = "n\n";
    for (int i = 0; i < 499; ++i) file += "10\n";
    for (int i = 0; i < 150; ++i) file += "wrong\n\n";
    run.Write("wrong.csv", file);
    const ProgramResult result =
        run({"--set", "TimeSetting=1", "--set", "DateSetting=2", "--set", "AutoFormat=0", "wrong.csv"});
    EXPECT_EQ(result.Status, 0);
    const std::size_t messages = result.Out.find("  messages\n");
    ASSERT_NE(messages, std::string::npos) << result.Out;
    EXPECT_EQ(result.Out.substr(messages),
              "  messages\n"
              "    Der Wert 'wrong' des Signals 'n' in Zeile 501 ist nicht vom Typ 'Ganzzahl'.\n"
              "      lines 501, 503, 505, 507, 509, 511, 513, 515, ... (150 in all)\n");
    EXPECT_NE(result.Out.find("150 without value"), std::string::npos) << result.Out;
}

TEST(Report, EndsWithAdviceWhereNoRowHasATime) {
    const ProgramRun run;
    run.Write("data.csv", "t,u,v\n2024-02-01,100000,1\n2024-02-01,100001,2\n");
    const ProgramResult untouched = run.Command("--no-guess data.csv");
    const std::size_t advice = untouched.Out.find("  advice    no row has a timestamp");
    ASSERT_NE(advice, std::string::npos) << untouched.Out;
    EXPECT_EQ(untouched.Out.find('\n', advice), untouched.Out.size() - 1) << "the advice is one line";
    const std::string options = untouched.Out.substr(untouched.Out.find("--set", advice));
    const ProgramResult advised = run.Command("--no-guess data.csv " + options.substr(0, options.find('\n')));
    EXPECT_NE(advised.Out.find("\n  time      "), std::string::npos) << options << advised.Out;
    EXPECT_EQ(advised.Out.find("Zeitstempel"), std::string::npos) << advised.Out;
}

}  // namespace
