// Real files of other people, from the command line to the samples.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

struct DataCase {
    const char* File;
    std::vector<std::string> Options;
    const char* Separator;  // index
    const char* Header;     // line
    std::size_t Signals;
    int Samples;        // of the first signal
    const char* First;  // symbol, type, first sample of a signal that tells much
    std::size_t Index;  // of that signal
    std::size_t Messages;
};

TEST(DataFiles, GiveWhatAPersonSeesInThem) {
    const DataCase cases[] = {
        {"clear-sky.csv",
         {"--set", "TimestampFormat=M/T/JJJJ hh:mm"},
         "1",
         "5",
         2,
         121,
         "GHI 13 [1333294200000000000,862.0935267144818]",
         0,
         0},
        {"german-power-meter.csv",
         {"--set", "TimestampFormat=TT.MM.JJJJ hh:mm"},
         "0",
         "5",
         1,
         144,
         "SB 3300 22 [1698793200000000000,\"\"]",
         0,
         4},
        {"cell-counter-utf16be.csv",
         {"--set", "TimestampFormat=M/T/JJJJ hh:mm", "--set", "DateColumn=27", "--set", "TimeColumn=27"},
         "1",
         "1",
         32,
         9,
         "Average diameter (μm) 13 [1647878160000000000,18.51]",
         6,
         1},
        {"wind-mast-bom.csv",
         {"--set", "TimestampFormat=TT/MM/JJJJ hh:mm:ss+0:0"},
         "1",
         "4",
         32,
         188,
         "Avg 13 [1452349800000000000,8.37]",
         3,
         0},
    };
    for (const DataCase& c : cases) {
        SCOPED_TRACE(c.File);
        const ProgramRun run;
        const std::string path = std::string(KELVARIN_TEST_DATA) + "/" + c.File;
        const Json found = Json::parse(run({"analyze", "--json", path}).Out, nullptr, false);
        ASSERT_FALSE(found.is_discarded());
        EXPECT_EQ(found["settings"]["Separator"].dump(), c.Separator);
        EXPECT_EQ(found["settings"]["FirstLine"].dump(), c.Header);
        EXPECT_EQ(found["settings"]["ImportHeader"], 1);

        std::vector<std::string> arguments = c.Options;
        arguments.insert(arguments.end(), {"--json", "--samples", "1", path});
        const Json document = Json::parse(run(arguments).Out, nullptr, false);
        ASSERT_FALSE(document.is_discarded());
        ASSERT_EQ(document["signals"].size(), c.Signals);
        EXPECT_EQ(document["signals"][0]["count"], c.Samples);
        const Json& signal = document["signals"][c.Index];
        EXPECT_EQ(signal["symbol"].get<std::string>() + " " + signal["type"].dump() + " " +
                      signal["samples"][0].dump(),
                  c.First);
        EXPECT_EQ(document["messages"].size(), c.Messages) << document["messages"].dump();
    }
}

}  // namespace
