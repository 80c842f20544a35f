// The store of the program: it must give back what it was given.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "host/store/StoredDevice.h"
#include "host/store/TimeAxis.h"

namespace {

struct Sample {
    std::int64_t Time;
    std::optional<std::string> Bytes;
    bool operator==(const Sample&) const = default;
};

// A signal and what it was given.
struct Twin {
    void Add(std::optional<std::string> bytes, std::int64_t time) {
        const auto size = static_cast<std::uint32_t>(bytes ? bytes->size() : 8);
        Signal->AddSample(bytes ? bytes->data() : nullptr, size, time);
        Given.push_back({time, std::move(bytes)});
    }

    kelvarin::store::StoredSignal* Signal = nullptr;
    std::vector<Sample> Given;
};

template <class Value>
std::string BytesOf(Value value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

// Values of one signal, of a sort that stays for a while: the widths of a block differ.
std::string MakeValue(std::uint32_t type, std::minstd_rand& random, int row) {
    const auto wide = static_cast<std::int64_t>(random()) << (row / 3000 % 4 * 10);
    switch (type) {
        case KelvarinBool:
            return BytesOf(static_cast<std::uint8_t>(random() % 2 * 0xFF));
        case KelvarinInt64:
            return BytesOf(row % 4000 < 5 ? INT64_MIN : (row / 2000 % 2 == 0 ? wide % 100 : -wide));
        case KelvarinDouble:
            return BytesOf(row % 700 == 0 ? -INFINITY : static_cast<double>(wide) / 7);
        case KelvarinChar16:
            return BytesOf(static_cast<char16_t>(random()));
        default: {
            std::u16string text(random() % 40, random() % 9 == 0 ? u'\u20AC' : u'\xE4');
            if (row % 5000 == 0) text.resize(100'000, u'x');
            return {reinterpret_cast<const char*>(text.data()), text.size() * 2};
        }
    }
}

void CompareStores(std::uint64_t keepLimit, std::uint64_t visited) {
    kelvarin::store::StoredDevice device(u"d", u"", keepLimit);
    std::vector<Twin> twins;
    for (const std::uint32_t type :
         {KelvarinBool, KelvarinInt64, KelvarinDouble, KelvarinChar16, KelvarinString}) {
        DM::SignalProxy* signal = nullptr;
        ASSERT_EQ(device.CreateSignal(signal, u"s", type, SizeOfKelvarinType(type)), DM::ResultOk);
        twins.push_back({device.Signals.back().get(), {}});
    }
    std::minstd_rand random(3);
    constexpr int Rows = 20'000;
    std::int64_t time = -5'000'000'000;
    for (int row = 0; row < Rows; ++row) {
        time += row % 9000 < 20 ? 5'000'000'000 : static_cast<std::int64_t>(random() % 1000);
        for (Twin& twin : twins) {
            const bool isGap = random() % (row / 1000 % 3 == 0 ? 3 : 2000) == 0;
            const std::string value = MakeValue(twin.Signal->Description().Type, random, row);
            twin.Add(isGap ? std::nullopt : std::optional(value), time);
        }
    }
    device.Finish();
    for (const Twin& twin : twins) {
        std::vector<Sample> kept;
        twin.Signal->VisitSamples(visited, [&](std::int64_t at, const void* data, std::uint32_t size) {
            const char* const bytes = static_cast<const char*>(data);
            kept.push_back({at, data == nullptr ? std::nullopt : std::optional(std::string(bytes, size))});
        });
        std::vector<Sample> expected = twin.Given;
        expected.resize(std::min<std::uint64_t>({expected.size(), keepLimit, visited}));
        EXPECT_TRUE(kept == expected)
            << "type " << twin.Signal->Description().Type << ", limit " << keepLimit;

        const kelvarin::store::SignalSummary& summary = twin.Signal->Summary();
        const auto hasValue = [](const Sample& sample) { return sample.Bytes.has_value(); };
        const auto values = std::count_if(twin.Given.begin(), twin.Given.end(), hasValue);
        EXPECT_EQ(summary.Count - summary.WithoutValue, static_cast<std::uint64_t>(values));
        EXPECT_EQ(summary.Count, twin.Given.size());
        EXPECT_EQ(summary.First, std::find_if(twin.Given.begin(), twin.Given.end(), hasValue)->Bytes);
        EXPECT_EQ(summary.Last, std::find_if(twin.Given.rbegin(), twin.Given.rend(), hasValue)->Bytes);
        EXPECT_EQ(summary.FirstTime, twin.Given.front().Time);
        EXPECT_EQ(summary.LastTime, twin.Given.back().Time);
    }
}

TEST(Store, GivesBackWhatItWasGiven) {
    for (const std::uint64_t limit : {0u, 1u, 128u, 129u, 5000u, 100000u})
        CompareStores(limit, ~std::uint64_t{0});
    CompareStores(100'000, 12'345);
}

// Signals may get their samples at times of their own, or fewer of them.
TEST(Store, SharesTimesOnlyWhereTheyAgree) {
    kelvarin::store::StoredDevice device(u"d", u"", 100);
    DM::SignalProxy* signals[3] = {};
    for (DM::SignalProxy*& signal : signals) device.CreateSignal(signal, u"s", KelvarinInt64, 8);
    const std::int64_t value = 1;
    const auto add = [&](int signal, std::int64_t time) { signals[signal]->AddSample(&value, 8, time); };
    add(0, 10), add(1, 10), add(2, 10);
    add(0, 20), add(1, 21), add(0, 30), add(1, 30), add(2, 30), add(0, 40), add(2, 40);
    const auto times = [&](std::size_t signal) {
        std::string text;
        device.Signals[signal]->VisitSamples(
            100, [&](std::int64_t time, const void*, std::uint32_t) { text += std::to_string(time) + ' '; });
        return text;
    };
    EXPECT_EQ(times(0), "10 20 30 40 ");
    EXPECT_EQ(times(1), "10 21 30 ");
    EXPECT_EQ(times(2), "10 30 40 ");
}

TEST(Store, SumsUpACourse) {
    const auto course = [](std::vector<double> values) {
        kelvarin::store::Sparkline line;
        line.Add(std::span<const double>(values));
        const kelvarin::store::NumberRange range = line.Range();
        const std::string bounds =
            range.IsEmpty() ? "" : ' ' + std::to_string(range.Lowest) + ' ' + std::to_string(range.Highest);
        return line.Draw(4) + bounds;
    };
    EXPECT_EQ(course({}), "");
    EXPECT_EQ(course({NAN, NAN}), "");
    EXPECT_EQ(course({5}), "▁ 5.000000 5.000000");
    EXPECT_EQ(course({0, 7, NAN, 3}), "▁█ ▄ 0.000000 7.000000");
    EXPECT_EQ(course({0, 7, INFINITY, 7}), "▁█ █ 0.000000 inf");
    std::vector<double> spike(1000, 0.0);
    spike[700] = 7;
    EXPECT_EQ(course(spike), "▁▁█▁ 0.000000 7.000000");
    std::vector<double> low(999, 0.0);
    low[998] = -7;
    EXPECT_EQ(course(low), "███▁ -7.000000 0.000000");
}

}  // namespace
