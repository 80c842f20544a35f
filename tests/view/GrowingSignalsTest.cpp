// Signals made of a file while it is read: each shows what had come by then, whatever comes later.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <mutex>
#include <thread>

#include "host/HostSession.h"
#include "host/plan/AutomaticReading.h"
#include "kit/HostModule.h"
#include "kit/Workdir.h"
#include "view/model/GrowingSignals.h"

namespace growing_tests {

using namespace kelvarin;
using namespace kelvarin::view;

using Signals = std::vector<std::shared_ptr<const PlottedSignal>>;

constexpr std::int64_t Step = 1'000'000;

// The number of the row; each 1000th has no value.
bool IsGap(std::uint64_t row) {
    return row % 1000 == 999;
}
std::string TextOf(std::uint64_t row) {
    return "text " + std::to_string(row / 300 % 7);
}

// A device with a signal of each kind, row by row.
class Filled {
  public:
    Filled() {
        const std::uint32_t types[] = {KelvarinDouble, KelvarinInt64, KelvarinBool, KelvarinString};
        for (const std::uint32_t type : types) {
            DM::SignalProxy* signal = nullptr;
            const std::u16string name(1, static_cast<char16_t>(u'a' + Made.size()));
            const std::uint32_t size = SizeOfKelvarinType(type);
            Device->CreateSignal(signal, name.c_str(), type, size == 0 ? VariableSampleSize : size);
            Made.push_back(signal);
        }
    }

    void AddRows(std::uint64_t count) {
        for (const std::uint64_t end = Rows + count; Rows < end; ++Rows) {
            const auto number = static_cast<double>(Rows);
            const auto integer = static_cast<std::int64_t>(Rows);
            const bool isTrue = Rows % 2 == 1;
            const std::string text = TextOf(Rows);
            const std::u16string wide(text.begin(), text.end());
            const std::int64_t time = static_cast<std::int64_t>(Rows) * Step;
            Made[0]->AddSample(IsGap(Rows) ? nullptr : &number, sizeof number, time);
            Made[1]->AddSample(&integer, sizeof integer, time);
            Made[2]->AddSample(&isTrue, sizeof isTrue, time);
            Made[3]->AddSample(wide.data(), static_cast<std::uint32_t>(wide.size() * 2), time);
        }
    }

    std::shared_ptr<store::StoredDevice> Device =
        std::make_shared<store::StoredDevice>(u"d", u"", ~std::uint64_t{0});
    std::uint64_t Rows = 0;

  private:
    std::vector<DM::SignalProxy*> Made;
};

// What is wrong with signals made of such a device; empty if nothing is.
std::string Fault(const Signals& signals) {
    const std::uint64_t rows = signals[0]->Times().Index().Count();
    for (const auto& signal : signals) {
        if (signal->Count() != rows) return signal->Name() + " has another number of rows";
        if (rows == 0) continue;
        const TimeRange all{0, static_cast<std::int64_t>(rows) * Step};
        const Peaks peaks = signal->TraceOf(all, 50).All();
        if (signal->Kind() == SignalKind::Number &&
            (peaks.Lowest != 0 || peaks.Highest + 1 + (IsGap(rows - 1) ? 1 : 0) < static_cast<double>(rows)))
            return signal->Name() + " has other peaks";
    }
    for (std::uint64_t row = 0; row < rows; row += 1 + rows / 97) {
        const std::string number = std::to_string(row);
        if (signals[0]->Sample(row).Text != (IsGap(row) ? "" : number)) return "another number at " + number;
        if (signals[1]->Sample(row).Text != number) return "another integer at " + number;
        if (signals[3]->Sample(row).Text != '"' + TextOf(row) + '"') return "another text at " + number;
        if (signals[1]->Sample(row).Time != static_cast<std::int64_t>(row) * Step) return "another time";
        if (signals[1]->Times().Index().RowsBefore(static_cast<std::int64_t>(row) * Step) != row)
            return "another row at a time";
    }
    return {};
}

TEST(GrowingSignals, ShowWhatHadComeWhenTheyWereMade) {
    Filled filled;
    GrowingSignals growing(2);
    std::vector<Signals> all;
    for (const std::uint64_t rows : {0u, 10u, 60u, 1u, 2000u, 20'000u, 1u, 9000u, 100'000u}) {
        filled.AddRows(rows);
        all.push_back(growing.MakeAll(filled.Device));
        if (rows == 2000) filled.Device->Finish();
    }
    filled.Device->Finish();
    all.push_back(growing.MakeAll(filled.Device));
    std::uint64_t before = 0;
    for (const Signals& signals : all) {
        EXPECT_EQ(Fault(signals), "");
        EXPECT_GE(signals[0]->Count(), before);
        before = signals[0]->Count();
    }
    EXPECT_EQ(before, filled.Rows);
    EXPECT_EQ(Fault(GrowingSignals(1).MakeAll(filled.Device)), "");
}

// Any part of what was made bit by bit has the peaks of what was made at once.
TEST(GrowingSignals, HaveThePeaksOfSignalsMadeAtOnce) {
    Filled filled;
    GrowingSignals growing(1);
    for (int i = 0; i < 15; ++i) {
        filled.AddRows(3000 + static_cast<std::uint64_t>(i) * 17);
        growing.MakeAll(filled.Device);
    }
    filled.Device->Finish();
    const auto bitByBit = growing.MakeAll(filled.Device)[0];
    const auto atOnce = GrowingSignals(1).MakeAll(filled.Device)[0];
    for (std::int64_t from = 0; from < 45'000; from += 2917) {
        const TimeRange range{from * Step, (from + 9000) * Step};
        const Peaks one = bitByBit->TraceOf(range, 1).All();
        const Peaks other = atOnce->TraceOf(range, 1).All();
        EXPECT_TRUE(one.Lowest == other.Lowest && one.Highest == other.Highest && one.HasGap == other.HasGap)
            << "from row " << from;
    }
}

// What one thread makes and another reads.
class Latest {
  public:
    void Put(Signals signals) {
        const std::lock_guard lock(Mutex);
        Now = std::move(signals);
    }
    Signals Get() {
        const std::lock_guard lock(Mutex);
        return Now;
    }

  private:
    std::mutex Mutex;
    Signals Now;
};

TEST(GrowingSignals, AreReadWhileTheDeviceIsFilled) {
    Latest latest;
    std::thread filling([&latest] {
        Filled filled;
        GrowingSignals growing(1);
        for (int i = 0; i < 100; ++i) {
            filled.AddRows(200);
            latest.Put(growing.MakeAll(filled.Device));
        }
        filled.Device->Finish();
        latest.Put(growing.MakeAll(filled.Device));
    });
    std::uint64_t rows = 0;
    while (rows < 20'000) {
        const Signals signals = latest.Get();
        if (signals.empty()) continue;
        ASSERT_EQ(Fault(signals), "");
        rows = signals[0]->Count();
    }
    filling.join();
}

// Several threads read ranges of a file; who looks at the plots meanwhile is another one.
TEST(GrowingSignals, AreReadWhileAFileIsReadInRanges) {
    constexpr int Rows = 20'000;
    const Workdir folder;
    std::string text = "time;a;b\n";
    for (int i = 0; i < Rows; ++i) text += std::to_string(i) + ".0;" + std::to_string(i) + ".5;w" + "\n";
    const std::u16string path = folder.Write("data.csv", text);
    plan::AutomaticReading reading(HostModule(), path, {}, {});
    Latest latest;
    GrowingSignals growing(1);
    RunOptions options;
    options.KeepSamples = KeepAll;
    options.Reading = &reading;
    options.Threads = 3;
    options.Sizes.LeastFile = 1;
    options.Sizes.Range = 5000;
    HostSession* session = nullptr;
    int looks = 0;
    options.OnGrown = [&] {
        ++looks;
        latest.Put(growing.MakeAll(session->ShareDevice()));
    };
    HostSession reads(HostModule(), path, options);
    session = &reads;
    std::atomic<bool> isDone = false;
    std::thread looking([&] {
        while (!isDone) {
            const Signals signals = latest.Get();
            if (signals.empty() || signals[0]->Count() == 0) continue;
            const double last = *signals[0]->Sample(signals[0]->Count() - 1).Number;
            EXPECT_EQ(signals[0]->TraceOf(signals[0]->Times().Range(), 100).All().Highest, last);
        }
    });
    const RunResult result = reads.Run();
    isDone = true;
    looking.join();
    EXPECT_EQ(result.Lines, static_cast<std::uint64_t>(Rows));
    EXPECT_GT(looks, 20);
    EXPECT_EQ(growing.MakeAll(reads.ShareDevice())[0]->Count(), static_cast<std::uint64_t>(Rows));
}

}  // namespace growing_tests
