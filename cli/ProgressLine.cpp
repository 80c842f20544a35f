#include "cli/ProgressLine.h"

#include <cmath>
#include <filesystem>
#include <iostream>
#include <utility>

#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Terminal.h"

namespace kelvarin::cli {

ProgressLine::ProgressLine(std::string file) : File(std::move(file)), OnTerminal(IsErrorTerminal()) {
    std::error_code unknown;
    const std::uintmax_t bytes = std::filesystem::file_size(PathForStream(PathFromNative(File)), unknown);
    constexpr double BytesInMegabyte = 1e6;
    if (!unknown) Megabytes = static_cast<double>(bytes) / BytesInMegabyte;
}

ProgressLine::~ProgressLine() {
    if (Shown) std::cerr << "\r\033[K" << std::flush;
}

void ProgressLine::Show(std::uint32_t percent) {
    if (!OnTerminal) return;
    Shown = true;
    std::cerr << "\r\033[K" << File << "  " << percent << " %";
    // The first moments tell nothing of the rest.
    constexpr double LeastSeconds = 0.3;
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - Start;
    if (elapsed.count() >= LeastSeconds && percent > 0 && percent <= 100) {
        const double done = percent / 100.0;
        const auto speed = std::lround(Megabytes * done / elapsed.count());
        const auto left = std::lround(elapsed.count() * (1 - done) / done);
        std::cerr << "  " << Phrase("{} MB/s, {} s left", speed, left);
    }
    std::cerr << std::flush;
}

}  // namespace kelvarin::cli
