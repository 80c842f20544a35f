// What is found of a file by itself, how sure that is, and that the run follows it.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

struct GuessCase {
    const char* File;
    const char* Format;  // of the settings; empty for a fixed interval or a copy
    const char* Certainty;
    const char* Objection;  // part of one, or empty if there must be none
    std::size_t Count;      // samples of the last signal
    std::int64_t First;     // time of its first sample in seconds, -1 for relative time
};

TEST(Automatic, FollowsWhatTheRowsTell) {
    const GuessCase cases[] = {
        // The zone of these runs is an hour ahead of UTC.
        {"t;v\n01.02.2024 10:00:00;1\n13.02.2024 10:00:00;2\n14.02.2024 10:00:00;3\n15.02.2024 10:00:00;4\n",
         "TT.MM.JJJJ hh:mm:ss", "certain", "", 4, 1706778000},
        {"t,u,v\n2024-02-01,100000,1\n2024-02-01,100001,2\n2024-02-01,100002,2\n2024-02-01,100003,2\n",
         "JJJJ-MM-TT,hhmmss", "certain", "", 4, 1706778000},
        // The day is the one that makes even steps, or the one above 12; or nothing tells.
        {"t,v\n09/01/2024 23:50,1\n10/01/2024 00:00,2\n10/01/2024 00:10,3\n10/01/2024 00:20,4\n",
         "TT/MM/JJJJ hh:mm", "likely", "distances", 4, 1704840600},
        {"t,v\n01/02/2024,1\n01/05/2024,2\n01/12/2024,3\n01/13/2024,4\n", "MM/TT/JJJJ", "certain", "", 4,
         1704150000},
        {"t,v\n01/02/2024 10:00,1\n01/02/2024 10:01,2\n01/02/2024 10:02,3\n01/02/2024 10:03,4\n",
         "TT/MM/JJJJ hh:mm", "guess", "swapped", 4, 1706778000},
        // Rows that an import loses, and rows that a copy puts in order.
        {"t;v\n01.02.2024;1\n01.02.2024;2\n01.02.2024;3\n02.02.2024;4\n", "TT.MM.JJJJ", "guess", "repeat", 2,
         1706742000},
        {"t;v\n04.02.2024;1\n03.02.2024;2\n02.02.2024;3\n01.02.2024;4\n", "", "likely", "newest", 4,
         1706742000},
        {"t;v\n13.02.2024;1\n14.02.2024;2\n15.02.2024;3\nsum;6\n", "TT.MM.JJJJ", "guess", "without a time", 3,
         1707778800},
        // Numbers: the unit from the name, else from the size; or seconds since 1970.
        {"x;time [ms];v\na;0,5;1\na;0,75;2\na;1,25;3\na;2;4\n", "[ms],000", "certain", "", 4, -1},
        {"n;t;v\nx;0,5;1\nx;0,75;2\nx;1,25;3\n", "[s],000", "guess", "unit is not named", 3, -1},
        {"Stamp,v\n166064000,1\n166074000,2\n166074000,3\n166134000,4\n", "[µs]", "guess",
         "unit is not named", 3, -1},
        {"t,v\n1706778000.25,1\n1706778001,2\n1706778002,3\n1706778003,4\n", "[s].000", "certain", "", 4,
         1706778000},
        // Two times in a cell: the rows get the earlier.
        {"t,v\n2024-02-01 10:00 to 2024-02-01 11:00,1\n2024-02-01 11:00 to 2024-02-01 12:00,2\n"
         "2024-02-01 12:00 to 2024-02-01 13:00,3\n2024-02-01 13:00 to 2024-02-01 14:00,4\n",
         "", "certain", "", 4, 1706778000},
        // The German day is a T, so that the format is an English one; a zone is applied.
        {"t;v\n2024-02-01T10:00:00;1\n2024-02-01T10:00:10;2\n2024-02-01T10:00:20;3\n", "YYYY-MM-DDThh:mm:ss",
         "likely", "3 rows", 3, 1706778000},
        {"t;v\n2024-02-01 10:00:00Z;1\n2024-02-01 10:00:10Z;2\n2024-02-01 10:00:20Z;3\n2024-02-01 "
         "10:00:30Z;4\n",
         "JJJJ-MM-TT hh:mm:ssZ", "certain", "", 4, 1706781600},
        {"t;v\n2024-02-01T10:00:00Z;1\n2024-02-01T10:00:10Z;2\n2024-02-01T10:00:20Z;3\n2024-02-01T10:00:30Z;"
         "4\n",
         "YYYY-MM-DDThh:mm:ssZ", "certain", "", 4, 1706781600},
        {"t;v\n2024-02-01T10:00:00+02:00;1\n2024-02-01T10:00:10+02:00;2\n2024-02-01T10:00:20+02:00;3\n", "",
         "likely", "3 rows", 3, 1706774400},
        // Times that no format reads, and none.
        {"nm;v\n325;3\n326;2\n327;1\n", "", "guess", "names the interval", 3, -1},
    };
    for (const GuessCase& c : cases) {
        SCOPED_TRACE(c.File);
        const ProgramRun run;
        run.Write("data.csv", c.File);
        const ProgramResult result = run({"--json", "--samples", "1", "data.csv"});
        ASSERT_EQ(result.Status, 0) << result.Err;
        const Json document = Json::parse(result.Out);
        const Json& guess = document["guess"];
        EXPECT_EQ(guess["settings"].value("TimestampFormat", ""), c.Format);
        EXPECT_EQ(guess["certainty"], c.Certainty) << guess.dump();
        const std::string objections = guess["objections"].dump();
        EXPECT_NE(objections.find(c.Objection), std::string::npos) << objections;
        EXPECT_EQ(*c.Objection == '\0', guess["objections"].empty()) << objections;
        const Json& signal = document["signals"].back();
        EXPECT_EQ(signal["count"], c.Count);
        const std::int64_t first = signal["samples"][0][0].get<std::int64_t>() / 1'000'000'000;
        constexpr std::int64_t RelativeStart = 315'529'200;
        EXPECT_EQ(first < 2 * RelativeStart ? -1 : first, c.First);
        if (guess["settings"].empty()) continue;
        // The printed options alone do the same.
        const std::string options = guess["options"];
        const ProgramResult again = run.Command("--json --samples 1 data.csv " + options);
        EXPECT_EQ(Json::parse(again.Out)["signals"].dump(), document["signals"].dump()) << options;
    }
}

// The module adds up the digits of a fraction and cuts off what their sum lacks: times with more than three
// of them are read as whole numbers, or from a copy.
TEST(Automatic, IsRightToTheNanosecond) {
    struct Case {
        const char* First;  // and the next: times of rows, 0.000129 s after the whole second
        const char* Next;
        const char* Format;
        std::int64_t Fraction;
    };
    const Case cases[] = {
        {"2024-02-01 10:00:00.000129", "2024-02-01 10:00:01.000129", "JJJJ-MM-TT hh:mm:ss.[µs]", 129'000},
        {"2024-02-01T10:00:00.000129", "2024-02-01T10:00:01.000129", "YYYY-MM-DDThh:mm:ss.[µs]", 129'000},
        {"2024-02-01 10:00:00.000129001", "2024-02-01 10:00:01.000129001", "JJJJ-MM-TT hh:mm:ss.[ns]",
         129'001},
        {"2024-02-01 10:00:00.0111", "2024-02-01 10:00:01.0111", "", 11'100'000},
        {"2024-02-01 10:00:00.111", "2024-02-01 10:00:01.111", "JJJJ-MM-TT hh:mm:ss.000", 111'000'000},
        {"7.000129", "8.000129", "ss.[µs]", 129'000},
        {"7.0001290", "8.0001290", "", 129'000},
        {"1706778000.000129001", "1706778001.000129001", "ss.[ns]", 129'001},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.First);
        const ProgramRun run;
        run.Write("data.csv", std::string("time [s],v\n") + c.First + ",1\n" + c.Next + ",2\n");
        const Json document = Json::parse(run({"--json", "--samples", "all", "data.csv"}).Out);
        EXPECT_EQ(document["guess"]["settings"].value("TimestampFormat", ""), c.Format);
        constexpr std::int64_t Second = 1'000'000'000;
        ASSERT_EQ(document["signals"][0]["samples"].size(), 2u);
        for (const Json& sample : document["signals"][0]["samples"])
            EXPECT_EQ(sample[0].get<std::int64_t>() % Second, c.Fraction);
    }
}

// What the rows that are looked at don't show: a decimal late in a column of whole numbers, of which the
// module would take the mark out.
TEST(Automatic, TakesLateDecimalsForWhatTheyAre) {
    for (const char* const late : {"1.5", "1e-3", "-0.25"}) {
        SCOPED_TRACE(late);
        const ProgramRun run;
        std::string file = "time [s],v\n";
        for (int i = 0; i < 30'000; ++i)
            file += std::to_string(i) + "," + (i == 7776 ? late : std::to_string(i % 97)) + "\n";
        run.Write("data.csv", file);
        const Json document = Json::parse(run({"--json", "--samples", "all", "data.csv"}).Out);
        const Json& signal = document["signals"][0];
        ASSERT_EQ(signal["count"], 30'000);
        EXPECT_EQ(signal["samples"][7776][1].get<double>(), std::stod(late));
    }
}

// What is chosen stays, and the rest is found: the table and the columns, but no other times.
TEST(Automatic, StepsBackBehindWhatTheUserSet) {
    const ProgramRun run;
    run.Write("data.csv", "note\nt;v\n2024-02-01;1\n2024-02-02;0\n");
    const std::string set = "TimestampFormat=JJJJ-TT-MM";
    const Json document = Json::parse(run({"--json", "--set", set, "data.csv"}).Out);
    EXPECT_EQ(document["guess"]["settings"]["FirstLine"], "2");
    EXPECT_FALSE(document["guess"]["settings"].contains("TimestampFormat"));
    EXPECT_EQ(document["signals"][0]["count"], 2) << "2 January lies a month behind 1 January";
    EXPECT_EQ(document["guess"]["basis"], "") << "nothing is said of times that the user has set";
    for (const Json& one : document["guess"]["assumed"]) {
        EXPECT_NE(one["kind"], "times") << one;
        EXPECT_NE(one["kind"], "rows") << one;
    }
    EXPECT_FALSE(Json::parse(run({"--no-guess", "--json", "data.csv"}).Out).contains("guess"));
    const std::string table = "FirstLine=2";
    const Json byTable = Json::parse(run({"--json", "--set", table, "data.csv"}).Out);
    EXPECT_EQ(byTable["guess"]["settings"]["TimestampFormat"], "JJJJ-MM-TT") << byTable.dump();
    EXPECT_FALSE(byTable["guess"]["settings"].contains("FirstLine"));
    // Both are said: nothing is looked for, unless to be saved.
    EXPECT_FALSE(
        Json::parse(run({"--json", "--set", table, "--set", set, "data.csv"}).Out).contains("guess"));
}

// The printed option takes the other table, and the first one is then the other.
TEST(Automatic, ListsTheOtherTablesOfAFile) {
    const ProgramRun run;
    std::string file = "t [s];u;v\n";
    for (int i = 0; i < 20; ++i) file += std::to_string(i) + ";1;2\n";
    run.Write("data.csv", file + "\nTime [s];Mean\n0;5\n10;6\n20;7\n");
    const Json first = Json::parse(run({"--json", "data.csv"}).Out);
    EXPECT_EQ(first["signals"][0]["count"], 20) << first;
    ASSERT_EQ(first["guess"]["otherTables"].size(), 1u) << first["guess"];
    EXPECT_EQ(first["guess"]["otherTables"][0].dump(),
              R"({"firstLine":23,"lastLine":26,"columns":2,"rows":3,"options":"--set FirstLine=23"})");
    const Json other = Json::parse(run({"--json", "--set", "FirstLine=23", "data.csv"}).Out);
    EXPECT_EQ(other["signals"][0]["symbol"], "Mean") << other;
    EXPECT_EQ(other["signals"][0]["count"], 3) << other;
    EXPECT_EQ(other["guess"]["otherTables"][0]["firstLine"], 1) << other["guess"];
}

// What reports say in words, in every language, and not what the module alone makes of a file.
TEST(Automatic, TellsScriptsWhatSignalsAndTimesAre) {
    struct Case {
        const char* File;
        bool IsRelative;
    };
    const Case cases[] = {{"t [s];n;h\n0;7;0x1A\n1;8;0xFF\n2;9;0xFE\n3;9;0xFE\n", true},
                          {"t;n;h\n2024-02-01;7;0x1A\n2024-02-02;8;0xFF\n2024-02-03;9;0xFE\n", false},
                          {"t;n;h\n2024-02-01T10:00;7;0x1A\n2024-02-02T10:00;8;0xFF\n", false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.File);
        const ProgramRun run;
        run.Write("data.csv", c.File);
        const Json document = Json::parse(run({"--json", "data.csv"}).Out);
        EXPECT_EQ(document["relativeTime"], c.IsRelative);
        EXPECT_EQ(Json::parse(run({"check", "--json", "data.csv"}).Out)["relativeTime"], c.IsRelative);
        std::string signals;
        for (const Json& signal : document["signals"])
            signals += signal["column"].dump() + (signal["hexadecimal"] == true ? " hex;" : ";");
        EXPECT_EQ(signals, "2;3 hex;");
        const Json alone = Json::parse(run({"--no-guess", "--json", "data.csv"}).Out);
        EXPECT_FALSE(alone.contains("relativeTime"));
    }
}

TEST(Automatic, CountsFrom1970InUtc) {
    const ProgramRun run;
    run.Write("data.csv", "t,v\n1706778000.25,1\n1706778001,2\n1706778002,3\n1706778003,4\n");
    const Json first = Json::parse(run({"--save", "--json", "--samples", "1", "data.csv"}).Out);
    EXPECT_EQ(first["guess"]["settings"]["StartDate"], "0");
    EXPECT_EQ(first["signals"][0]["samples"][0][0], 1706778000250000000);
    const Json later = Json::parse(run({"--json", "--samples", "1", "data.csv"}).Out);
    EXPECT_EQ(later["signals"].dump(), first["signals"].dump());
}

// With a header and without one the next run reads the same rows.
TEST(Automatic, SavedServesEveryLaterRun) {
    for (const char* const header : {"t;v\n", ""}) {
        const ProgramRun run;
        run.Write("data.csv", std::string(header) + "2024-02-01;1,5\n2024-02-02;2\n2024-02-03;2\n");
        const Json first = Json::parse(run({"--save", "--json", "data.csv"}).Out);
        EXPECT_EQ(std::filesystem::path(first["guess"]["saved"].get<std::string>()).filename(),
                  "data.csv.info");
        const Json later = Json::parse(run({"--json", "data.csv"}).Out);
        EXPECT_EQ(later["signals"].dump(), first["signals"].dump()) << header;
        EXPECT_EQ(later["signals"][0]["count"], 3) << header;
        const std::string sidecar = run.Folder.Read("data.csv.info");
        const ProgramResult again = run({"--guess-time", "--save", "--set", "AutoFormat=1", "data.csv"});
        EXPECT_NE(again.Out.find("not saved: data.csv.info exists already"), std::string::npos) << again.Out;
        EXPECT_EQ(run.Folder.Read("data.csv.info"), sidecar);
    }
}

// A file whose time fits no format, with an empty cell, a marker and a unit in a name.
constexpr const char* Logger =
    "Logger 7\n"
    "Zeit;Druck [bar];Zustand;Ventil\n"
    "2024-02-01T10:00:02;1,5;a;0\n"
    "2024-02-01T10:00:00;;b;1\n"
    "2024-02-01T10:00:01;n/a;c;7\n";

// Line by line: symbol, unit, type and samples.
std::string SignalsOf(const std::string& document) {
    std::string lines;
    const Json parsed = Json::parse(document);
    for (const Json& signal : parsed["signals"]) {
        lines += signal["symbol"].get<std::string>() + "|" + signal["unit"].get<std::string>() + "|" +
                 signal["type"].dump();
        for (const Json& sample : signal.value("samples", Json::array())) lines += "|" + sample[1].dump();
        lines += "\n";
    }
    return lines;
}

TEST(Automatic, ReadsACopyWhereNoSettingsDo) {
    const ProgramRun run;
    run.Write("data.csv", Logger);
    const ProgramResult result = run({"--json", "--samples", "all", "data.csv"});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(SignalsOf(result.Out),
              "Druck [bar]|bar|13|null|null|1.5\n"
              "Zustand||19|98|99|97\n"
              "Ventil||15|1|7|0\n");
    const Json document = Json::parse(result.Out);
    EXPECT_EQ(document["device"]["name"], "data.csv");
    EXPECT_EQ(document["guess"]["settings"].dump(), "{}");
    EXPECT_EQ(document["guess"]["assumed"].back()["kind"], "copy");
    EXPECT_EQ(run.Folder.Names(), "data.csv");
    const Json analysis = Json::parse(run({"analyze", "--json", "data.csv"}).Out);
    const std::string description = analysis["settings"]["Description"];
    EXPECT_TRUE(description.ends_with(" data.csv")) << description;
    // Nothing of it can be kept in a sidecar.
    const ProgramResult saved = run({"--save", "data.csv"});
    EXPECT_EQ(saved.Status, 1);
    EXPECT_NE(saved.Err.find("no sidecar can say"), std::string::npos) << saved.Err;
}

// Numbers of lines are those of the file, also where the copy has others.
TEST(Automatic, NamesTheLinesOfTheFile) {
    const ProgramRun run;
    std::string file = "t,v\n";
    for (int i = 0; i < 40; ++i) file += "2024-02-01T10:00:" + std::to_string(59 - i) + ",1.5\n";
    file += "2024-02-01T10:00:10,?!\n2024-02-01T10:00:59,2\n";
    run.Write("data.csv", file);
    const Json checked = Json::parse(run({"check", "--json", "data.csv"}).Out);
    EXPECT_EQ(checked["columns"][0]["refused"]["first"][0]["line"], 42) << checked.dump();
    const Json& reasons = checked["dropped"]["reasons"];
    ASSERT_EQ(reasons.size(), 1u) << reasons.dump();
    EXPECT_EQ(reasons.begin().value()["first"][0]["line"], 43) << reasons.dump();
}

TEST(Automatic, TakesWhatIsSaidOfSingleColumns) {
    struct Case {
        std::string Options;
        const char* Signals;
        const char* Complaint;
    };
    const Case cases[] = {
        {"--type Ventil=float --unit 3=V", "Druck [bar]|bar|13\nVentil|V|13\n", ""},
        {"--name 3=Klappe --skip 'Druck [bar]'", "Klappe||15\n", ""},
        {"--name Ventil=Klappe --type Ventil=text", "Druck [bar]|bar|13\nKlappe||22\n", ""},
        {"--no-guess --skip Ventil --set TimestampFormat=JJJJ-MM-TT", "Druck [bar]||13\n", ""},
        {"--skip Klappe", "Druck [bar]|bar|13\nVentil||15\n", "there is no column 'Klappe'"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Options);
        const ProgramRun run;
        run.Write("data.csv", "Zeit;Druck [bar];Ventil\n2024-02-01;1,5;0\n2024-02-02;2,5;3\n");
        const ProgramResult result = run.Command("--json data.csv " + c.Options);
        EXPECT_EQ(SignalsOf(result.Out), c.Signals);
        EXPECT_NE(result.Err.find(c.Complaint), std::string::npos) << result.Err;
        EXPECT_EQ(result.Status, *c.Complaint == '\0' ? 0 : 1);
    }
}

// Names and units stand in no sidecar; they are kept beside it, and nothing else is left.
TEST(Automatic, KeepsColumnsBesideTheSidecar) {
    const ProgramRun run;
    run.Write("data.csv", "Zeit;Druck [bar];Ventil\n2024-02-01;1,5;0\n2024-02-02;;3\n");
    const Json first = Json::parse(run({"--save", "--json", "data.csv"}).Out);
    EXPECT_EQ(first["signals"][0]["unit"], "bar");
    EXPECT_EQ(run.Folder.Names(), "data.csv data.csv.columns data.csv.info");
    const Json later = Json::parse(run({"--json", "data.csv"}).Out);
    EXPECT_FALSE(later.contains("guess"));
    EXPECT_EQ(later["signals"].dump(), first["signals"].dump());
}

TEST(Automatic, EndsWithStatusThreeWithoutASample) {
    const ProgramRun run;
    run.Write("data.csv", "t;v\nx;1\ny;2\n");
    const ProgramResult result = run({"--no-guess", "--set", "TimestampFormat=JJJJ", "data.csv"});
    EXPECT_EQ(result.Status, 3);
    EXPECT_TRUE(result.Out.starts_with("data.csv: not one sample is stored, since no row has a time;"))
        << result.Out;
}

}  // namespace
