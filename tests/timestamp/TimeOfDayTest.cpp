// Times without a date: letters, literals, fractions, and what doesn't match.
#include "kit/TimestampCases.h"

namespace {

constexpr std::int64_t Ms = 1'000'000, Second = 1000 * Ms, Minute = 60 * Second, Hour = 60 * Minute;

TEST(TimeOfDay, ReadsFieldsBetweenLiterals) {
    constexpr TimestampCase Cases[] = {
        {u"hh:mm:ss", u"12:30:45", 45'045 * Second},
        {u"hh:mm:ss", u"1:2:3", Hour + 2 * Minute + 3 * Second},
        {u"h:m:s", u"0012:030:45", 45'045 * Second},
        {u"ss", u"7", 7 * Second},
        {u"hh 'h'", u"7 'h'", NoTimestamp},  // "h" is a field wherever it stands
        {u"hh Uhr", u"7 Uhr", NoTimestamp},
        {u"hh Ur", u"7 Ur", 7 * Hour},
        // No range applies.
        {u"hh:mm:ss", u"99:99:99", 362'439 * Second},
        // Dates are read and have no effect.
        {u"TT.MM.JJJJ hh", u"99.99.9999 3", 3 * Hour},
        // Letters differ by case; others are literals.
        {u"HH:mm", u"12:30", NoTimestamp},
        {u"j", u"7", NoTimestamp},
        {u"jS", u"jS", 0},
        {u"YYYY", u"2020", NoTimestamp},
        // The later field of two counts.
        {u"hh:hh", u"1:2", 2 * Hour},
    };
    CheckTimestamps(Cases, false);
}

TEST(TimeOfDay, TakesFixedDigitsBeforeAnotherField) {
    constexpr TimestampCase Cases[] = {
        {u"hhmmss", u"123045", 45'045 * Second},
        {u"hhmmss", u"1230456", 12 * Hour + 30 * Minute + 456 * Second},
        {u"hhmmss", u"12304", 12 * Hour + 30 * Minute + 4 * Second},
        {u"hhmmss", u"1230", NoTimestamp},
        {u"hhmmss", u"123", NoTimestamp},
        {u"hhmmss", u"12 30 45", NoTimestamp},
        {u"hhhmm", u"01230", 12 * Hour + 30 * Minute},
        {u"hmm", u"730", 7 * Hour + 30 * Minute},
        {u"ss000", u"12345", 12'345 * Ms},
        {u"sss", u"1", Second},
    };
    CheckTimestamps(Cases, false);
}

TEST(TimeOfDay, AFractionIsOfTheLastTimeField) {
    constexpr TimestampCase Cases[] = {
        {u"hh:mm:ss,000", u"12:30:45,5", 45'045 * Second + 500 * Ms},
        {u"hh:mm:ss,000", u"12:30:45,123456789", 45'045 * Second + 123'456'789},
        {u"hh,0", u"1,5", Hour + 30 * Minute},
        {u"mm,0", u"1,5", Minute + 30 * Second},
        {u"hh TT,0", u"1 7,5", Hour + 30 * Minute},
        {u"0", u"25", 250 * Ms},
        {u"00:0", u"5:25", 750 * Ms},
        {u"hh,0:mm,0", u"1,5:2,5", Hour + 32 * Minute + 30 * Second},
        // Double arithmetic, truncated: not 129,000.
        {u"ss,000000", u"0,000129", 128'999},
        {u"ss,000000000", u"0,000000001", 1},
        // Optional in the value, with its mark or without.
        {u"hh:mm:ss,000", u"12:30:45", 45'045 * Second},
        {u"hh:mm:ss,000", u"12:30:45,", 45'045 * Second},
        {u"hh:mm:ss.000", u"12:30:45", 45'045 * Second},
        {u"ss000", u"12", 12 * Second},
        {u"ss000", u"1", NoTimestamp},
        {u"ss,", u"12", 12 * Second},
        {u",000", u"", 0},
        {u"ss,,0", u"12", NoTimestamp},
        {u"ss,0x", u"12", NoTimestamp},
        {u"ss;0", u"12", NoTimestamp},
        // A mark matches only itself.
        {u"hh:mm:ss,000", u"12:30:45.5", NoTimestamp},
        {u"hh:mm:ss,000", u"12:30", NoTimestamp},
        {u"ss,000", u"1,5,5", NoTimestamp},
    };
    CheckTimestamps(Cases, false);
}

TEST(TimeOfDay, SkipsWhiteSpaceBehindLiteralsAndAtTheEnds) {
    constexpr TimestampCase Cases[] = {
        {u"  hh:mm  ", u"1:30", Hour + 30 * Minute},
        {u"hh:mm", u" \t1:30 \r\n", Hour + 30 * Minute},
        {u"hh: mm", u"1:30", Hour + 30 * Minute},
        {u"hh:mm", u"1: \v\f 30", Hour + 30 * Minute},
        {u"hh mm", u"1\t 30", Hour + 30 * Minute},
        {u"hh   mm", u"1 30", Hour + 30 * Minute},
        {u"hh:mm", u"1 :30", NoTimestamp},
        {u"hh mm", u"1\u00A030", NoTimestamp},
        {u"", u" \t", 0},
        {u" ", u"", 0},
    };
    CheckTimestamps(Cases, false);
}

TEST(TimeOfDay, RefusesWhatDoesNotMatch) {
    constexpr TimestampCase Cases[] = {
        {u"", u"", 0},
        {u"", u"1", NoTimestamp},
        {u"hh", u"", NoTimestamp},
        {u"hh", u"a", NoTimestamp},
        {u"hh", u"-1", NoTimestamp},
        {u"hh", u"+1", NoTimestamp},
        {u"hh", u"1x", NoTimestamp},
        {u"hh:mm", u"1:", NoTimestamp},
        {u"hh:mm", u"1.30", NoTimestamp},
        {u"hh", u"1e2", NoTimestamp},
        {u"hh", u"\u0661", NoTimestamp},
    };
    CheckTimestamps(Cases, false);
    EXPECT_EQ(ParseTimestamp(nullptr, u"1", false), NoTimestamp);
    EXPECT_EQ(ParseTimestamp(u"hh", nullptr, false), NoTimestamp);
}

TEST(TimeOfDay, WrapsWhatIsTooLarge) {
    constexpr auto Wrapped = [](std::uint64_t seconds) {
        return static_cast<std::int64_t>(seconds * 1'000'000'000U);
    };
    constexpr TimestampCase Cases[] = {
        {u"ss", u"4294967297", Second},
        {u"ss", u"18446744073709551623", 7 * Second},
        {u"hh", u"4294967295", -Hour},
        {u"hh", u"2147483647", Wrapped(2'147'483'647ULL * 3600)},
    };
    CheckTimestamps(Cases, false);
}

}  // namespace
