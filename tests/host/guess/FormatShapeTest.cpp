// What the look of a text says about the format that reads it.
#include <gtest/gtest.h>

#include "host/guess/GuessParts.h"
#include "platform/framework/Text.h"

namespace {

// The formats of all shapes, a bar between them; "!" and the letter behind one that no format can hold.
std::string Formats(const char16_t* text, const char16_t* letters) {
    std::string formats;
    for (const kelvarin::guess::FormatShape& shape : kelvarin::guess::ShapesOf(text, letters)) {
        formats += (formats.empty() ? "" : "|") + Utf16ToUtf8(shape.Format);
        if (shape.Blocked != u'\0') formats += "!" + Utf16ToUtf8(std::u16string(1, shape.Blocked));
    }
    return formats;
}

struct ShapeCase {
    const char16_t* Text;
    const char* Formats;
};

TEST(FormatShape, NamesEveryWayToReadAText) {
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
        {u"2024-01-31 08:00:00+02:00", "JJJJ-MM-TT hh:mm:ss+[ns]:0"},
        {u"2024-01-31 08:00:00.5-0500", "JJJJ-MM-TT hh:mm:ss.000-0"},
        // Two times in a text, and what no format can hold.
        {u"2024-01-31 08:00 to 2024-01-31 09:00", "JJJJ-MM-TT hh:mm to JJJJ-MM-TT hh:mm"},
        {u"2024-01-31T08:00:00Z", "JJJJ-MM-TT hh:mm:ssZ!T"},
        // None at all.
        {u"31.13.2024", ""},
        {u"12:75", ""},
        {u"1.5", ""},
        {u"550", ""},
        {u"", ""},
    };
    for (const ShapeCase& c : cases) {
        EXPECT_EQ(Formats(c.Text, u"JMThms"), c.Formats) << Utf16ToUtf8(c.Text);
    }
    EXPECT_EQ(Formats(u"2024-01-31T08:00:00Z", u"YMDhms"), "YYYY-MM-DDThh:mm:ssZ");
}

}  // namespace
