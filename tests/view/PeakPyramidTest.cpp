// Peaks by the pyramid against all samples looked at one by one.
#include <gtest/gtest.h>

#include <random>

#include "tests/view/SignalKit.h"
#include "view/model/PeakPyramid.h"

namespace pyramid_tests {

using namespace kelvarin::view;
using namespace view_tests;

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

Peaks OneByOne(const std::vector<double>& values, std::uint64_t first, std::uint64_t end) {
    Peaks peaks;
    for (std::uint64_t row = first; row < end; ++row) {
        const double value = values[row];
        if (std::isnan(value)) {
            peaks.HasGap = true;
        } else if (value == Infinity) {
            peaks.HasInfinity = true;
        } else if (value == -Infinity) {
            peaks.HasMinusInfinity = true;
        } else {
            peaks.Lowest = std::min(peaks.Lowest, value);
            peaks.Highest = std::max(peaks.Highest, value);
        }
    }
    return peaks;
}

std::string InWords(const Peaks& peaks) {
    return testing::PrintToString(peaks.Lowest) + " to " + testing::PrintToString(peaks.Highest) +
           (peaks.HasGap ? " gap" : "") + (peaks.HasInfinity ? " +inf" : "") +
           (peaks.HasMinusInfinity ? " -inf" : "");
}

// Numbers of which some stand out: spikes, gaps and infinities.
std::vector<double> Spiky(std::size_t count, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<double> values;
    for (std::size_t i = 0; i < count; ++i) {
        const auto kind = random() % 997;
        const double number = static_cast<double>(random() % 1000) / 7;
        values.push_back(kind == 0   ? 1e6 + number
                         : kind == 1 ? -1e6 - number
                         : kind == 2 ? NaN
                         : kind == 3 ? Infinity
                         : kind == 4 ? -Infinity
                                     : number);
    }
    return values;
}

TEST(PeakPyramid, HasThePeaksOfEveryPart) {
    for (const std::size_t count : {1u, 2u, 511u, 512u, 513u, 8192u, 8193u, 300'001u}) {
        for (const std::size_t threads : {1u, 3u}) {
            const std::vector<double> values = Spiky(count, static_cast<unsigned>(count));
            const auto device = DeviceOf(EvenTimes(count, 10), {values}, true);
            const auto reader = device->Signals[0]->ReadValues(~std::uint64_t{0}, nullptr);
            const PeakPyramid pyramid(*reader, threads);
            std::mt19937 random(1);
            for (int i = 0; i < (count > 10'000 ? 60 : 200); ++i) {
                std::uint64_t first = random() % count;
                std::uint64_t end = first + random() % (count - first) + 1;
                if (i % 4 == 0) end = std::min<std::uint64_t>(count, first + random() % 600 + 1);
                if (i == 0) first = 0;
                if (i == 0) end = count;
                ASSERT_EQ(InWords(pyramid.Between(first, end)), InWords(OneByOne(values, first, end)))
                    << count << " samples, from " << first << " to " << end;
            }
        }
    }
}

TEST(PeakPyramid, TakesATenthOfTheSamplesAtMost) {
    for (const std::uint32_t type : {KelvarinBool, KelvarinInt64, KelvarinDouble}) {
        auto device = std::make_shared<kelvarin::store::StoredDevice>(u"d", u"", ~std::uint64_t{0});
        DM::SignalProxy* made = nullptr;
        device->CreateSignal(made, u"s", type, SizeOfKelvarinType(type));
        const std::int64_t zero = 0;  // the fewest bytes that a sample takes, and a steady rate
        for (std::int64_t i = 0; i < 1'000'000; ++i)
            made->AddSample(&zero, SizeOfKelvarinType(type), 1'000'000 * i);
        device->Finish();
        const auto signal = SignalsOf(device)[0];
        EXPECT_LT(signal->PlotBytes() * 10, signal->SampleBytes()) << "type " << type;
    }
}

// What a picture shows of a signal: for each column of pixels the lowest and highest.
TEST(Trace, ShowsEveryExtremeInItsPixel) {
    std::mt19937 random(5);
    const std::size_t count = 200'000;
    std::vector<std::int64_t> times;
    std::int64_t time = 1'700'000'000'000'000'000;
    for (std::size_t i = 0; i < count; ++i)
        times.push_back(time +=
                        1 + static_cast<std::int64_t>(random() % 2000 * (random() % 50 == 0 ? 900 : 1)));
    const std::vector<double> values = Spiky(count, 9);
    const auto signal = SignalOf(times, values);
    for (const int columns : {1, 7, 640, 1500}) {
        for (int i = 0; i < 5; ++i) {
            const std::size_t from = random() % (count / 2);
            const TimeRange range{times[from] + i, times[from + count / 3] - i};
            const Trace trace = signal->TraceOf(range, columns);
            ASSERT_TRUE(trace.IsDense);
            std::map<int, Peaks> expected;
            const double width = range.Length() / columns;
            for (std::size_t row = 0; row < count; ++row) {
                if (times[row] < range.From || times[row] >= range.To) continue;
                int pixel = static_cast<int>(static_cast<double>(times[row] - range.From) / width);
                // A pixel begins at a whole nanosecond.
                while (pixel + 1 < columns &&
                       times[row] - range.From >= static_cast<std::int64_t>(width * (pixel + 1)))
                    ++pixel;
                expected[pixel].Include(OneByOne(values, row, row + 1));
            }
            ASSERT_EQ(trace.Columns.size(), expected.size());
            for (const TraceColumn& column : trace.Columns)
                ASSERT_EQ(InWords(column.All), InWords(expected[column.Pixel])) << "pixel " << column.Pixel;
        }
    }
}

TEST(Trace, HasThePointsAndTheirNeighboursWhereTheyAreFew) {
    std::vector<std::int64_t> times = EvenTimes(100, 10);
    for (std::size_t i = 60; i < times.size(); ++i) times[i] += 5000;  // a gap
    std::vector<double> values(100, 1);
    values[50] = NaN;
    values[51] = Infinity;
    const auto signal = SignalOf(times, values);
    const struct {
        TimeRange Range;
        std::size_t Points;
        double FirstOffset;
        std::size_t AfterGap;  // number of the point, 0 for none
    } cases[] = {
        {{0, 991}, 61, 0, 60},        // all to the gap, and the first behind it
        {{495, 520}, 4, -5, 0},       // one before and one after
        {{2000, 3000}, 2, -1410, 1},  // within the gap
        {{-100, 0}, 1, 100, 0},       // before the first
        {{9000, 9001}, 1, -3010, 0},  // after the last
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(testing::PrintToString(test.Range.From));
        const Trace trace = signal->TraceOf(test.Range, 500);
        ASSERT_FALSE(trace.IsDense);
        ASSERT_EQ(trace.Points.size(), test.Points);
        EXPECT_EQ(trace.Points[0].Offset, test.FirstOffset);
        for (std::size_t i = 0; i < trace.Points.size(); ++i)
            EXPECT_EQ(trace.Points[i].IsAfterGap, test.AfterGap != 0 && i == test.AfterGap) << i;
    }
}

TEST(Trace, OfNoOrOneSampleOrEqualTimes) {
    EXPECT_TRUE(SignalOf({}, {})->TraceOf({0, 10}, 100).Points.empty());
    EXPECT_EQ(SignalOf({5}, {1})->TraceOf({0, 10}, 100).Points.size(), 1u);
    const std::vector<std::int64_t> equal(5000, 7);
    const Trace trace = SignalOf(equal, Spiky(5000, 3))->TraceOf({0, 100}, 100);
    ASSERT_EQ(trace.Columns.size(), 1u);
    EXPECT_EQ(trace.Columns[0].Pixel, 7);
    EXPECT_EQ(InWords(trace.Columns[0].All), InWords(OneByOne(Spiky(5000, 3), 0, 5000)));
}

std::shared_ptr<const PlottedSignal> Texts(const std::vector<std::u16string>& texts) {
    auto device = std::make_shared<kelvarin::store::StoredDevice>(u"d", u"", ~std::uint64_t{0});
    DM::SignalProxy* made = nullptr;
    device->CreateSignal(made, u"s", KelvarinString, VariableSampleSize);
    std::int64_t time = 0;
    for (const std::u16string& text : texts) {
        const auto size = static_cast<std::uint32_t>(text.size() * 2);
        made->AddSample(text == u"-" ? nullptr : text.data(), size, time);
        time += 10;
    }
    device->Finish();
    return SignalsOf(device)[0];
}

TEST(TextTrace, JoinsEqualTextsAndWhatSharesAPixel) {
    const auto signal = Texts({u"a", u"a", u"b", u"-", u"-", u"c", u"d", u"e", u"e", u"e"});
    const struct {
        TimeRange Range;
        int Columns;
        const char* Outcome;
    } cases[] = {
        {{0, 91}, 91, "0-20 a, 20-30 b, 50-60 c, 60-70 d, 70-90 e"},
        {{25, 65}, 40, "-5-5 b, 25-35 c, 35-45 d"},
        {{0, 100}, 2, "0-50 ?, 50-100 ?"},
        {{200, 300}, 50, "-130--110 e"},
    };
    for (const auto& test : cases) {
        std::string outcome;
        for (const TextTrace& span : signal->TextsOf(test.Range, test.Columns)) {
            outcome += (outcome.empty() ? "" : ", ") + std::to_string(static_cast<int>(span.Offset)) + "-" +
                       std::to_string(static_cast<int>(span.End)) + " " + (span.Text ? *span.Text : "?");
        }
        EXPECT_EQ(outcome, test.Outcome) << test.Range.From << " in " << test.Columns;
    }
}

}  // namespace pyramid_tests
