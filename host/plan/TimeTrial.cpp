#include "host/plan/TimeTrial.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "host/plan/QuickCut.h"

namespace kelvarin::plan {
namespace {
std::int64_t MedianOf(std::vector<std::int64_t> steps) {
    if (steps.empty()) return 0;
    const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
    std::nth_element(steps.begin(), middle, steps.end());
    return *middle;
}

bool AreOfOther(const std::vector<OtherTable>& others, std::uint64_t line, std::size_t width) {
    return std::any_of(others.begin(), others.end(),
                       [&](const OtherTable& other) { return other.Columns != width && other.Holds(line); });
}

// The only filled cell of a line, if it is a date.
std::u16string LoneDateOf(const std::vector<std::u16string_view>& cells) {
    std::u16string_view lone;
    for (const std::u16string_view cell : cells) {
        if (cell.empty()) continue;
        if (!lone.empty()) return {};
        lone = cell;
    }
    const std::optional<ParsedTime> time = ParseInAnyOrder(lone, 0);
    return time && time->HasDate && !time->HasClock ? std::u16string(lone) : std::u16string();
}

// The date in the line directly above the table.
std::u16string DateAbove(const FileSample& sample, const FoundTable& table, LineCutter& cut) {
    if (table.First == 0) return {};
    return LoneDateOf(cut(sample.Lines[table.First - 1].Text));
}

// `quick` has cut these cells; null if LineCutter has.
void AddRow(const std::vector<std::u16string_view>& cells, const QuickCut* quick, TableRows& rows) {
    auto& row = rows.Cells.emplace_back();
    auto& looks = rows.Looks.emplace_back();
    row.reserve(cells.size());
    looks.reserve(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        row.push_back(rows.Texts->Add(cells[i]));
        looks.push_back(quick == nullptr ? CellLook::Other : quick->LookAt(i));
    }
}
}  // namespace

TableRows RowsOf(const FileSample& sample, const FoundTable& table, const std::vector<OtherTable>& others,
                 char16_t mark) {
    TableRows rows;
    rows.Width = table.Width;
    rows.LookMark = mark;
    rows.Texts = std::make_shared<TextPool>();
    QuickCut quick(table.How, mark);
    LineCutter cut(table.How);
    int notes = 0;
    bool isAfterGap = false;
    std::u16string date = DateAbove(sample, table, cut);
    for (std::size_t i = table.First; i < sample.Lines.size(); ++i) {
        isAfterGap |= sample.Lines[i].IsAfterGap;
        if (AreOfOther(others, sample.Lines[i].Number, table.Width)) continue;
        const RowShape& shape = table.Shapes[i];
        if (!shape.LooksLikeData() || (shape.Cells < 2 && table.Width > 1)) {
            // What follows so many other lines belongs to another table.
            constexpr int MostNotes = 5;
            notes += shape.Filled != 0;
            if (notes > MostNotes && !rows.Cells.empty() && i < sample.Head) break;
            if (std::u16string lone = LoneDateOf(cut(sample.Lines[i].Text)); !lone.empty())
                date = std::move(lone);
            continue;
        }
        notes = 0;
        const std::u16string& text = sample.Lines[i].Text;
        const bool isQuick = quick(text);
        AddRow(isQuick ? quick.Cells() : cut(text), isQuick ? &quick : nullptr, rows);
        rows.IsAfterGap.push_back(isAfterGap);
        isAfterGap = false;
        rows.DateLines.push_back(std::exchange(date, {}));
    }
    return rows;
}

std::vector<std::u16string_view> TextsOf(const TableRows& rows, std::size_t column) {
    std::vector<std::u16string_view> texts;
    for (const auto& row : rows.Cells) {
        if (column < row.size() && !row[column].empty()) texts.push_back(row[column]);
    }
    return texts;
}

TimeTrial Try(const TimeRecipe& recipe, const TableRows& rows) {
    TimeTrial trial;
    std::vector<std::int64_t> steps;
    std::optional<std::int64_t> before;
    TimeWalk walk(recipe);
    for (std::size_t i = 0; i < rows.Cells.size(); ++i) {
        if (recipe.HasDateLines && i < rows.DateLines.size()) walk.TakeDate(rows.DateLines[i]);
        const std::optional<std::int64_t> time = walk.Next(rows.Cells[i], rows.Width);
        if (!time) continue;
        if (trial.Read++ == 0) trial.First = *time;
        trial.Last = *time;
        if (before && !rows.IsAfterGap[i]) {
            trial.Rising += *time > *before;
            trial.Equal += *time == *before;
            trial.Falling += *time < *before;
            if (*time > *before) steps.push_back(*time - *before);
        }
        before = time;
    }
    constexpr std::size_t FewestRows = 5;
    trial.EndsAtStart = trial.Read >= FewestRows && trial.Falling == 1 && trial.Last == trial.First;
    trial.MedianStep = MedianOf(std::move(steps));
    return trial;
}
}  // namespace kelvarin::plan
