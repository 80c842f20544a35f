// Samples by their numbers, as a visit from the first on sees them.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

#include "host/store/StoredDevice.h"
#include "host/store/TimeIndex.h"
#include "host/store/ValueReader.h"

namespace {

using namespace kelvarin::store;

// A device of one signal with `count` samples, each `every`-th without a value; times by `timeOf`.
template <class Value, class TimeOf>
std::unique_ptr<StoredDevice> Filled(std::uint32_t type, std::size_t count, std::size_t every,
                                     TimeOf timeOf) {
    auto device = std::make_unique<StoredDevice>(u"d", u"", ~std::uint64_t{0});
    DM::SignalProxy* signal = nullptr;
    device->CreateSignal(signal, u"s", type, sizeof(Value));
    for (std::size_t i = 0; i < count; ++i) {
        const auto value = static_cast<Value>(i % 3 == 0 ? i * 1000 : i % 2);
        const bool isGap = every != 0 && i % every == 0;
        signal->AddSample(isGap ? nullptr : &value, sizeof value, timeOf(static_cast<std::int64_t>(i)));
    }
    device->Finish();
    return device;
}

double NumberOf(std::uint32_t type, const void* data) {
    if (data == nullptr) return std::numeric_limits<double>::quiet_NaN();
    if (type == KelvarinBool) return *static_cast<const std::uint8_t*>(data) != 0 ? 1 : 0;
    if (type == KelvarinDouble) return *static_cast<const double*>(data);
    std::int64_t number = 0;
    std::memcpy(&number, data, sizeof number);
    return static_cast<double>(number);
}

// The first difference between what a visit sees and what is read `step` samples at a time.
std::string Difference(const StoredSignal& signal, std::size_t step) {
    std::vector<double> visited;
    std::vector<std::int64_t> times;
    const std::uint32_t type = signal.Description().Type;
    signal.VisitSamples(~std::uint64_t{0}, [&](std::int64_t time, const void* data, std::uint32_t) {
        visited.push_back(NumberOf(type, data));
        times.push_back(time);
    });
    const std::unique_ptr<ValueReader> reader = signal.ReadValues(~std::uint64_t{0}, nullptr);
    const TimeIndex index(signal.Times());
    if (reader->Count() != visited.size() || index.Count() != visited.size()) return "another count";
    for (std::size_t first = 0; first < visited.size(); first += step) {
        const std::size_t count = std::min(step, visited.size() - first);
        std::vector<double> values(count);
        std::vector<std::int64_t> read(count);
        reader->Read(first, values);
        index.Read(first, read);
        for (std::size_t i = 0; i < count; ++i) {
            const bool isSame =
                std::isnan(values[i]) ? std::isnan(visited[first + i]) : values[i] == visited[first + i];
            if (!isSame || read[i] != times[first + i]) return "differs at " + std::to_string(first + i);
        }
    }
    return "equal";
}

TEST(ValueReader, ReadsWhatAVisitSees) {
    const auto jitter = [](std::int64_t i) { return 1'000'000'007 * i + i * i % 977; };
    for (const std::size_t count : {1u, 64u, 65u, 5000u, 40'000u}) {
        for (const std::size_t every : {0u, 7u}) {
            const std::unique_ptr<StoredDevice> devices[] = {
                Filled<double>(KelvarinDouble, count, every, jitter),
                Filled<std::int64_t>(KelvarinInt64, count, every, jitter),
                Filled<std::uint8_t>(KelvarinBool, count, every, jitter)};
            for (const auto& device : devices) {
                for (const std::size_t step : {1u, 63u, 8192u, 100'000u}) {
                    if (step == 1 && count > 65) continue;
                    SCOPED_TRACE(std::to_string(count) + " samples, " + std::to_string(step) + " at a time");
                    EXPECT_EQ(Difference(*device->Signals[0], step), "equal");
                }
            }
        }
    }
}

TEST(ValueReader, IsNotThereForTextsAndWithoutSamples) {
    StoredDevice device(u"d", u"", ~std::uint64_t{0});
    DM::SignalProxy* signal = nullptr;
    device.CreateSignal(signal, u"text", KelvarinString, VariableSampleSize);
    signal->AddSample(u"a", 2, 1);
    device.CreateSignal(signal, u"empty", KelvarinDouble, 8);
    device.Finish();
    EXPECT_EQ(device.Signals[0]->ReadValues(~std::uint64_t{0}, nullptr), nullptr);
    EXPECT_EQ(device.Signals[1]->ReadValues(~std::uint64_t{0}, nullptr), nullptr);
}

TEST(TimeIndex, CountsTheRowsBeforeAMoment) {
    const auto times = [](std::int64_t i) { return 10 * i + 5; };
    for (const std::size_t count : {0u, 1u, 64u, 1024u, 30'000u}) {
        SCOPED_TRACE(count);
        const auto device = Filled<double>(KelvarinDouble, count, 0, times);
        const TimeIndex index(device->Signals[0]->Times());
        const auto end = static_cast<std::int64_t>(10 * count);
        const std::int64_t step = 1 + static_cast<std::int64_t>(count / 500);
        for (std::int64_t time = -20; time < end + 20; time += step) {
            const std::int64_t before = std::clamp<std::int64_t>((time + 4) / 10, 0, end / 10);
            ASSERT_EQ(index.RowsBefore(time), static_cast<std::uint64_t>(before)) << "before " << time;
        }
    }
}

// Equal times don't come from a file, but an axis may have them.
TEST(TimeIndex, FindsTheFirstOfEqualTimes) {
    const auto device = Filled<double>(KelvarinDouble, 5000, 0, [](std::int64_t i) { return i / 2000; });
    const TimeIndex index(device->Signals[0]->Times());
    EXPECT_EQ(index.RowsBefore(0), 0u);
    EXPECT_EQ(index.RowsBefore(1), 2000u);
    EXPECT_EQ(index.RowsBefore(2), 4000u);
    EXPECT_EQ(index.RowsBefore(3), 5000u);
}

}  // namespace
