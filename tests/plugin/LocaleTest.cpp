// What the module takes from the user's locale: how dates and times are written, and the decimal mark.
#include <gtest/gtest.h>

#include "analysis/NumberCells.h"
#include "contract/TimeStamp.h"
#include "kit/BuiltLocale.h"
#include "kit/TestProfile.h"
#include "platform/framework/Text.h"
#include "plugin/CsvImportFilter.h"

namespace {

TEST(Locale, WritesTimesAndNumbersInAnyEncoding) {
    const struct {
        const char* Definition;
        const char* Encoding;
        const char16_t* Shown;        // of 1 February 2024, 15:04:05 and a half
        const char16_t* Description;  // part of it
        const char16_t* Quoted;       // the cell "1,5x" as a message quotes it
    } cases[] = {
        {"de_DE", "ISO-8859-1", u"01.02.2024  15:04:05.500", u".20", u"1,5x"},
        {"ja_JP", "EUC-JP", u"2024年02月01日  15時04分05秒.500", u"日 aus ", u"1.5x"},
        {"ps_AF", "UTF-8", u"د 2024 د فبروري  1  15:04:05.500", u"am د 20", u"1٫5x"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Definition);
        const BuiltLocale locale(c.Definition, c.Encoding);
        if (!locale.Exists()) GTEST_SKIP() << "this system can't make the locale";
        EXPECT_EQ(CTimeStamp(2024, 2, 1, 15, 4, 5, 500'000'000).Format(u"%x  %X.%ms", 0, true, false),
                  c.Shown);
        const TestProfile profile;
        CCsvImportFilter filter(u"data.csv");
        const std::u16string& description = filter.GetSettings().Description;
        EXPECT_NE(description.find(c.Description), std::u16string::npos) << Utf16ToUtf8(description);
        double number = 0.0;
        char16_t cell[] = u"1,5x";
        EXPECT_FALSE(ParseFloat(cell, number, nullptr));
        EXPECT_EQ(std::u16string(cell), c.Quoted);
        char16_t exact[] = u"1234567890123456789012,5";
        EXPECT_TRUE(ParseFloat(exact, number, nullptr));
        EXPECT_EQ(number, 1234567890123456789012.5);
    }
}

TEST(Locale, OfCWritesTimesAsEver) {
    EXPECT_EQ(CTimeStamp(1999, 2, 1, 5, 4, 3, 21).Format(u"%x  %X.%ms%µs%ns", 0, true, false),
              u"02/01/99  05:04:03.000000021");
}

}  // namespace
