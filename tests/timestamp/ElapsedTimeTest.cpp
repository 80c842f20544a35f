// Bracket fields: signed numbers in a unit of their own, with an exponent.
#include "kit/TimestampCases.h"

namespace {

constexpr std::int64_t Ms = 1'000'000, Second = 1000 * Ms, Minute = 60 * Second, Hour = 60 * Minute;
constexpr std::int64_t Least = INT64_MIN;  // what a double beyond 64 bits becomes

TEST(ElapsedTime, CountsInItsUnit) {
    constexpr TimestampCase Cases[] = {
        {u"[h]:mm:ss,000", u"100:00:00,25", 360'000 * Second + 250 * Ms},
        {u"[h]:mm:ss,000", u"100:30:05", 361'805 * Second},
        {u"[h],0", u"1,5", Hour + 30 * Minute},
        {u" [s],000", u"12", 12 * Second},
        {u" [s],000", u"90000", 90'000 * Second},
        {u" [ms],000 ", u"123,456", 123'456'000},
        {u" [µs],000", u"123,456", 123'456},
        {u" [ns]", u"123456", 123'456},
        {u"[ns],0", u"1,9", 1},
        // Beyond 2 to the 53 the low digits are lost.
        {u"[ns]", u"9007199254740993", 9'007'199'254'740'992},
        // Milliseconds replace what was there; other fields stand beside them.
        {u"ss [ms]", u"2 5", 2 * Second + 5 * Ms},
        {u"00:[ms]", u"5:7", 7 * Ms},
        {u"[ms],0:ss,0", u"1,5:2,5", 2 * Second + 501 * Ms + 500'000},
        {u"[ns]", u"18446744073709551623", 7},
        {u"[ms]", u"9223372036854775807", Least},
    };
    CheckTimestamps(Cases, false);
}

TEST(ElapsedTime, ASignCoversTheWholeTime) {
    constexpr TimestampCase Cases[] = {
        {u"[h]:mm:ss,000", u"-1:30:00", -(Hour + 30 * Minute)},
        {u" [s],000", u"-1,5", -(Second + 500 * Ms)},
        {u"hh:[s]", u"1:-30", -(Hour + 30 * Second)},
        {u"[s]", u"-0", 0},
        {u"[s]", u"-", 0},
        {u"[s]", u"--1", NoTimestamp},
        {u"[s]", u"+1", NoTimestamp},
        {u"[s]", u"- 1", NoTimestamp},
        {u"[h]:mm", u"1:-30", NoTimestamp},
        {u"[ns]", u"-2", -2},
        // Can't be told from a failure.
        {u"[ns]", u"-1", NoTimestamp},
    };
    CheckTimestamps(Cases, false);
}

TEST(ElapsedTime, AnExponentScalesTheWholeTime) {
    constexpr TimestampCase Cases[] = {
        {u" [s],000", u"1,5e3", 1500 * Second},
        {u" [s],000", u"1e3", 1000 * Second},
        {u"[s]", u"15E-1", Second + 500 * Ms},
        {u"[s]", u"-2e2", -200 * Second},
        {u"ss,0", u"1,5e1", 15 * Second},
        {u"hh:[s]", u"1:0e1", 10 * Hour},
        {u"[s],0", u"1e2,5", 150 * Second},
        {u"[s],0", u"1e2,5e3", 1500 * Second},  // the later one counts
        {u"[s]", u"1e", Second},
        {u"[s]", u"1e-", Second},
        {u"[s]", u"1e0", Second},
        {u"[s],0", u"1e,5", Second + 500 * Ms},
        {u"[s]", u"1e+3", NoTimestamp},
        {u"[s]", u"1e1.5", NoTimestamp},
        {u"[s]", u"1 e1", NoTimestamp},
        {u"[s]", u"e3", NoTimestamp},
        {u"[ns]", u"19e-1", 1},
        {u"[ns]", u"-19e-1", -1},
        // Far away.
        {u"[s]", u"1e400", Least},
        {u"[s]", u"1e-400", 0},
        {u"[s]", u"1e4294967297", 10 * Second},
    };
    CheckTimestamps(Cases, false);
}

TEST(ElapsedTime, IsFixedBeforeAnotherField) {
    constexpr TimestampCase Cases[] = {
        {u"[s]000", u"123", Second + 230 * Ms},
        {u"[s]s000", u"1234", 12 * Second + 340 * Ms},
        {u"[h]hmm", u"1230", 12 * Hour + 30 * Minute},
        {u"[s]s", u"123", 123 * Second},
        {u"[ms][00", u"123", 12 * Ms + 300'000},
        // Neither sign nor exponent.
        {u"[s]000", u"-12", NoTimestamp},
        {u"[s]0", u"1e2", NoTimestamp},
    };
    CheckTimestamps(Cases, false);
}

TEST(ElapsedTime, StandsOnceAndUnderAKnownName) {
    constexpr TimestampCase Cases[] = {
        {u"[s]:[ms]", u"1:2", NoTimestamp}, {u"[s]:[ms]", u"1", NoTimestamp},
        {u"[s]:[s]", u"1:2", NoTimestamp},  {u"[s][ms]", u"12", NoTimestamp},
        {u"[min]", u"1", NoTimestamp},      {u"[H]", u"1", NoTimestamp},
        {u"[hh]", u"1", NoTimestamp},       {u"[ s]", u"1", NoTimestamp},
        {u"[us]", u"1", NoTimestamp},       {u"[\u03BCs]", u"1", NoTimestamp},  // the Greek letter
        {u"[]", u"1", NoTimestamp},         {u"[", u"1", NoTimestamp},
        {u"[s", u"1", NoTimestamp},         {u"[[s]]", u"1", NoTimestamp},
        {u"[s]]", u"1", NoTimestamp},       {u"ss:[", u"1:2", NoTimestamp},
        {u"[s]", u"", NoTimestamp},         {u"s]", u"1]", Second},
    };
    CheckTimestamps(Cases, false);
}

}  // namespace
