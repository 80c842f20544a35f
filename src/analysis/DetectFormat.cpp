// Finds out how an unknown file is built, in two passes over its first 100 lines: the separator that is
// regular from the earliest line on, then the first line with enough numbers below it.
#include <algorithm>
#include <array>
#include <span>

#include "analysis/NumberCells.h"
#include "analysis/SplitLine.h"
#include "contract/AnalysisObserver.h"
#include "contract/StdioFileEx.h"
#include "platform/framework/Text.h"
#include "settings/CsvImportSettings.h"

namespace {

constexpr int LinesLookedAt = 100;

// From which line on each separator has had the same count, not zero, in every line that isn't blank.
class SeparatorRuns {
  public:
    void AddLine(std::u16string_view line, int lineNumber) {
        for (std::size_t i = 0; i < Runs.size(); ++i) {
            const bool merge = i == SeparatorSpace;
            const std::int32_t count = CountSeparators(line, static_cast<std::uint32_t>(i), merge);
            if (lineNumber == 1 || count == 0 || count != Runs[i].LastCount) Runs[i].Start = lineNumber;
            Runs[i].LastCount = count;
        }
    }

    // The separator whose run starts first; of several the one of the lowest index.
    int Winner() const {
        const auto earlier = [](const SeparatorRun& a, const SeparatorRun& b) { return a.Start < b.Start; };
        return static_cast<int>(std::min_element(Runs.begin(), Runs.end(), earlier) - Runs.begin());
    }
    int WinnersStart() const { return Runs[static_cast<std::size_t>(Winner())].Start; }
    std::span<const SeparatorRun> All() const { return Runs; }

  private:
    std::array<SeparatorRun, FixedSeparatorCount> Runs;
};

// A line of data needs numbers in a quarter of its cells, rounded up.
TestedLine TestLine(int number, const CellList& cells) {
    TestedLine tested{number, cells.size(), 0, (cells.size() + 3) / 4};
    for (char16_t* cell : cells) {
        double value;
        if (ParseFloat(cell, value, nullptr)) ++tested.Numbers;
    }
    return tested;
}

// The first data line from `firstLine` on, or 0.
int FindDataLine(CStdioFileEx& file, int firstLine, int separator, IAnalysisObserver* observer) {
    std::u16string line;
    CellList cells;
    file.SeekToBegin(true);
    for (int number = 1; number <= LinesLookedAt && file.ReadString(line); ++number) {
        if (number < firstLine) continue;
        SplitLine(line.data(), SeparatorCharOf(static_cast<std::uint32_t>(separator)),
                  separator == SeparatorSpace, cells);
        const TestedLine tested = TestLine(number, cells);
        if (observer != nullptr) observer->OnLineTested(tested);
        if (tested.IsData()) return number;
    }
    return 0;
}

}  // namespace

bool CCsvImportSettings::DetectFormat(CStdioFileEx& file, IAnalysisObserver* observer) {
    std::u16string line;
    SeparatorRuns runs;
    file.SeekToBegin(true);
    if (!file.ReadString(line)) return false;
    for (int number = 1;;) {
        const std::u16string_view trimmed = TrimWhiteSpace(line);
        if (!trimmed.empty()) {
            runs.AddLine(trimmed, number);
            if (observer != nullptr) observer->OnLineCounted(number, trimmed, runs.All());
        }
        if (++number > LinesLookedAt || !file.ReadString(line)) break;
    }
    DetectedSeparator = runs.Winner();
    DetectedFirstLine = std::max(runs.WinnersStart(), 1);
    DetectedHeader = 0;
    if (observer != nullptr) observer->OnSeparatorChosen(DetectedSeparator, DetectedFirstLine);

    const int dataLine = FindDataLine(file, DetectedFirstLine, DetectedSeparator, observer);
    if (dataLine > DetectedFirstLine) {
        DetectedFirstLine = dataLine - 1;
        DetectedHeader = 1;
    }
    if (observer != nullptr) observer->OnFormatDetected(DetectedFirstLine, DetectedHeader != 0);
    ApplyAutoFormat();
    return true;
}
