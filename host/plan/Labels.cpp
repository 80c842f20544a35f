#include "host/plan/Labels.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>

#include "host/plan/Units.h"
#include "host/plan/WordList.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
constexpr std::size_t LinesOfABlock = 24;

struct LabelLine {
    std::size_t Index;  // in the sample
    std::vector<std::u16string> Cells;
    std::size_t Filled = 0;
    std::size_t Different = 0;  // texts
    std::size_t Units = 0;      // cells that are units
    int Gaps = 0;               // of blank lines between it and the table
};

// The lines above the table that may describe its columns, the lowest first.
std::vector<LabelLine> LinesAbove(const FileSample& sample, const FoundTable& table) {
    std::vector<LabelLine> lines;
    LineCutter cut(table.How);
    int gaps = 0;
    for (std::size_t i = table.First; i-- > 0 && table.First - i <= LinesOfABlock;) {
        const RowShape& shape = table.Shapes[i];
        if (shape.Filled == 0) {
            const bool isFirstOfGap = i + 1 == table.First || table.Shapes[i + 1].Filled != 0;
            gaps += isFirstOfGap;
            if (gaps > 1) break;
            continue;
        }
        if (2 * shape.Cells < table.Width || shape.Cells > table.Width + 2) continue;
        // A key and its value, filled up with separators.
        if (table.Width > 4 && shape.Filled <= 2) continue;
        // A line that is drawn: "----+----".
        const std::u16string& text = sample.Lines[i].Text;
        if (std::none_of(text.begin(), text.end(), [](char16_t c) { return IsLetter(c) || IsDigit(c); }))
            continue;
        LabelLine line{i, {}, 0, 0, 0, gaps};
        std::set<std::u16string_view> texts;
        const auto& cells = cut(sample.Lines[i].Text);
        for (const std::u16string_view cell : cells) {
            line.Cells.emplace_back(cell);
            line.Filled += !cell.empty();
            // "t" is rather the name of the time than tonnes.
            line.Units += cell != u"t" && IsUnit(WithoutBrackets(cell));
        }
        for (const std::u16string& cell : line.Cells) {
            if (!cell.empty()) texts.insert(cell);
        }
        DropIntroduction(line.Cells, table.Width);
        line.Different = texts.size();
        lines.push_back(std::move(line));
    }
    return lines;
}

bool IsUnitsLine(const LabelLine& line) {
    return line.Units > 0 &&
           (2 * line.Units >= line.Filled || (line.Units >= 3 && 2 * line.Different <= line.Filled));
}

// True unless most columns of values hold values in this line too: then it is a row apart from the rest.
bool IsUnlikeRows(const RowShape& shape, const FoundTable& table) {
    std::size_t values = 0;
    std::size_t words = 0;
    for (std::size_t i = 0; i < table.HoldsValues.size(); ++i) {
        const CellKind kind = shape.Kind(i);
        if (!table.HoldsValues[i] || kind == CellKind::Empty) continue;
        ++(kind == CellKind::Word ? words : values);
    }
    return values == 0 || words >= values || (values == 1 && words > 0);
}

// True for a line with a date or a clock among words: "Begin Triggerblock Thu May 4 10:00:00 2023". Names may
// all be clocks.
bool IsSaidOfATime(const RowShape& shape) {
    const auto times =
        static_cast<std::size_t>(std::count(shape.Kinds.begin(), shape.Kinds.end(), CellKind::Time));
    return times > 0 && 2 * times < shape.Filled;
}

// Units and types repeat and leave cells empty, names don't: of the lines nearly as rich in different texts
// as the richest, the lowest that isn't one of units.
const LabelLine* NamesOf(const std::vector<LabelLine>& lines, const FoundTable& table) {
    std::size_t richest = 0;
    const bool anyFits = std::any_of(lines.begin(), lines.end(),
                                     [&](const LabelLine& line) { return line.Cells.size() == table.Width; });
    for (const LabelLine& line : lines) {
        if (!anyFits || line.Cells.size() == table.Width)
            richest = std::max(richest, IsUnitsLine(line) ? 0 : line.Different);
    }
    for (const LabelLine& line : lines) {
        // What lies across a gap from a line of words belongs to another table.
        if (line.Gaps != lines.front().Gaps) break;
        const RowShape& shape = table.Shapes[line.Index];
        // Numbers may be names only above units: the channels of an oscilloscope.
        const bool isAboveUnits =
            &line != lines.data() && IsUnitsLine(*(&line - 1)) && shape.Kind(0) == CellKind::Word;
        const bool isNumbers = 2 * shape.Numbers > shape.Filled && shape.Filled > 2;
        if (5 * line.Different < 4 * richest || IsUnitsLine(line) || IsSaidOfATime(shape)) continue;
        if (anyFits && line.Cells.size() != table.Width && line.Cells.size() + 1 != table.Width) continue;
        // A key and its value above others that fit.
        if (anyFits && line.Cells.size() != table.Width && shape.Numbers > 0) continue;
        // Units below names: as many cells, and none of the names is a unit.
        const LabelLine* const above = &line + 1;
        const bool isBelowNames = line.Units >= 2 && &line != &lines.back() && above->Units == 0 &&
                                  above->Cells.size() == line.Cells.size();
        if (isBelowNames) continue;
        if (shape.AreKinds && lines.size() > 1 && &line != &lines.back()) continue;
        if (isAboveUnits || (!isNumbers && IsUnlikeRows(shape, table))) return &line;
    }
    // Names may be units too, such as A, B and C: those that are not all units are names, above or below
    // others that are.
    for (const LabelLine& line : lines) {
        const bool hasUnits = std::any_of(lines.begin(), lines.end(), [&](const LabelLine& other) {
            return &other != &line && other.Units == other.Filled;
        });
        if (hasUnits && line.Units > 0 && line.Units < line.Filled) return &line;
    }
    // There are no units without names.
    const auto isUnits = [](const LabelLine& line) {
        return IsUnitsLine(line) && line.Different == line.Filled;
    };
    if (std::count_if(lines.begin(), lines.end(), IsUnitsLine) == 1 && isUnits(lines.front()))
        return &lines.front();
    if (lines.size() != 1 || lines.front().Filled == 0) return nullptr;
    const RowShape& only = table.Shapes[lines.front().Index];
    return 2 * only.Numbers > only.Filled || IsSaidOfATime(only) ? nullptr : &lines.front();
}
}  // namespace

void DropIntroduction(std::vector<std::u16string>& cells, std::size_t width) {
    constexpr std::u16string_view Marks[] = {u"#", u"%", u";", u"//"};
    const auto isIntroduction = [&](const std::u16string& cell) {
        return cell.ends_with(u':') || std::find(std::begin(Marks), std::end(Marks), cell) != std::end(Marks);
    };
    while (cells.size() > width && isIntroduction(cells.front())) cells.erase(cells.begin());
}

Labels FindLabels(const FileSample& sample, const FoundTable& table) {
    Labels labels;
    labels.Columns.resize(table.Width);
    const std::vector<LabelLine> lines = LinesAbove(sample, table);
    const LabelLine* const names = NamesOf(lines, table);
    const auto units = std::find_if(lines.begin(), lines.end(), [&](const LabelLine& line) {
        return &line != names && line.Gaps == lines.front().Gaps &&
               (IsUnitsLine(line) || (names != nullptr && &line < names && line.Units >= 2));
    });
    for (const LabelLine& line : lines) {
        // A key and its value above the names say nothing of a column.
        const RowShape& shape = table.Shapes[line.Index];
        if (names != nullptr && line.Index < names->Index && shape.Numbers + shape.Values > 0) continue;
        for (std::size_t i = 0; i < std::min(line.Cells.size(), table.Width); ++i) {
            if (!line.Cells[i].empty()) labels.Columns[i].All.push_back(line.Cells[i]);
        }
    }
    if (names != nullptr) {
        labels.NamesLine = sample.Lines[names->Index].Number;
        for (std::size_t i = 0; i < std::min(names->Cells.size(), table.Width); ++i) {
            labels.Columns[i].Name = names->Cells[i];
            labels.Columns[i].Unit = UnitInName(names->Cells[i]);
        }
    }
    if (units != lines.end()) {
        labels.UnitsLine = sample.Lines[units->Index].Number;
        for (std::size_t i = 0; i < std::min(units->Cells.size(), table.Width); ++i) {
            if (!units->Cells[i].empty())
                labels.Columns[i].Unit = std::u16string(WithoutBrackets(units->Cells[i]));
        }
    }
    return labels;
}
}  // namespace kelvarin::plan
