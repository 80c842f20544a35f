// Files of one kind that are read alike, and the plan that is kept for the next ones.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program/ProgramRun.h"

namespace {
using Json = nlohmann::ordered_json;

std::vector<Json> Documents(const std::string& lines) {
    std::vector<Json> all;
    for (std::size_t begin = 0; begin < lines.size();) {
        const std::size_t end = lines.find('\n', begin);
        all.push_back(Json::parse(lines.substr(begin, end - begin), nullptr, false));
        begin = end + 1;
    }
    return all;
}

// The types of the signals, and the first time: "15 13 @ 1714816800000000000".
std::string Outcome(const Json& document) {
    std::string text;
    for (const Json& signal : document.at("signals")) text += signal.at("type").dump() + " ";
    if (!document.at("signals").empty())
        text += "@ " + document.at("signals").at(0).at("samples").at(0).at(0).dump();
    return text;
}

std::string AssumedOf(const Json& document, const std::string& kind) {
    for (const Json& one : document.at("guess").value("assumed", Json::array())) {
        if (one.at("kind") == kind) return one.at("text").get<std::string>();
    }
    return {};
}

class SharedPlans : public testing::Test {
  protected:
    SharedPlans() {
        std::filesystem::create_directories(Run.Folder.NativePath("d"));
        Run.Write("d/1.csv", "When;n;x\n04/05/2024 10:00:00;0;1\n04/05/2024 10:00:01;1;2\n");
        Run.Write("d/2.csv", "Logger 7\n\nWhen;n;x\n05/13/2024 10:00:00;7;1.5\n05/13/2024 10:00:01;1;2\n");
        Run.Write("d/3.csv", "When;n;y\n04/05/2024 10:00:00;0;1\n04/05/2024 10:00:01;1;2\n");
    }

    std::vector<Json> Import(std::vector<std::string> more, int status = 0) const {
        std::vector<std::string> arguments = {"import", "--json", "--samples", "1"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const ProgramResult result = Run(arguments);
        EXPECT_EQ(result.Status, status) << result.Err;
        return Documents(result.Out);
    }

    const ProgramRun Run;
};

// 5 April, as the other file proves; alone it would be 4 May.
TEST_F(SharedPlans, IsFoundOverAllFilesAndNamesThoseOfOtherKinds) {
    for (const bool spread : {false, true}) {
        SCOPED_TRACE(spread);
        const auto all =
            Import(spread ? std::vector<std::string>{"--jobs", "2", "d"} : std::vector<std::string>{"d"});
        ASSERT_EQ(all.size(), 3u);
        const std::string first = Outcome(all[0]);
        EXPECT_EQ(first.substr(0, first.find('@')), "15 13 ");
        EXPECT_EQ(AssumedOf(all[0], "files"),
                  "one of 2 files of one kind, all read alike; 2.csv shows the order of day and month");
        EXPECT_EQ(AssumedOf(all[1], "files"), "one of 2 files of one kind, all read alike");
        EXPECT_EQ(AssumedOf(all[0], "times"), "date and time in column 1 (\"When\"), month before day");
        EXPECT_EQ(AssumedOf(all[2], "files"), "none of the other 2 files is of its kind");
        EXPECT_EQ(Outcome(all[2]).substr(0, 6), "0 15 @");
    }
}

TEST_F(SharedPlans, IsKeptForTheFilesOfTheNextMonth) {
    const auto found = Import({"--plan", "day.plan", "d/1.csv", "d/2.csv"});
    ASSERT_EQ(found.size(), 2u);
    Run.Write("next.csv", "When;n;x\n06/07/2024 10:00:00;1;1\n06/07/2024 10:00:01;1;2\n");
    Run.Write("wide.csv", "When;n;x\n06/07/2024 10:00:00;1.5;1\n06/07/2024 10:00:01;1;2\n");
    const auto next = Import({"--plan", "day.plan", "next.csv"});
    ASSERT_EQ(next.size(), 1u);
    EXPECT_EQ(AssumedOf(next[0], "files"),
              "read by the plan in day.plan; 2.csv shows the order of day and month");
    EXPECT_EQ(Outcome(next[0]).substr(0, 7), "15 13 @");
    const struct {
        const char* File;
        int Status;
        const char* Error;
    } cases[] = {
        {"d/3.csv", 1,
         "d/3.csv: not read, as it is not like the files of the plan: column 3 is \"y\", not \"x\""},
        {"wide.csv", 3,
         "wide.csv: unlike the files of the plan: column 2 (\"n\") holds decimal numbers, not whole numbers"},
    };
    for (const auto& c : cases) {
        for (const char* const command : {"import", "analyze", "check"}) {
            SCOPED_TRACE(std::string(command) + " " + c.File);
            const ProgramResult result = Run({command, "--json", "--plan", "day.plan", c.File});
            EXPECT_EQ(result.Status, c.Status);
            EXPECT_EQ(result.Err, std::string("kelvarin-import: ") + c.Error + "\n");
            EXPECT_EQ(Documents(result.Out).size(), 1u);
        }
    }
}

TEST_F(SharedPlans, RefusesWhatIsNoPlan) {
    const ProgramResult made = Run({"analyze", "--plan", "good.plan", "d/1.csv"});
    ASSERT_EQ(made.Status, 0) << made.Err;
    const std::string good = Run.Folder.Read("good.plan");
    const struct {
        const char* From;
        const char* To;
        const char* Key;
    } cases[] = {
        {"\"version\": 1", "\"version\": 2", "version"},
        {"\"unit\": 1000000000", "\"unit\": 0", "unit"},
        {"\"kind\": \"text\"", "\"kind\": \"parts\"", "columns"},
        {"\"kind\": \"text\"", "\"kind\": \"clock\"", "kind"},
        {"\"type\": \"integer\"", "\"type\": 5", "type"},
        {"\"separator\": \";\"", "\"separator\": \";;\"", "separator"},
        {"\"files\": 1", "\"files\": -1", "files"},
        {"\"files\": 1", "\"files\": 18446744073709551615", "files"},
        {"          1\n", "          9\n", "columns"},
        {"{", "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.From) + " -> " + c.To);
        std::string bad = good;
        ASSERT_NE(bad.find(c.From), std::string::npos);
        bad.replace(bad.find(c.From), std::string(c.From).size(), c.To);
        Run.Write("bad.plan", bad);
        const ProgramResult result = Run({"import", "--plan", "bad.plan", "d/1.csv"});
        EXPECT_EQ(result.Status, 1);
        EXPECT_EQ(result.Out, "");
        EXPECT_NE(result.Err.find("bad.plan: it is no reading plan: "), std::string::npos) << result.Err;
        EXPECT_NE(result.Err.find(c.Key), std::string::npos) << result.Err;
    }
    // A plan of other times.
    std::string numbers = good;
    numbers.replace(numbers.find("\"kind\": \"text\""), 14, "\"kind\": \"number\"");
    Run.Write("numbers.plan", numbers);
    const ProgramResult unlike = Run({"import", "--plan", "numbers.plan", "d/1.csv"});
    EXPECT_EQ(unlike.Status, 1);
    EXPECT_NE(unlike.Err.find("its times are date and time in column 1"), std::string::npos) << unlike.Err;
    EXPECT_EQ(Run({"import", "--plan", "d/1.csv", "d/2.csv"}).Status, 1);
    EXPECT_EQ(Run({"import", "--plan", "new.plan", "--no-guess", "d/2.csv"}).Status, 2);
}
}  // namespace
