#include "host/plan/Labels.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>

#include "host/plan/Units.h"
#include "host/plan/WordList.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
void DropIntroduction(std::vector<std::u16string>& cells, std::size_t width) {
    constexpr std::u16string_view Marks[] = {u"#", u"%", u";", u"//"};
    const auto isIntroduction = [&](const std::u16string& cell) {
        return cell.ends_with(u':') || std::find(std::begin(Marks), std::end(Marks), cell) != std::end(Marks);
    };
    while (cells.size() > width && isIntroduction(cells.front())) cells.erase(cells.begin());
}

namespace {
constexpr std::size_t LinesOfABlock = 24;

struct LabelLine {
    std::size_t Index;  // in the sample
    std::vector<std::u16string> Cells;
    std::size_t Filled = 0;
    std::size_t Different = 0;  // texts
    std::size_t Units = 0;      // cells that are units
    std::size_t Capitals = 0;   // cells that are units in capitals, or may be such
    int Gaps = 0;               // of blank lines between it and the table
    bool IsProse = false;       // a sentence or a setting
};

// Pieces of a line between runs of two blanks or more.
std::vector<std::u16string_view> GroupsOf(std::u16string_view line) {
    std::vector<std::u16string_view> groups;
    for (std::size_t at = line.find_first_not_of(u' '); at < line.size();) {
        const std::size_t end = std::min(line.find(u"  ", at), line.size());
        groups.push_back(TrimWhiteSpace(line.substr(at, end - at)));
        at = line.find_first_not_of(u' ', end);
    }
    return groups;
}

// The cells of a line above a table between blanks that is not cut as its rows are: as many groups as a row,
// or each group above one column. Empty if they can't be told.
std::vector<std::u16string> PlacedCells(std::u16string_view line, std::u16string_view row,
                                        std::size_t width) {
    struct Span {
        std::size_t Begin = 0, End = 0;
    };
    const auto spansOf = [&](const std::vector<std::u16string_view>& parts, std::u16string_view whole) {
        std::vector<Span> spans;
        for (const std::u16string_view part : parts) {
            const auto begin = static_cast<std::size_t>(part.data() - whole.data());
            spans.push_back({begin, begin + part.size()});
        }
        return spans;
    };
    if (line.find(u'\t') != line.npos || row.find_first_of(u"\t\"") != row.npos) return {};
    LineCutter cut(Cut{u' ', true, false});
    const std::vector<std::u16string_view> values = cut(row);
    const std::vector<std::u16string_view> groups = GroupsOf(line);
    const std::vector<std::u16string_view> fields = GroupsOf(row);
    if (values.size() != width || groups.size() < 2 || 2 * groups.size() < width) return {};
    const std::vector<Span> columns = spansOf(values, row);
    const bool isCounted = groups.size() == fields.size();
    const std::vector<Span> names = spansOf(isCounted ? fields : groups, isCounted ? row : line);
    std::vector<std::u16string> cells(width);
    std::size_t next = 0;  // column
    for (std::size_t i = 0; i < groups.size(); ++i) {
        while (next < width && columns[next].End <= names[i].Begin) ++next;
        if (next == width || columns[next].Begin >= names[i].End) return {};
        cells[next++] = groups[i];
    }
    return cells;
}

// A sentence, a heading, or a key and its value: "shaft: 35 mm", "Range =100".
bool IsProse(std::u16string_view line) {
    constexpr std::u16string_view Words =
        u" is are was the of for from this that these and with may not und ist der die das nicht mit est les "
        u"des ";
    line = TrimWhiteSpace(line);
    const bool isHeading = line.starts_with(u'[') && line.find(u']') + 1 == line.size();
    const bool isTitle = line.ends_with(u':') && line.find(u':') + 1 == line.size() &&
                         line.find_first_of(u"\t,;") == line.npos;
    if (isHeading || isTitle) return true;
    if (line.find(u" =") != line.npos || line.find(u"= ") != line.npos) return true;
    std::set<std::u16string> words;
    std::size_t at = 0;
    while (at < line.size()) {
        const std::size_t end = std::min(line.find_first_of(u" \t,;", at), line.size());
        std::u16string word = Lowered(line.substr(at, end - at));
        if (IsListed(Words, word)) words.insert(std::move(word));
        at = end + 1;
    }
    return words.size() >= 2;
}

// A key and a value with a number: "T0: 07.03.2024", "% shaft: 35 mm". A key alone introduces names, and in
// brackets is a remark.
bool IsSetting(const std::vector<std::u16string>& cells) {
    std::u16string line;
    for (const std::u16string& cell : cells) line += cell + u' ';
    const std::size_t begin = std::min(line.find_first_not_of(u"#%;/* "), line.size());
    const std::u16string_view text = std::u16string_view(line).substr(begin);
    const std::size_t colon = text.find(u": ");
    if (colon == text.npos || text.substr(0, colon).find_first_of(u"([ ") != text.npos) return false;
    const std::u16string_view value = TrimWhiteSpace(text.substr(colon + 1));
    return !value.empty() && (IsDigit(value.front()) || value.front() == u'-');
}

// Cells beyond the width without a letter or a digit: the line that a table is drawn with.
void DropDrawn(std::vector<std::u16string>& cells, std::size_t width) {
    const auto isDrawn = [](const std::u16string& cell) {
        return std::none_of(cell.begin(), cell.end(), [](char16_t c) { return IsLetter(c) || IsDigit(c); });
    };
    while (cells.size() > width && !cells.back().empty() && isDrawn(cells.back())) cells.pop_back();
}

// True for a line that fits the table without its mark of a comment.
bool HasWidthAsWords(const FileSample& sample, const FoundTable& table, std::size_t index) {
    LineCutter cut(table.How);
    std::vector<std::u16string> cells;
    for (const std::u16string_view cell : cut(sample.Lines[index].Text)) cells.emplace_back(cell);
    DropIntroduction(cells, table.Width);
    DropDrawn(cells, table.Width);
    return cells.size() == table.Width;
}

// True if the first cells of the rows count them, "1", "2" and so on, and their last cells are filled.
bool AreRowsNumbered(const FileSample& sample, const FoundTable& table) {
    constexpr std::size_t RowsLookedAt = 3;
    LineCutter cut(table.How);
    for (std::size_t i = 0; i < RowsLookedAt; ++i) {
        if (table.First + i >= sample.Lines.size()) return i > 1;
        const std::vector<std::u16string_view>& cells = cut(sample.Lines[table.First + i].Text);
        const std::u16string number = Utf8ToUtf16(std::to_string(i + 1));
        if (cells.size() != table.Width || cells.front() != number || cells.back().empty()) return false;
    }
    return true;
}

// Names one short above numbered rows: the column of the numbers has none, unless one says that it counts.
void MakeRoomForNumbers(std::vector<std::u16string>& cells) {
    constexpr std::u16string_view Counting =
        u" no no. nr nr. # index record rec id row sample n num number line point ";
    if (!IsListed(Counting, Lowered(cells.front()))) cells.insert(cells.begin(), std::u16string());
}

// The lines above the table that may describe its columns, the lowest first.
std::vector<LabelLine> LinesAbove(const FileSample& sample, const FoundTable& table) {
    std::vector<LabelLine> lines;
    LineCutter cut(table.How);
    const bool areNumbered = AreRowsNumbered(sample, table);
    int gaps = 0;
    for (std::size_t i = table.First; i-- > 0 && table.First - i <= LinesOfABlock;) {
        const RowShape& shape = table.Shapes[i];
        if (shape.Filled == 0) {
            const bool isFirstOfGap = i + 1 == table.First || table.Shapes[i + 1].Filled != 0;
            gaps += isFirstOfGap;
            if (gaps > 1) break;
            continue;
        }
        const bool isBetweenBlanks = table.How.Separator == u' ' && table.How.Merges;
        std::vector<std::u16string> placed;
        if (isBetweenBlanks && shape.Cells != table.Width && !HasWidthAsWords(sample, table, i))
            placed = PlacedCells(sample.Lines[i].Text, sample.Lines[table.First].Text, table.Width);
        if (placed.empty() && (2 * shape.Cells < table.Width || shape.Cells > table.Width + 2)) continue;
        // A key and its value, filled up with separators.
        if (table.Width > 4 && shape.Filled <= 2) continue;
        // A line that is drawn: "----+----".
        const std::u16string& text = sample.Lines[i].Text;
        if (std::none_of(text.begin(), text.end(), [](char16_t c) { return IsLetter(c) || IsDigit(c); }))
            continue;
        LabelLine line{i, std::move(placed), 0, 0, 0, 0, gaps, false};
        std::set<std::u16string_view> texts;
        if (line.Cells.empty()) {
            for (const std::u16string_view cell : cut(sample.Lines[i].Text)) line.Cells.emplace_back(cell);
        }
        DropDrawn(line.Cells, table.Width);
        for (const std::u16string_view cell : line.Cells) {
            line.Filled += !cell.empty();
            // "t" is rather the name of the time than tonnes.
            line.Units += cell != u"t" && IsUnit(WithoutBrackets(cell));
            line.Capitals += IsUnitInCapitals(WithoutBrackets(cell));
        }
        for (const std::u16string& cell : line.Cells) {
            if (!cell.empty()) texts.insert(cell);
        }
        line.IsProse = IsProse(text) || IsSetting(line.Cells);
        DropIntroduction(line.Cells, table.Width);
        if (areNumbered && line.Cells.size() + 1 == table.Width) MakeRoomForNumbers(line.Cells);
        line.Different = texts.size();
        lines.push_back(std::move(line));
    }
    return lines;
}

bool IsUnitsLine(const LabelLine& line) {
    return line.Units > 0 &&
           (2 * line.Units >= line.Filled || (line.Units >= 3 && 2 * line.Different <= line.Filled));
}

// Nothing but units, in capitals and repeated, below names: "DEG F,DEG F,PCT".
bool IsBelowNames(const LabelLine& line, const std::vector<LabelLine>& lines) {
    const LabelLine* const above = &line + 1;
    return &line != &lines.back() && line.Capitals >= 2 && line.Capitals == line.Filled &&
           above->Capitals < above->Filled && above->Cells.size() == line.Cells.size();
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
        if (isBelowNames || IsBelowNames(line, lines)) continue;
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

// Units that may be words where other names end in units: "Pressure bar" beside "Oil °C", "Battery V" beside
// "Altitude m". A letter that only tells names apart is none: "Phase A" beside "Phase B".
void TakeLikelyUnits(std::vector<Label>& columns) {
    const auto stemOf = [](const std::u16string& name) { return name.substr(0, name.rfind(u' ')); };
    const auto isSeries = [&](const Label& label) {
        return std::any_of(columns.begin(), columns.end(), [&](const Label& other) {
            return &other != &label && other.Name.size() == label.Name.size() &&
                   stemOf(other.Name) == stemOf(label.Name) && other.Name != label.Name;
        });
    };
    std::vector<std::pair<Label*, std::u16string_view>> likely;
    std::set<std::u16string_view> different;
    bool isAnySure = false;
    for (Label& label : columns) {
        const std::u16string_view unit = MaybeUnitInName(label.Name);
        if (!label.Unit.empty()) {
            isAnySure |= label.Unit == unit;
        } else if (!unit.empty() && (unit.size() > 1 || !isSeries(label))) {
            likely.emplace_back(&label, unit);
            different.insert(unit);
        }
    }
    if (!isAnySure && different.size() < 2) return;
    for (const auto& [label, unit] : likely) label->Unit = unit;
}
}  // namespace

Labels FindLabels(const FileSample& sample, const FoundTable& table) {
    Labels labels;
    labels.Columns.resize(table.Width);
    const std::vector<LabelLine> all = LinesAbove(sample, table);
    std::vector<LabelLine> lines;
    // False names are worse than none.
    std::copy_if(all.begin(), all.end(), std::back_inserter(lines),
                 [](const LabelLine& line) { return !line.IsProse; });
    const LabelLine* const names = NamesOf(lines, table);
    const auto units = std::find_if(lines.begin(), lines.end(), [&](const LabelLine& line) {
        return &line != names && line.Gaps == lines.front().Gaps &&
               (IsUnitsLine(line) || IsBelowNames(line, lines) ||
                (names != nullptr && &line < names && line.Units >= 2));
    });
    for (const LabelLine& line : all) {
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
        TakeLikelyUnits(labels.Columns);
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
