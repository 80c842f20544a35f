#include "cli/ProgressLine.h"

#include <cmath>
#include <filesystem>
#include <iostream>

#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/VisibleText.h"

namespace kelvarin::cli {
constexpr const char* ClearLine = "\r\033[K";

void ProgressLine::Clear() {
    if (std::exchange(Shown, false)) std::cerr << ClearLine << std::flush;
}

void ProgressLine::Show(std::uint32_t percent) {
    if (!HasTerminal) return;
    Shown = true;
    std::cerr << ClearLine << MakeVisible(File) << "  " << percent << " %";
    // The first moments say nothing about the rest.
    constexpr double LeastSeconds = 0.3;
    constexpr double BytesInMegabyte = 1e6;
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - Start;
    std::error_code unknown;
    const std::uintmax_t bytes = std::filesystem::file_size(PathForStream(PathFromNative(File)), unknown);
    if (elapsed.count() >= LeastSeconds && percent > 0 && percent <= 100 && !unknown) {
        const double done = percent / 100.0;
        const auto speed = std::lround(static_cast<double>(bytes) / BytesInMegabyte * done / elapsed.count());
        const auto left = std::lround(elapsed.count() * (1 - done) / done);
        std::cerr << "  " << Phrase("{} MB/s, {} s left", speed, left);
    }
    std::cerr << std::flush;
}
}  // namespace kelvarin::cli
