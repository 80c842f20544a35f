// Absolute times. A date is local, so what is expected comes from the runtime.
#include "kit/LocalMoment.h"
#include "kit/TimestampCases.h"

namespace {

constexpr std::int64_t Second = 1'000'000'000, Hour = 3600 * Second;

TEST(Date, ReadsYearsOfTwoAndFourDigits) {
    const TimestampCase cases[] = {
        {u"TT.MM.JJJJ", u"31.12.99", LocalTime64(1999, 12, 31)},
        {u"TT.MM.JJJJ", u"01.01.90", LocalTime64(1990, 1, 1)},
        {u"TT.MM.JJJJ", u"01.01.89", LocalTime64(2089, 1, 1)},
        {u"TT.MM.JJJJ", u"1.1.0", LocalTime64(2000, 1, 1)},
        {u"TT.MM.JJJJ", u"01.01.2115", LocalTime64(2115, 1, 1)},
        {u"TT.MM.JJJJ", u"02.01.1970", LocalTime64(1970, 1, 2)},
        {u"JJMMTT", u"200131", LocalTime64(2020, 1, 31)},
        {u"JJJJMMTT", u"20200131", LocalTime64(2020, 1, 31)},
        {u"JJJJ-M-T", u"2020-02-29", LocalTime64(2020, 2, 29)},
        {u"MM/TT/JJ", u"2/1/20", LocalTime64(2020, 2, 1)},
        {u"TT.MM.JJJJ", u"01.01.4294969316", LocalTime64(2020, 1, 1)},  // cut to 32 bits
    };
    CheckTimestamps(cases, true);
}

TEST(Date, CarriesATime) {
    const std::int64_t date = LocalTime64(2020, 2, 1);
    const TimestampCase cases[] = {
        {u"TT.MM.JJJJ; hhmmss", u"01.02.2020;123045", date + 45'045 * Second},
        {u"hh:mm, TT.MM.JJJJ", u"12:30,01.02.2020", date + 12 * Hour + Hour / 2},
        {u"JJJJMMTThhmmss", u"20200201123045", date + 45'045 * Second},
        {u"TT.MM.JJJJ hh,0", u"01.02.2020 1,5", date + Hour + Hour / 2},
        {u"TT.MM.JJJJ [h]:mm", u"01.02.2020 100:00", date + 100 * Hour},
        {u"TT.MM.JJJJ [h]:mm", u"01.02.2020 -1:30", date - Hour - Hour / 2},
        {u"TT.MM.JJJJ [s]", u"01.02.2020 2e3", date + 2000 * Second},
        {u"TT.MM.JJJJ hh:mm", u"01.02.2020 99:99", date + 99 * Hour + 99 * 60 * Second},
    };
    CheckTimestamps(cases, true);
}

TEST(Date, RefusesWhatTheCalendarOrTheRangeLacks) {
    constexpr TimestampCase Cases[] = {
        {u"TT.MM.JJJJ", u"01.01.2116", NoTimestamp}, {u"TT.MM.JJJJ", u"31.12.1969", NoTimestamp},
        {u"TT.MM.JJJJ", u"01.01.100", NoTimestamp},  {u"TT.MM.JJJJ", u"01.13.2020", NoTimestamp},
        {u"TT.MM.JJJJ", u"01.00.2020", NoTimestamp}, {u"TT.MM.JJJJ", u"00.12.2020", NoTimestamp},
        {u"TT.MM.JJJJ", u"32.12.2020", NoTimestamp}, {u"TT.MM.JJJJ", u"31.02.2020", NoTimestamp},
        {u"TT.MM.JJJJ", u"29.02.2019", NoTimestamp}, {u"TT.MM.JJJJ", u"31.04.2020", NoTimestamp},
    };
    CheckTimestamps(Cases, true);
}

TEST(Date, MustBeThere) {
    constexpr TimestampCase Cases[] = {
        {u"hh:mm", u"12:30", NoTimestamp},
        {u"MM.JJJJ", u"02.2020", NoTimestamp},
        {u"TT.JJJJ", u"02.2020", NoTimestamp},
        {u"TT.MM", u"01.02", NoTimestamp},
        {u"", u"", NoTimestamp},
        {u"TT.MM.JJJJ", u"01.02", NoTimestamp},
        {u"DD.MM.YYYY", u"01.02.2020", NoTimestamp},
    };
    CheckTimestamps(Cases, true);
}

}  // namespace
