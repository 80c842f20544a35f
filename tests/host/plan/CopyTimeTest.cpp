// The times of a copy as texts; that they are those of the file the tests of `prepare` check.
#include "host/plan/CopyTime.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "host/plan/CopyKit.h"

namespace {

using namespace copies;

// Whatever time was written before.
TEST(CopyTime, IsTheSameAfterAnyOther) {
    constexpr std::int64_t Day = 86'400 * OneSecond;
    constexpr std::int64_t Greatest = std::numeric_limits<std::int64_t>::max();
    const std::vector<std::int64_t> times = {0,
                                             1,
                                             OneSecond - 1,
                                             OneSecond,
                                             OneSecond + 123'456'789,
                                             2 * OneSecond - 1,
                                             Day - 1,
                                             Day,
                                             Day + OneSecond / 2,
                                             -1,
                                             -OneSecond,
                                             -OneSecond / 2,
                                             -OneSecond - 1,
                                             1'704'157'445'123'000'000,
                                             1'704'157'445'999'999'999,
                                             Greatest,
                                             Greatest - 1,
                                             -Greatest,
                                             -Greatest - 1};
    for (const CopyTimes kind : {CopyTimes::Local, CopyTimes::Moments, CopyTimes::Elapsed}) {
        for (const std::int64_t before : times) {
            for (const std::int64_t time : times) {
                SCOPED_TRACE(std::to_string(time) + " after " + std::to_string(before));
                TimeWriter writer(kind);
                std::string text;
                writer.Append(before, text);
                text.clear();
                writer.Append(time, text);
                std::string alone;
                TimeWriter(kind).Append(time, alone);
                EXPECT_EQ(text, alone);
            }
        }
    }
}

}  // namespace
