#include "timestamp/StandardFormats.h"

#include "kit/CheckRows.h"
#include "kit/TestProfile.h"
#include "timestamp/FormatLetters.h"

namespace {

std::string Formats(const SettingList& settings) {
    std::string text;
    for (const auto& format : GetStandardFormats(MakeSettings(settings))) text += Utf16ToUtf8(format) + '|';
    return text;
}

TEST(StandardFormats, ListDatesOuterAndTimesInner) {
    EXPECT_EQ(Formats({"DateSetting=0", "DateColumn=1", "TimeColumn=2", "Separator=0"}),
              "TT.MM.JJJJ; hhmmss|TT.MM.JJJJ; hh:mm:ss,000|JJJJ/MM/TT; hhmmss|JJJJ/MM/TT; hh:mm:ss,000|"
              "JJJJ-MM-TT; hhmmss|JJJJ-MM-TT; hh:mm:ss,000|JJJJMMTT; hhmmss|JJJJMMTT; hh:mm:ss,000|"
              "JJMMTT; hhmmss|JJMMTT; hh:mm:ss,000|");
    for (const char* date : {"DateSetting=1", "DateSetting=2"}) {
        EXPECT_EQ(Formats({date, "TimeSetting=0"}),
                  "hhmmss|hh:mm:ss,000|[h]:mm:ss,000|[s],000|[ms],000|[µs],000|[ns]|");
        EXPECT_EQ(Formats({date, "TimeSetting=1"}), "");
    }
    const auto start = [](const SettingList& settings) { return Formats(settings).substr(0, 18); };
    EXPECT_EQ(start({"DateColumn=3", "TimeColumn=1", "Separator=1"}), "hhmmss, TT.MM.JJJJ");
    EXPECT_EQ(start({"DateColumn=2", "TimeColumn=2", "Separator=0"}), "TT.MM.JJJJ hhmmss|");
    EXPECT_EQ(start({"TimeSetting=1", "TimeColumn=2", "Separator=2"}), "TT.MM.JJJJ\thhmmss|");
    EXPECT_EQ(start({"TimeColumn=2", "Separator=4", "OtherSeparator=#x"}), "TT.MM.JJJJ# hhmmss");
}

TEST(FormatLetters, ReplaceTheNeutralOnes) {
    std::u16string format = u"DD.MM.YY TT.MM.JJJJ [h]:mm yd";
    LocalizeFormatLetters(format);
    EXPECT_EQ(format, u"TT.MM.JJ TT.MM.JJJJ [h]:mm yd");
}

}  // namespace
