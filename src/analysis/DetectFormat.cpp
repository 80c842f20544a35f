// Finds out how an unknown file is built, in two passes over its first 100 lines: the separator that is
// regular from the earliest line on, then the first line with enough numbers below it.
#include <algorithm>
#include <array>
#include <deque>
#include <span>
#include <string>

#include "analysis/NumberCells.h"
#include "analysis/SplitLine.h"
#include "contract/AnalysisObserver.h"
#include "contract/StdioFileEx.h"
#include "platform/framework/Text.h"
#include "settings/CsvImportSettings.h"

namespace {

// From which line on each separator has had the same count, not zero, in every line that isn't blank.
class SeparatorRuns {
  public:
    void AddLine(std::u16string_view line, int lineNumber) {
        const SeparatorCounts counts = CountSeparators(line);
        for (std::size_t i = 0; i < Runs.size(); ++i) {
            const std::int32_t count = i == SeparatorSpace ? counts[i].Merged : counts[i].All;
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

// The first lines of a file, read twice. What is read the first time is kept for the second, if it isn't too
// much.
class FirstLines {
  public:
    explicit FirstLines(CStdioFileEx& file) : File(file) { File.SeekToBegin(true); }

    // The next line; false at the end of the file or after the last one that is looked at. Raises what the
    // file raises. It may be changed.
    bool Next(std::u16string*& line) {
        if (Count == LinesLookedAt) return false;
        if (IsAgain && AreKept) {
            if (Count == Kept.size()) return false;
            line = &Kept[Count++];
            return true;
        }
        if (!AreKept) Kept.clear();
        line = &Kept.emplace_back();
        if (!File.ReadString(*line)) {
            Kept.pop_back();
            return false;
        }
        ++Count;
        Units += line->size();
        AreKept &= Units <= MostUnitsKept;
        return true;
    }

    void Rewind() {
        Count = 0;
        IsAgain = true;
        if (!AreKept) File.SeekToBegin(true);
    }

  private:
    static constexpr std::size_t LinesLookedAt = 100;
    static constexpr std::size_t MostUnitsKept = 128 * 1024;

    CStdioFileEx& File;
    std::deque<std::u16string> Kept;
    std::size_t Count = 0;  // lines given
    std::size_t Units = 0;
    bool AreKept = true;
    bool IsAgain = false;
};

// The first data line from `firstLine` on, or 0.
int FindDataLine(FirstLines& lines, int firstLine, int separator, IAnalysisObserver* observer) {
    std::u16string* line = nullptr;
    CellList cells;
    for (int number = 1; lines.Next(line); ++number) {
        if (number < firstLine) continue;
        SplitLine(line->data(), SeparatorCharOf(static_cast<std::uint32_t>(separator)),
                  separator == SeparatorSpace, cells);
        const TestedLine tested = TestLine(number, cells);
        if (observer != nullptr) observer->OnLineTested(tested);
        if (tested.IsData()) return number;
    }
    return 0;
}

}  // namespace

bool CCsvImportSettings::DetectFormat(CStdioFileEx& file, IAnalysisObserver* observer) {
    FirstLines lines(file);
    std::u16string* line = nullptr;
    SeparatorRuns runs;
    int number = 0;
    while (lines.Next(line)) {
        ++number;
        const std::u16string_view trimmed = TrimWhiteSpace(*line);
        if (trimmed.empty()) continue;
        runs.AddLine(trimmed, number);
        if (observer != nullptr) observer->OnLineCounted(number, trimmed, runs.All());
    }
    if (number == 0) return false;
    DetectedSeparator = runs.Winner();
    DetectedFirstLine = std::max(runs.WinnersStart(), 1);
    DetectedHeader = 0;
    if (observer != nullptr) observer->OnSeparatorChosen(DetectedSeparator, DetectedFirstLine);

    lines.Rewind();
    const int dataLine = FindDataLine(lines, DetectedFirstLine, DetectedSeparator, observer);
    if (dataLine > DetectedFirstLine) {
        DetectedFirstLine = dataLine - 1;
        DetectedHeader = 1;
    }
    if (observer != nullptr) observer->OnFormatDetected(DetectedFirstLine, DetectedHeader != 0);
    ApplyAutoFormat();
    return true;
}
