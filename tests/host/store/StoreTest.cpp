// The store of the program: it must give back what it was given.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>

#include "host/store/StoredDevice.h"

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
        Filled->AddSample(bytes ? bytes->data() : nullptr, size, time);
        Given.push_back({time, std::move(bytes)});
    }

    kelvarin::store::StoredSignal* Signal = nullptr;
    DM::SignalProxy* Filled = nullptr;  // Signal, or that of a part
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

// What the arrays of a signal come to: the samples that are kept.
std::vector<Sample> SamplesInArrays(const kelvarin::store::StoredSignal& signal) {
    const auto count = static_cast<std::size_t>(signal.KeptCount());
    const kelvarin::store::SignalDescription about = signal.Description();
    std::vector<std::int64_t> times(count);
    std::vector<std::uint8_t> gaps(count);
    signal.CopyTimes(times.data());
    signal.CopyGaps(gaps.data());
    std::vector<Sample> samples;
    for (const std::int64_t time : times) samples.push_back({time, std::nullopt});
    if (about.Type == KelvarinString) {
        std::size_t row = 0;
        signal.VisitTexts([&](const kelvarin::store::StoredSignal::KeptText& text) {
            EXPECT_EQ(text.Bytes == nullptr, gaps[row] != 0);
            Sample& sample = samples[row++];
            if (text.Bytes == nullptr) return;
            sample.Bytes.emplace();
            for (std::uint32_t i = 0; i < text.Length; ++i) {
                if (text.IsNarrow) {
                    *sample.Bytes += std::string{text.Bytes[i], '\0'};
                } else {
                    sample.Bytes->append(text.Bytes + 2 * i, 2);
                }
            }
        });
        EXPECT_EQ(row, count);
        return samples;
    }
    std::string values(count * about.Size, '?');
    signal.CopyValues(values.data());
    for (std::size_t row = 0; row < count; ++row) {
        if (gaps[row] == 0) samples[row].Bytes = values.substr(row * about.Size, about.Size);
    }
    if (const void* const place = signal.ValuesInPlace()) {
        EXPECT_EQ(std::string(static_cast<const char*>(place), values.size()), values);
    }
    return samples;
}

// A signal of each type.
void MakeSignals(kelvarin::store::StoredDevice& device) {
    for (const std::uint32_t type :
         {KelvarinBool, KelvarinInt64, KelvarinDouble, KelvarinChar16, KelvarinString}) {
        DM::SignalProxy* signal = nullptr;
        ASSERT_EQ(device.CreateSignal(signal, u"s", type, SizeOfKelvarinType(type)), DM::ResultOk);
    }
}

// A part that takes the samples of the twins from now on.
std::unique_ptr<kelvarin::store::StoredDevice> FillPart(kelvarin::store::StoredDevice& device,
                                                        std::vector<Twin>& twins) {
    std::unique_ptr<kelvarin::store::StoredDevice> part = device.MakePart();
    MakeSignals(*part);
    for (std::size_t i = 0; i < twins.size(); ++i) twins[i].Filled = part->Signals[i].get();
    return part;
}

// Fills the twins of a device; with `partRows` all but the first rows come in parts of up to so many rows.
void Fill(kelvarin::store::StoredDevice& device, std::vector<Twin>& twins, unsigned partRows) {
    std::unique_ptr<kelvarin::store::StoredDevice> part;
    std::minstd_rand cuts(7);
    unsigned rowsToCut = 500;
    std::minstd_rand random(3);
    constexpr int Rows = 20'000;
    std::int64_t time = -5'000'000'000;
    for (int row = 0; row < Rows; ++row) {
        if (partRows != 0 && rowsToCut-- == 0) {
            if (part == nullptr) {
                part = FillPart(device, twins);
            } else {
                if (cuts() % 2 == 0) part->Close();
                EXPECT_TRUE(device.Append(*part));
            }
            rowsToCut = static_cast<unsigned>(cuts()) % partRows;
        }
        time += row % 9000 < 20 ? 5'000'000'000 : static_cast<std::int64_t>(random() % 1000);
        for (Twin& twin : twins) {
            const bool isGap = random() % (row / 1000 % 3 == 0 ? 3 : 2000) == 0;
            const std::string value = MakeValue(twin.Signal->Description().Type, random, row);
            twin.Add(isGap ? std::nullopt : std::optional(value), time);
        }
    }
    if (part != nullptr) {
        EXPECT_TRUE(device.Append(*part));
        device.Keep(std::move(part));
    }
    device.Finish();
}

void CompareSamples(const Twin& twin, std::uint64_t keepLimit, std::uint64_t visited) {
    std::vector<Sample> kept;
    twin.Signal->VisitSamples(visited, [&](std::int64_t at, const void* data, std::uint32_t size) {
        const char* const bytes = static_cast<const char*>(data);
        kept.push_back({at, data == nullptr ? std::nullopt : std::optional(std::string(bytes, size))});
    });
    std::vector<Sample> expected = twin.Given;
    expected.resize(std::min<std::uint64_t>({expected.size(), keepLimit, visited}));
    EXPECT_TRUE(kept == expected) << "type " << twin.Signal->Description().Type << ", limit " << keepLimit;

    expected = twin.Given;
    expected.resize(std::min<std::uint64_t>(expected.size(), keepLimit));
    EXPECT_TRUE(SamplesInArrays(*twin.Signal) == expected)
        << "arrays of type " << twin.Signal->Description().Type << ", limit " << keepLimit;
}

void CompareSummary(const Twin& twin) {
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

// Returns the plots of a device that was filled and gives back what it was given.
std::string CompareStores(std::uint64_t keepLimit, std::uint64_t visited, unsigned partRows = 0) {
    kelvarin::store::StoredDevice device(u"d", u"", keepLimit);
    MakeSignals(device);
    std::vector<Twin> twins;
    for (const auto& signal : device.Signals) twins.push_back({signal.get(), signal.get(), {}});
    Fill(device, twins, partRows);
    std::string plots;
    for (const Twin& twin : twins) {
        CompareSamples(twin, keepLimit, visited);
        CompareSummary(twin);
        const kelvarin::store::Sparkline plot = twin.Signal->Summary().Plot;
        plots += plot.Draw(64) + std::to_string(plot.Range().Lowest) + std::to_string(plot.Range().Highest);
    }
    return plots;
}

TEST(Store, GivesBackWhatItWasGiven) {
    for (const std::uint64_t limit : {0u, 1u, 128u, 129u, 5000u, 100000u})
        CompareStores(limit, ~std::uint64_t{0});
    CompareStores(100'000, 12'345);
}

TEST(Store, IsTheSameInParts) {
    const std::string plots = CompareStores(0, 0);
    const struct {
        std::uint64_t KeepLimit;
        unsigned PartRows;
    } cases[] = {{0, 3000}, {5000, 300}, {100'000, 3}, {100'000, 12'000}};
    for (const auto& test : cases) {
        SCOPED_TRACE(std::to_string(test.PartRows) + " rows");
        EXPECT_EQ(CompareStores(test.KeepLimit, ~std::uint64_t{0}, test.PartRows), plots);
    }
}

TEST(Store, HasShortSignalsInOnePiece) {
    for (const int rows : {1, 64, 65, 200}) {
        SCOPED_TRACE(rows);
        kelvarin::store::StoredDevice device(u"d", u"", ~std::uint64_t{0});
        DM::SignalProxy* signal = nullptr;
        device.CreateSignal(signal, u"s", KelvarinDouble, sizeof(double));
        for (int row = 0; row < rows; ++row) {
            const double value = row / 8.0;
            signal->AddSample(&value, sizeof value, row);
        }
        device.Finish();
        const auto* const values = static_cast<const double*>(device.Signals.front()->ValuesInPlace());
        ASSERT_EQ(values != nullptr, rows <= 64);
        if (values == nullptr) continue;
        EXPECT_EQ(values[rows - 1], (rows - 1) / 8.0);
    }
}

// What a sink got, a piece each: times, values and texts.
struct RecordingSink : kelvarin::store::DeviceSink, kelvarin::store::SignalSink {
    kelvarin::store::SignalSink* AddSignal(const kelvarin::store::SignalDescription&) override {
        return this;
    }
    void TakeTime(std::int64_t time) override { Got += 't' + std::to_string(time) + ' '; }
    void TakeValues(const void* values, std::size_t count, const std::uint8_t* valid) override {
        for (std::size_t i = 0; i < count; ++i) {
            const bool hasValue = valid == nullptr || valid[i] != 0;
            Got += hasValue ? std::to_string(static_cast<const std::int64_t*>(values)[i]) + ' ' : "- ";
        }
    }
    void TakeText(const char16_t* text, std::size_t length) override {
        Got += text == nullptr ? "- " : '"' + std::string(text, text + length) + "\" ";
    }
    bool HasFailed() const override { return false; }

    std::string Got;
};

TEST(Store, GivesASinkEverySample) {
    const struct {
        std::uint32_t Type;
        const char* Got;
    } cases[] = {
        {KelvarinInt64, "t1 t2 t3 7 - 9 "},
        {KelvarinString, "t1 \"a\" t2 - t3 \"bc\" "},
    };
    for (const auto& test : cases) {
        RecordingSink sink;
        kelvarin::store::StoredDevice device(u"d", u"", 0, &sink);
        DM::SignalProxy* signal = nullptr;
        device.CreateSignal(signal, u"s", test.Type, SizeOfKelvarinType(test.Type));
        const std::int64_t numbers[] = {7, 0, 9};
        const std::u16string texts[] = {u"a", u"", u"bc"};
        for (std::size_t i = 0; i < 3; ++i) {
            const bool isText = test.Type == KelvarinString;
            const void* const data = isText ? static_cast<const void*>(texts[i].data()) : &numbers[i];
            const auto size = static_cast<std::uint32_t>(isText ? texts[i].size() * 2 : 8);
            signal->AddSample(i == 1 ? nullptr : data, size, static_cast<std::int64_t>(i) + 1);
        }
        device.Finish();
        EXPECT_EQ(sink.Got, test.Got);
    }
}

// Signals may get their samples at times of their own, or fewer of them.
TEST(Store, SharesTimesOnlyWhereTheyAgree) {
    const struct {
        const char* Name;
        std::vector<std::pair<int, std::int64_t>> Samples;  // signal and time
        const char* Times[3];                               // of each signal
    } cases[] = {
        {"all together",
         {{0, 10}, {1, 10}, {2, 10}, {0, 20}, {1, 20}, {2, 20}},
         {"10 20 ", "10 20 ", "10 20 "}},
        {"one at another time",
         {{0, 10}, {1, 10}, {0, 20}, {1, 21}, {0, 30}, {1, 30}},
         {"10 20 30 ", "10 21 30 ", ""}},
        {"one misses a row", {{0, 10}, {2, 10}, {0, 20}, {0, 30}, {2, 30}}, {"10 20 30 ", "", "10 30 "}},
        {"one begins later", {{0, 10}, {0, 20}, {1, 20}, {0, 30}, {1, 30}}, {"10 20 30 ", "20 30 ", ""}},
        {"one after the other", {{0, 10}, {0, 20}, {1, 10}, {1, 20}}, {"10 20 ", "10 20 ", ""}},
        {"falling and repeated",
         {{0, 10}, {1, 10}, {0, 10}, {1, 10}, {0, -5}, {1, -5}},
         {"10 10 -5 ", "10 10 -5 ", ""}},
        {"the ends of the scale",
         {{0, INT64_MIN}, {0, INT64_MAX}, {0, INT64_MIN}},
         {"-9223372036854775808 9223372036854775807 -9223372036854775808 ", "", ""}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Name);
        kelvarin::store::StoredDevice device(u"d", u"", 100);
        DM::SignalProxy* signals[3] = {};
        for (DM::SignalProxy*& signal : signals) device.CreateSignal(signal, u"s", KelvarinInt64, 8);
        const std::int64_t value = 1;
        for (const auto& [signal, time] : test.Samples) signals[signal]->AddSample(&value, 8, time);
        for (std::size_t i = 0; i < 3; ++i) {
            std::string times;
            device.Signals[i]->VisitSamples(100, [&](std::int64_t time, const void*, std::uint32_t) {
                times += std::to_string(time) + ' ';
            });
            EXPECT_EQ(times, test.Times[i]) << "signal " << i;
        }
    }
}

// A signal has its source's column as far as the list of them goes.
TEST(Store, DescribesSignalsAsTheyWereMade) {
    kelvarin::store::StoredDevice device(u"d", u"", 0, nullptr, {3, 1});
    const struct {
        std::uint32_t Type;
        std::uint32_t Size;
        int Column;
    } cases[] = {
        {KelvarinBool, 1, 3},
        {KelvarinString, VariableSampleSize, 1},
        {KelvarinDouble, 8, -1},
    };
    for (const auto& test : cases) {
        DM::SignalProxy* signal = nullptr;
        ASSERT_EQ(device.CreateSignal(signal, u"s", test.Type, test.Size), DM::ResultOk);
        const kelvarin::store::SignalDescription& about = device.Signals.back()->Description();
        EXPECT_EQ(about.Type, test.Type);
        EXPECT_EQ(about.Size, test.Size);
        EXPECT_EQ(about.Column, test.Column) << "type " << test.Type;
        const std::uint32_t id =
            signal->GetUniqueSignalId().DirBlockId;  // of a packed record: no reference to it
        EXPECT_EQ(id, device.Signals.size());
    }
}

}  // namespace
