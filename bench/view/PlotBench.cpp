// How fast a plot of many samples comes up and moves, and what it takes beside the samples.
//
//   plot-bench [SAMPLES]   (default: 100 000 000)
#include <QApplication>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>

#include "host/store/StoredDevice.h"
#include "view/model/PlotModel.h"
#include "view/plot/PlotArea.h"

namespace {
using namespace kelvarin::view;
using kelvarin::store::StoredDevice;
using Clock = std::chrono::steady_clock;

constexpr std::int64_t Start = 1'700'000'000'000'000'000;
constexpr int Width = 1600;
constexpr int Height = 900;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// A slow wave with noise and a spike now and then. With `jitter` no two steps of the time are alike.
std::shared_ptr<StoredDevice> MakeDevice(std::int64_t samples, bool jitter) {
    auto device = std::make_shared<StoredDevice>(u"bench", u"", ~std::uint64_t{0});
    DM::SignalProxy* signal = nullptr;
    device->CreateSignal(signal, u"signal", KelvarinDouble, sizeof(double));
    std::uint64_t state = 1;
    for (std::int64_t i = 0; i < samples; ++i) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        const auto noise = static_cast<double>(state >> 40) / (1 << 24);
        const double wave = 50 + 40 * static_cast<double>((i / 1000) % 10'000) / 10'000;
        const double value = state >> 44 == 7 ? 1000 : wave + noise;
        const std::int64_t shift = jitter ? static_cast<std::int64_t>((state >> 33) % 700) : 0;
        signal->AddSample(&value, sizeof value, Start + i * 1000 + shift);
    }
    device->Finish();
    return device;
}

// Pictures a second while one pans, then while one zooms in and out.
void MeasureMovement(PlotModel& model, PlotArea& area, const char* name) {
    constexpr int Pictures = 150;
    model.FitAll();
    model.Zoom(0.5, 0.3);
    auto start = Clock::now();
    for (int i = 0; i < Pictures; ++i) {
        model.Pan(i % 20 < 10 ? 0.02 : -0.02);
        area.ShowLook(true);
    }
    const double panning = Pictures / SecondsSince(start);
    model.FitAll();
    start = Clock::now();
    double longest = 0;
    std::string at;
    for (int i = 0; i < Pictures; ++i) {
        const auto one = Clock::now();
        model.Zoom(i % 60 < 30 ? 0.7 : 1 / 0.7, 0.4);
        area.ShowLook(true);
        if (SecondsSince(one) <= longest) continue;
        longest = SecondsSince(one);
        at = DurationText(model.Visible().To - model.Visible().From);
    }
    const double zooming = Pictures / SecondsSince(start);
    std::printf("%s: %.0f pictures a second panning, %.0f zooming, the longest %.0f ms, of %s\n", name,
                panning, zooming, longest * 1e3, at.c_str());
}

void Measure(std::int64_t samples, bool jitter, const char* name) {
    const std::shared_ptr<StoredDevice> device = MakeDevice(samples, jitter);
    const auto start = Clock::now();
    const auto base = std::make_shared<TimeBase>(device->Signals[0]->Times());
    const double times = SecondsSince(start);
    const std::size_t threads = std::max(1u, std::thread::hardware_concurrency());
    const auto signal = std::make_shared<PlottedSignal>(device, *device->Signals[0], base, threads);
    const double signals = SecondsSince(start);
    PlotModel model;
    PlotArea area(model);
    area.resize(Width, Height);
    area.setViewport(area.rect());
    model.Add(signal, 0);
    area.Rebuild();
    area.ShowLook(true);
    std::printf("%s: first picture after %.2f s (times %.2f s, values %.2f s)\n", name, SecondsSince(start),
                times, signals - times);
    std::printf(
        "%s: %zu MB of samples, %zu MB for the plot: %.1f %%\n", name, signal->SampleBytes() / 1'000'000,
        signal->PlotBytes() / 1'000'000,
        100.0 * static_cast<double>(signal->PlotBytes()) / static_cast<double>(signal->SampleBytes()));
    MeasureMovement(model, area, name);
}
}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    const std::int64_t samples = argc > 1 ? std::atoll(argv[1]) : 100'000'000;
    Measure(samples, false, "steady times");
    Measure(samples, true, "uneven times");
}
