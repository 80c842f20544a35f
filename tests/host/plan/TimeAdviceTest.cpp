// What is advised where no row of a run has a time, with the built module.
#include "host/plan/TimeAdvice.h"

#include <gtest/gtest.h>

#include "kit/HostModule.h"
#include "kit/Workdir.h"

namespace {

using kelvarin::RemedyAction;
using Settings = kelvarin::SettingList;

constexpr const char* Days = "t;v\n2024-01-30;1\n2024-01-31;2\n2024-02-01;3\n2024-02-02;4\n";

struct AdviceCase {
    const char* Table;
    const char16_t* FormatInForce;
    const char* Text;
    Settings Expected;
    RemedyAction Action = RemedyAction::None;
};

TEST(TimeAdvice, NamesTheTimesOfTheTableThatWasRead) {
    const Settings days = {{"DateSetting", "0"},
                           {"DateColumn", "1"},
                           {"TimeSetting", "0"},
                           {"TimeColumn", "1"},
                           {"TimestampFormat", "JJJJ-MM-TT"}};
    const AdviceCase cases[] = {
        {Days, u"",
         "no row has a timestamp, since no timestamp format is set; date in column 1 (\"t\") (certain)",
         days},
        {Days, u"TT.MM.JJJJ",
         "no row fits the timestamp format 'TT.MM.JJJJ'; date in column 1 (\"t\") (certain)", days},
        {"n;t;v\nx;0,5;1\nx;0,75;2\nx;1,25;3\n",
         u"",
         "no row has a timestamp, since no timestamp format is set; elapsed seconds in column 2 (\"t\") (a "
         "guess)",
         {{"DateSetting", "2"}, {"TimeSetting", "0"}, {"TimeColumn", "2"}, {"TimestampFormat", "[s],000"}}},
        {"name;v\na;3\nb;2\n",
         u"",
         "no row has a timestamp, since no timestamp format is set; no column holds times: a row every 1 s "
         "(a "
         "guess)",
         {{"DateSetting", "2"}, {"TimeSetting", "1"}, {"IntervalValue", "1"}, {"IntervalUnit", "2"}}},
        {"t;v\n3/21/2024 4:56 PM;1\n3/21/2024 4:57 PM;2\n3/21/2024 4:58 PM;3\n3/21/2024 4:59 PM;3\n",
         u"hh",
         "no row fits the timestamp format 'hh'; date and time in column 1 (\"t\"), month before day "
         "(certain)",
         {},
         RemedyAction::CopyFile},
        {"", u"x", "no row fits the timestamp format 'x'", {}},
    };
    for (const AdviceCase& c : cases) {
        SCOPED_TRACE(c.Text);
        const Workdir folder;
        kelvarin::Reading reading;
        reading.HeaderLine = 1;
        reading.FirstDataLine = 2;
        reading.TimestampFormat = c.FormatInForce;
        const kelvarin::Remedy remedy =
            kelvarin::plan::AdviseTimes(HostModule(), folder.Write("data.csv", c.Table), reading);
        EXPECT_EQ(remedy.Text, c.Text);
        EXPECT_EQ(remedy.Settings, c.Expected);
        EXPECT_EQ(remedy.Action, c.Action);
    }
}

}  // namespace
