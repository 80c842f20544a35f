// Any bytes as a measurement file with times: each row of its clean copy has as many cells, times rise, lines
// come from the file, sorting on the disk gives the same copy as sorting in memory, and what cuts lines
// quickly cuts them as the plain way does.
#include <set>

#include "fuzz/kit/PlannedFile.h"
#include "host/plan/CleanCopy.h"
#include "host/plan/ExactProduct.h"
#include "host/plan/QuickCut.h"

namespace {
using namespace kelvarin::plan;

struct Copy {
    CopyResult Result;
    std::vector<std::u16string> Lines;
};

Copy CopyOf(const PlannedFile& file, CopyLayout layout, std::size_t mostSortedBytes) {
    CopyOptions options;
    options.Layout = layout;
    options.MostSortedBytes = mostSortedBytes;
    ScratchFile target;
    Copy copy{WriteCleanCopy(file.Path, *file.Plan, target, options), {}};
    if (copy.Result.Failure.empty()) copy.Lines = LinesOf(target.Path());
    return copy;
}

// The time of a row of the copy in ns.
std::int64_t TimeIn(std::u16string_view cell, CopyTimes times) {
    if (times != CopyTimes::Local) {
        const auto time = ExactProduct(cell, 1'000'000'000, u'.');
        Check(time.has_value(), "a time is a number of seconds");
        return *time;
    }
    TimeStyle style;
    style.Order = DateOrder::YearFirst;
    const auto time = ParseTime(cell, style);
    Check(time && time->HasDate && time->HasClock, "a time has date and clock");
    return time->Written();
}

void CheckRows(const PlannedFile& file, const Copy& copy, CopyLayout layout) {
    const bool isInPlace = layout == CopyLayout::InPlace;
    std::size_t width = 1;
    for (const PlannedColumn& column : file.Plan->Columns) width += isInPlace || !column.IsTime;
    Check(copy.Lines.size() == copy.Result.Rows.Written + 1, "a header, and a line for each row");
    LineCutter cutter(Cut{u'\t', false, false});
    std::int64_t before = INT64_MIN;
    for (std::size_t i = 0; i < copy.Lines.size(); ++i) {
        const auto& cells = cutter(copy.Lines[i]);
        Check(cells.size() == width, "every line of a copy has as many cells");
        if (i == 0) continue;
        const std::int64_t time = TimeIn(isInPlace ? cells.back() : cells.front(), copy.Result.Times);
        Check(time >= before, "times do not fall");
        before = time;
    }
}

void CheckCuts(const PlannedFile& file) {
    QuickCut quick(file.Plan->How, file.Plan->Mark);
    LineCutter plain(file.Plan->How);
    for (const std::u16string& line : file.Lines)
        Check(!quick(line) || quick.Cells() == plain(line), "both ways cut a line alike");
}

void CheckLines(const PlannedFile& file, const Copy& copy) {
    const LineMap& lines = copy.Result.Lines;
    Check(lines.Count() == copy.Lines.size(), "every line of the copy is in the map");
    Check(lines.SourceLine(1) == file.Plan->NamesLine, "the header is the line of names");
    std::set<std::uint64_t> sources;
    for (std::uint64_t i = 2; i <= lines.Count(); ++i) {
        const std::uint64_t source = lines.SourceLine(i);
        Check(source >= file.Plan->FirstLine && source <= file.Lines.size(), "a row is a line of the table");
        Check(sources.insert(source).second, "no line makes two rows");
    }
    const CopyRows& rows = copy.Result.Rows;
    const std::uint64_t leftOut = rows.Blank.Count + rows.Headers.Count + rows.OtherTable.Count +
                                  rows.Timeless.Count + rows.Totals.Count;
    Check(rows.Written + leftOut == file.Lines.size() - file.Plan->FirstLine + 1,
          "every line is counted once");
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzHome home;
    const PlannedFile file(home, {reinterpret_cast<const char*>(data), size});
    if (!file.Plan || !file.Plan->Times) return 0;
    CheckCuts(file);
    for (const CopyLayout layout : {CopyLayout::InPlace, CopyLayout::ForPeople}) {
        const Copy copy = CopyOf(file, layout, std::size_t{64} << 20);
        const Copy again = CopyOf(file, layout, 100);
        Check(copy.Result.Failure == again.Result.Failure && copy.Lines == again.Lines,
              "rows are sorted on the disk as in memory");
        if (!copy.Result.Failure.empty()) continue;
        CheckRows(file, copy, layout);
        CheckLines(file, copy);
    }
    return 0;
}
