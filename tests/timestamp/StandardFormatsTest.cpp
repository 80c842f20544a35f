#include "timestamp/StandardFormats.h"

#include "kit/LocalMoment.h"
#include "kit/TestProfile.h"
#include "kit/TimestampCases.h"
#include "timestamp/FormatLetters.h"

namespace {

// The formats in angle brackets.
std::string Formats(const SettingList& settings) {
    std::string text;
    for (const std::u16string& format : GetStandardFormats(MakeSettings(settings))) {
        text += '<' + Utf16ToUtf8(format) + '>';
    }
    return text;
}

// The first of the formats and how many there are.
std::string Brief(const SettingList& settings) {
    const auto formats = GetStandardFormats(MakeSettings(settings));
    return std::to_string(formats.size()) + (formats.empty() ? "" : ' ' + Utf16ToUtf8(formats[0]));
}

TEST(StandardFormats, ListDatesOuterAndTimesInner) {
    EXPECT_EQ(Formats({"DateSetting=0", "DateColumn=1", "TimeColumn=2", "Separator=0"}),
              "<TT.MM.JJJJ; hhmmss><TT.MM.JJJJ;  hh:mm:ss,000>"
              "< JJJJ/MM/TT; hhmmss>< JJJJ/MM/TT;  hh:mm:ss,000>"
              "< JJJJ-MM-TT; hhmmss>< JJJJ-MM-TT;  hh:mm:ss,000>"
              "< JJJJMMTT; hhmmss>< JJJJMMTT;  hh:mm:ss,000>"
              "< JJMMTT; hhmmss>< JJMMTT;  hh:mm:ss,000>");
    EXPECT_EQ(Formats({"DateSetting=2", "TimeSetting=0"}),
              "<hhmmss>< hh:mm:ss,000><[h]:mm:ss,000>< [s],000>< [ms],000 >< [µs],000>< [ns]>");
}

TEST(StandardFormats, FollowTheSourcesOfDateAndTime) {
    struct Case {
        SettingList Settings;
        const char* Outcome;
    };
    const Case cases[] = {
        {{"DateColumn=1", "TimeColumn=2", "Separator=1"}, "10 TT.MM.JJJJ, hhmmss"},
        {{"DateColumn=3", "TimeColumn=1", "Separator=0"}, "10 hhmmss; TT.MM.JJJJ"},
        {{"DateColumn=2", "TimeColumn=2", "Separator=0"}, "10 TT.MM.JJJJ hhmmss"},
        // White space needs no blank behind it.
        {{"DateColumn=1", "TimeColumn=2", "Separator=2"}, "10 TT.MM.JJJJ\thhmmss"},
        {{"DateColumn=1", "TimeColumn=2", "Separator=3"}, "10 TT.MM.JJJJ hhmmss"},
        {{"DateColumn=1", "TimeColumn=2", "Separator=4", "OtherSeparator=|x"}, "10 TT.MM.JJJJ| hhmmss"},
        {{"DateSetting=0", "TimeSetting=1", "TimeColumn=2", "Separator=0"}, "10 TT.MM.JJJJ; hhmmss"},
        {{"DateSetting=1", "TimeSetting=0"}, "7 hhmmss"},
        {{"DateSetting=1", "TimeSetting=1"}, "0"},
        {{"DateSetting=2", "TimeSetting=1"}, "0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Outcome);
        EXPECT_EQ(Brief(c.Settings), c.Outcome);
    }
}

// Each format reads the cells of its kind as they are joined for a row.
TEST(StandardFormats, ReadWhatTheCellsJoinTo) {
    const std::u16string dates[] = {u"01.02.2020", u"2020/02/01", u"2020-02-01", u"20200201", u"200201"};
    const std::u16string times[] = {u"123045", u"12:30:45,5"};
    const std::int64_t noon = LocalTime64(2020, 2, 1) + 45'045'000'000'000;
    for (const char* columns : {"DateColumn=1", "DateColumn=2", "DateColumn=3"}) {
        for (int separator = 0; separator < 4; ++separator) {
            const CCsvImportSettings settings =
                MakeSettings({columns, "TimeColumn=2", "Separator=" + std::to_string(separator)});
            const auto formats = GetStandardFormats(settings);
            ASSERT_EQ(formats.size(), 10U);
            for (std::size_t i = 0; i < formats.size(); ++i) {
                std::u16string date = dates[i / 2], time = times[i % 2];
                if (settings.DateColumn == 2) time = date + u' ' + time;
                std::u16string text;
                settings.GetTimestampText({date.data(), time.data(), date.data()}, text);
                SCOPED_TRACE(Utf16ToUtf8(formats[i]) + " reads " + Utf16ToUtf8(text));
                EXPECT_EQ(ParseTimestamp(formats[i].c_str(), text.c_str(), true),
                          noon + (i % 2 == 0 ? 0 : 500'000'000));
            }
        }
    }
}

TEST(StandardFormats, ReadElapsedTimes) {
    const char16_t* const values[] = {u"123045",   u"12:30:45",    u"12:30:45",      u"45045",
                                      u"45045000", u"45045000000", u"45045000000000"};
    const auto formats = GetStandardFormats(MakeSettings({"DateSetting=2", "TimeSetting=0"}));
    ASSERT_EQ(formats.size(), std::size(values));
    for (std::size_t i = 0; i < formats.size(); ++i) {
        SCOPED_TRACE(Utf16ToUtf8(formats[i]));
        EXPECT_EQ(ParseTimestamp(formats[i].c_str(), values[i], false), 45'045'000'000'000);
    }
}

TEST(FormatLetters, ReplaceTheNeutralOnes) {
    struct Case {
        const char16_t* Neutral;
        const char* Own;
    };
    constexpr Case Cases[] = {
        {u"YYYY-MM-DD hh:mm:ss,000", "JJJJ-MM-TT hh:mm:ss,000"},
        {u"DD.MM.YY", "TT.MM.JJ"},
        {u"TT.MM.JJJJ", "TT.MM.JJJJ"},
        {u"[h]:mm yd", "[h]:mm yd"},
        {u"", ""},
    };
    for (const Case& c : Cases) {
        std::u16string format = c.Neutral;
        LocalizeFormatLetters(format);
        EXPECT_EQ(Utf16ToUtf8(format), c.Own);
    }
}

}  // namespace
