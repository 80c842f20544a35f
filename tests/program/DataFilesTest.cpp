// Real files of other people, from the command line to the samples.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program/ProgramRun.h"

namespace {

using Json = nlohmann::ordered_json;

TEST(DataFiles, GiveWhatAPersonSeesInThem) {
    struct Case {
        const char* File;
        std::string Options;
        const char* Found;  // separator, header line, signals, samples of each, messages
        std::size_t Index;  // of a signal that tells much
        const char* First;  // its symbol, type and first sample
    };
    const Case cases[] = {
        {"clear-sky.csv", "--set 'TimestampFormat=M/T/JJJJ hh:mm'", "1 5 2 121 0", 0,
         "GHI 13 [1333294200000000000,862.0935267144818]"},
        {"german-power-meter.csv", "--set 'TimestampFormat=TT.MM.JJJJ hh:mm'", "0 5 1 144 4", 0,
         "SB 3300 22 [1698793200000000000,\"\"]"},
        {"cell-counter-utf16be.csv",
         "--set 'TimestampFormat=M/T/JJJJ hh:mm' --set DateColumn=27 --set TimeColumn=27", "1 1 32 9 1", 6,
         "Average diameter (μm) 13 [1647878160000000000,18.51]"},
        {"wind-mast-bom.csv", "--set 'TimestampFormat=TT/MM/JJJJ hh:mm:ss+0:0'", "1 4 32 188 0", 3,
         "Avg 13 [1452349800000000000,8.37]"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.File);
        const ProgramRun run;
        const std::string path = std::string(KELVARIN_TEST_DATA) + "/" + c.File;
        const Json settings = Json::parse(run({"analyze", "--no-guess", "--json", path}).Out)["settings"];
        const std::string import = "--no-guess --json --samples 1 '" + path + "' " + c.Options;
        const Json document = Json::parse(run.Command(import).Out);
        const Json& signals = document["signals"];
        ASSERT_GT(signals.size(), c.Index);
        EXPECT_EQ(settings["Separator"].dump() + " " + settings["FirstLine"].dump() + " " +
                      std::to_string(signals.size()) + " " + signals[0]["count"].dump() + " " +
                      std::to_string(document["messages"].size()),
                  c.Found);
        const Json& signal = signals[c.Index];
        EXPECT_EQ(signal["symbol"].get<std::string>() + " " + signal["type"].dump() + " " +
                      signal["samples"][0].dump(),
                  c.First);
    }
}

}  // namespace
