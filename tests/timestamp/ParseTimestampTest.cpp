#include <random>

#include "kit/CheckRows.h"
#include "kit/LocalMoment.h"
#include "platform/framework/Locale.h"
#include "timestamp/TimestampFormat.h"

namespace {

std::int64_t Parse(const std::u16string& row, bool hasDate) {
    const std::size_t equals = row.find(u'=');
    return ParseTimestamp(row.substr(0, equals).c_str(), row.substr(equals + 1).c_str(), hasDate);
}

// "format=value" without a date gives seconds and nanoseconds, "45045" or "1+500".
std::string Time(const std::u16string& row) {
    const std::int64_t time = Parse(row, false), rest = time % 1'000'000'000;
    const std::string seconds = std::to_string(time / 1'000'000'000);
    return time == NoTimestamp ? "no" : seconds + (rest == 0 ? "" : '+' + std::to_string(rest));
}

TEST(ParseTimestamp, ReadsTheTimeOfDay) {
    CheckRows(
        "hh:mm:ss=12:30:45->45045|hh:mm:ss=1:2:3->3723|h:m:s=0012:030:45->45045|hh Uhr=7 Uhr->no|ss=7->7|"
        "hh Ur=7 Ur->25200|hh:mm:ss=99:99:99->362439|TT.MM.JJJJ hh=99.99.9999 3->10800|HH:mm=12:30->no|"
        "j=7->no|jS=jS->0|YYYY=2020->no|hh:hh=1:2->7200|"
        // Fixed digits before another field.
        "hhmmss=123045->45045|hhmmss=1230456->45456|hhmmss=12304->45004|hhmmss=1230->no|hhmmss=12 30 45->no|"
        "hhhmm=01230->45000|hmm=730->27000|ss000=12345->12+345000000|ss000=12->12|ss000=1->no|sss=1->1|"
        // A fraction of the last time field, in double arithmetic, optional with or without its mark.
        "hh:mm:ss,000=12:30:45,123456789->45045+123456789|hh:mm:ss,000=12:30:45->45045|hh,0=1,5->5400|"
        "mm,0=1,5->90|hh TT,0=1 7,5->5400|0=25->0+250000000|00:0=5:25->0+750000000|ss,000=5,->5|"
        "hh,0:mm,0=1,5:2,5->5550|ss,000000=0,000129->0+128999|ss.000=45->45|ss,=12->12|,000=->0|"
        "ss,,0=12->no|ss,0x=12->no|ss;0=12->no|ss,000=45.5->no|ss,000=1,5,5->no|"
        // White space behind literals and at the ends.
        "  hh:mm  =1:30->5400|hh:mm= \t1:30 \r\n->5400|hh: mm=1:30->5400|hh:mm=1: \v\f 30->5400|= \t->0|"
        "hh mm=1\t 30->5400|hh   mm=1 30->5400|hh:mm=1 :30->no|hh mm=1\u00A030->no| =->0|"
        "=->0|=1->no|hh=->no|hh=a->no|hh=-1->no|hh=+1->no|hh=1x->no|hh:mm=1:->no|hh:mm=1.30->no|hh=1e2->no|"
        "hh=\u0661->no|hh=\u0131->no|ss=4294967297->1|ss=18446744073709551623->7|hh=4294967295->-3600",
        Time);
    EXPECT_EQ(ParseTimestamp(nullptr, u"1", false), NoTimestamp);
    EXPECT_EQ(ParseTimestamp(u"hh", nullptr, false), NoTimestamp);
}

TEST(ParseTimestamp, ReadsElapsedTimes) {
    CheckRows(
        "[h]:mm:ss,000=100:00:00,25->360000+250000000|[h],0=1,5->5400| [ms],000 =123,456->0+123456000|"
        " [µs],000=123,456->0+123456|[ns]=123456->0+123456|[ns],0=1,9->0+1|ss [ms]=2 5->2+5000000|"
        "[ns]=9007199254740993->9007199+254740992|00:[ms]=5:7->0+7000000|[ms],0:ss,0=1,5:2,5->2+501500000|"
        "[ns]=18446744073709551623->0+7|[ms]=9223372036854775807->-9223372036+-854775808|"
        // A sign covers the whole time.
        "[h]:mm:ss=-1:30:00->-5400| [s],000=-1,5->-1+-500000000|hh:[s]=1:-30->-3630|[s]=-0->0|[s]=-->0|"
        "[s]=--1->no|[s]=+1->no|[s]=- 1->no|[h]:mm=1:-30->no|[ns]=-2->0+-2|[ns]=-1->no|"
        // So does an exponent; the later one of two counts.
        " [s],000=1,5e3->1500|[s]=15E-1->1+500000000|[s]=-2e2->-200|ss,0=1,5e1->15|hh:[s]=1:0e1->36000|"
        "[s],0=1e2,5->150|[s],0=1e2,5e3->1500|[s]=1e->1|[s]=1e-->1|[s]=1e0->1|[s]=1e+3->no|[s]=1e1.5->no|"
        "[s]=1 e1->no|[s]=e3->no|[ns]=19e-1->0+1|[s]=1e400->-9223372036+-854775808|[s]=1e-400->0|"
        // Before another field the digits are fixed, with neither sign nor exponent.
        "[s]000=123->1+230000000|[s]s000=1234->12+340000000|[h]hmm=1230->45000|[s]000=-12->no|[s]0=1e2->no|"
        // Only once, and under a known name; the Greek letter is none.
        "[s]:[ms]=1:2->no|[s]:[s]=1:2->no|[s][ms]=12->no|[min]=1->no|[H]=1->no|[hh]=1->no|[\u03BCs]=1->no|"
        "[ s]=1->no|[]=1->no|[=1->no|[s=1->no|[[s]]=1->no|[s]]=1->no|ss:[=1:2->no|[s]=->no|s]=1]->1",
        Time);
}

// A date is local, and without a format is one of TT.MM.JJJJ.
TEST(ParseTimestamp, ReadsDates) {
    CheckRows(
        "31.12.99->1999-12-31 00:00:00|01.01.90->1990-01-01 00:00:00|01.01.89->2089-01-01 00:00:00|"
        "1.1.0->2000-01-01 00:00:00|01.01.2115->2115-01-01 00:00:00|02.01.1970->1970-01-02 00:00:00|"
        "JJMMTT=200131->2020-01-31 00:00:00|JJJJ-M-T=2020-02-29->2020-02-29 00:00:00|"
        "01.01.4294969316->2020-01-01 00:00:00|TT.MM.JJJJ; hhmmss=01.02.2020;123045->2020-02-01 12:30:45|"
        "hh:mm, TT.MM.JJJJ=12:30,01.02.2020->2020-02-01 12:30:00|JJJJMMTThh=2020020112->2020-02-01 12:00:00|"
        "TT.MM.JJJJ [h]:mm=01.02.2020 100:00->2020-02-05 04:00:00|"
        "TT.MM.JJJJ [h]:mm=01.02.2020 -1:30->2020-01-31 22:30:00|"
        // What the calendar or the range lacks, and what isn't there.
        "01.01.2116->no|31.12.1969->no|01.01.100->no|01.13.2020->no|01.00.2020->no|00.12.2020->no|"
        "32.12.2020->no|31.02.2020->no|29.02.2019->no|31.04.2020->no|hh:mm=12:30->no|MM.JJJJ=02.2020->no|"
        "TT.JJJJ=02.2020->no|TT.MM=01.02->no|=->no|01.02->no|DD.MM.YYYY=01.02.2020->no",
        [](const std::u16string& row) -> std::string {
            const bool alone = row.find(u'=') == std::u16string::npos;
            const std::int64_t time = Parse((alone ? u"TT.MM.JJJJ=" : u"") + row, true);
            LocalTime t{};
            ToLocalTime(time / 1'000'000'000, t);
            char text[80];
            std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", t.Year, t.Month, t.Day, t.Hour,
                          t.Minute, t.Second);
            return time == NoTimestamp ? "no" : text;
        });
}

TEST(ParseTimestamp, NeedsTheWholeValueInAllBitsOfACharacter) {
    for (const std::u16string row : {u"hhmmss=123045", u"[h]:mm:ss,000=-100:30:05,5e2"}) {
        ASSERT_NE(Parse(row, false), NoTimestamp);
        for (std::size_t i = row.find(u'=') + 1; i < row.size(); ++i) {
            std::u16string shifted = row;
            shifted[i] = static_cast<char16_t>(shifted[i] + 256);
            EXPECT_EQ(Parse(shifted, false), NoTimestamp) << Utf16ToUtf8(shifted);
        }
    }
}

// A run reads row after row by one format; what it remembers of a row must not change the next one.
TEST(ParseTimestamp, ReadsARowAsIfItWereTheFirst) {
    constexpr const char16_t* Formats[] = {
        u"TT.MM.JJJJ hh:mm:ss,000",  u"[h]:mm:ss,000", u"hh:mm:ss TT.MM.JJ",
        u"JJJJ-MM-TT, hh:mm:ss.000", u" [s],000",      u"hh mm ss"};
    std::minstd_rand random(11);
    for (const char16_t* const text : Formats) {
        TimestampFormat format(text);
        std::u16string value = u"01.02.2024 10:00:00,125";
        for (int i = 0; i < 20'000; ++i) {
            // Now and then something else, most often another digit or a cut.
            if (i % 50 == 0) value = i % 100 == 0 ? u"2024-02-01,10:00:00.125" : u"10:00:00 01.02.24";
            if (i % 70 == 0) value = text;
            const std::size_t place = random() % (value.size() + 1);
            if (place == value.size() || random() % 40 == 0) value.resize(place);
            value += random() % 8 == 0 ? u" 7" : u"";
            if (place < value.size()) value[place] = u"0123456789 .,:-eT;"[random() % 18];
            const std::u16string padded = value + std::u16string(ValuePadding, u'\0');
            const std::string bytes(padded.begin(), padded.end());
            for (const bool hasDate : {false, true}) {
                const std::int64_t expected = ParseTimestamp(text, value.c_str(), hasDate);
                ASSERT_TRUE(format.Read(padded.c_str(), hasDate) == expected &&
                            format.Read(bytes.c_str(), hasDate) == expected)
                    << Utf16ToUtf8(text) << " on " << bytes << ", not " << expected;
            }
        }
    }
}

}  // namespace
