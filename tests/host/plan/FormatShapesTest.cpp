// What the look of a text says about the formats that may read it.
#include "host/plan/FormatShapes.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/framework/Text.h"

namespace {

// The formats, a bar between them.
std::string Formats(const char16_t* text, const char16_t* letters) {
    std::string formats;
    for (const std::u16string& format : kelvarin::plan::FormatsLike(text, letters))
        formats += (formats.empty() ? "" : "|") + Utf16ToUtf8(format);
    return formats;
}

struct ShapeCase {
    const char16_t* Text;
    const char* Formats;
};

TEST(PlanFormats, AreEveryWayToReadAText) {
    const ShapeCase cases[] = {
        // Dates: the order is open only where the numbers leave it open.
        {u"31.01.2024", "TT.MM.JJJJ"},
        {u"1/2/2024 9:05", "TT/MM/JJJJ hh:mm|MM/TT/JJJJ hh:mm"},
        {u"10/14/2018", "MM/TT/JJJJ"},
        {u"2024-01-31  08:00:00,5", "JJJJ-MM-TT hh:mm:ss,000"},
        {u"20240131", "JJJJMMTT"},
        {u"20240131:1200", "JJJJMMTT:hhmm"},
        {u"20240131120000", "JJJJMMTThhmmss"},
        {u"01.02.03", "hh.mm.ss|JJJJ.MM.TT|TT.MM.JJJJ"},
        // Times.
        {u"12:30", "hh:mm"},
        {u"123045", "hhmmss"},
        {u"100:00:00.25", "[h]:mm:ss.000"},
        {u"01:23.456", "mm:ss.000"},
        {u"16:22:12:400", "hh:mm:ss:000"},
        // Zones.
        {u"01/31/2024 08:00:00+00:00", "MM/TT/JJJJ hh:mm:ss+0:0"},
        {u"2024-01-31 08:00:00Z", "JJJJ-MM-TT hh:mm:ssZ"},
        {u"2024-01-31 08:00:00+02:00", ""},
        // What no format can hold, or has no time.
        {u"2024-01-31T08:00:00", ""},
        {u"2024-01-31 4:56 PM", ""},
        {u"2024-01-31 08:00 to 2024-01-31 09:00", ""},
        {u"31.13.2024", ""},
        {u"12:75", ""},
        {u"1.5", ""},
        {u"550", ""},
        {u"", ""},
    };
    for (const ShapeCase& c : cases) EXPECT_EQ(Formats(c.Text, u"JMThms"), c.Formats) << Utf16ToUtf8(c.Text);
    EXPECT_EQ(Formats(u"2024-01-31T08:00:00Z", u"YMDhms"), "YYYY-MM-DDThh:mm:ssZ");
}

}  // namespace
