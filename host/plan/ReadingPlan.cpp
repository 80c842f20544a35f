#include "host/plan/ReadingPlan.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <utility>

#include "host/plan/CellTally.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
// The number of a cell or of an amount in it; without a mark for any other cell.
struct MarkedNumber {
    std::u16string_view Text;
    NumberLook Look;
};

MarkedNumber MarkedNumberIn(std::u16string_view cell) {
    if (const std::optional<NumberLook> look = LookAtNumber(cell)) return {cell, *look};
    const std::optional<AmountParts> amount = AmountPartsIn(cell);
    const std::optional<NumberLook> look = amount ? LookAtNumber(amount->Number) : std::nullopt;
    return look ? MarkedNumber{amount->Number, *look} : MarkedNumber{};
}

// The decimal mark of a file: that of most decimal numbers, where those before exactly three digits count for
// little. Between commas, where numbers with a comma are in quotes, they count for nothing. `usual`, if it
// isn't NUL, is taken where no number is sure.
char16_t MarkOf(const Cut& how, const TableRows& rows, char16_t usual) {
    constexpr std::size_t Sure = 1000;
    constexpr std::size_t DoubtfulPlaces = 4;  // a mark and three digits
    std::size_t commas = 0;
    std::size_t points = 0;
    for (std::size_t i = 0; i < rows.Cells.size(); ++i) {
        for (std::size_t column = 0; column < rows.Cells[i].size(); ++column) {
            const std::u16string_view cell = rows.Cells[i][column];
            const CellLook known = rows.Looks[i][column];
            if (known != CellLook::Other && known != CellLook::Decimal) continue;
            const MarkedNumber number =
                known == CellLook::Decimal ? MarkedNumber{cell, {rows.LookMark}} : MarkedNumberIn(cell);
            if (number.Look.Mark == u'\0') continue;
            const bool isDoubtful =
                number.Look.Thousands == u'\0' &&
                number.Text.size() - number.Text.rfind(number.Look.Mark) == DoubtfulPlaces;
            (number.Look.Mark == u',' ? commas : points) += isDoubtful ? 1 : Sure;
        }
    }
    if (usual != u'\0' && std::max(commas, points) < Sure) return usual;
    const bool isComma = commas > points && (how.Separator != u',' || commas >= Sure);
    return isComma ? u',' : u'.';
}

bool Reads(const TimeRecipe& recipe, std::size_t column) {
    const std::vector<std::size_t> columns = ColumnsOf(recipe);
    return std::find(columns.begin(), columns.end(), column) != columns.end();
}

void CountCells(const TableRows& rows, ReadingPlan& plan) {
    std::vector<CellTally> tallies(plan.Columns.size());
    for (std::size_t i = 0; i < rows.Cells.size(); ++i) {
        const std::vector<std::u16string_view>& row = rows.Cells[i];
        for (std::size_t column = 0; column < row.size(); ++column) {
            const CellLook look = rows.Looks[i][column];
            const bool isKnown = look != CellLook::Other && plan.Missing.empty() &&
                                 (look != CellLook::Decimal || plan.Mark == rows.LookMark);
            if (isKnown) {
                tallies[column].Add(look);
            } else {
                const bool isMissing = plan.IsDeclaredMissing(row[column]);
                plan.Columns[column].Cells.Add(isMissing ? std::u16string_view() : row[column], plan.Mark);
            }
        }
    }
    for (std::size_t column = 0; column < tallies.size(); ++column)
        tallies[column].AddTo(plan.Columns[column].Cells);
}

// The columns of the plan, which has its decimal mark and its times already.
void AddColumns(const TableRows& rows, const Labels& labels, ReadingPlan& plan) {
    std::size_t width = plan.Width;
    for (const auto& row : rows.Cells) width = std::max(width, row.size());
    plan.Columns.resize(width);
    CountCells(rows, plan);
    const auto countsOf = [&plan](std::size_t i) {
        CellCounts counts = plan.Columns[i].Cells;
        if (i < plan.Elsewhere.size()) counts.Add(plan.Elsewhere[i]);
        return counts;
    };
    bool hasHexadecimal = false;
    for (std::size_t i = 0; i < width && !hasHexadecimal; ++i)
        hasHexadecimal = countsOf(i).Type(false) == ColumnType::Hexadecimal;
    for (std::size_t i = 0; i < width; ++i) {
        PlannedColumn& column = plan.Columns[i];
        const CellCounts counts = countsOf(i);
        if (i < labels.Columns.size()) {
            column.Name = labels.Columns[i].Name;
            column.Unit = labels.Columns[i].Unit;
        }
        if (column.Unit.empty() && counts.Amounts > 0 && counts.Amounts == counts.Text)
            column.Unit = counts.AmountUnit;
        column.HasAmounts = counts.Amounts > 0;
        column.Type = counts.Type(!column.Unit.empty() || IsCountName(column.Name), hasHexadecimal);
        column.IsTime = plan.Times && Reads(plan.Times->Recipe, i);
    }
}
}  // namespace

void CellCounts::Add(std::u16string_view cell, char16_t mark) {
    if (cell.empty()) {
        ++Empty;
        return;
    }
    const PlainNumber plain = LookAtPlainNumber(cell, mark);
    if (plain.Digits == 0) {
        Add(cell, mark, FactsOf(cell));
        return;
    }
    AddHexDigits(cell, 1);
    AddNumber(cell, {plain.HasMark ? mark : u'\0', u'\0', false, plain.Digits}, mark, 1);
}

void CellCounts::Add(std::u16string_view cell, char16_t mark, const CellFacts& facts, std::uint64_t cells) {
    if (facts.IsMissing) {
        Missing += cells;
        if (EqualsIgnoreCase(cell, u"nan")) NotNumbers += cells;
        return;
    }
    AddHexDigits(cell, cells);
    if (facts.Number) {
        AddNumber(cell, *facts.Number, mark, cells);
    } else if (facts.Truth != TruthWord::None) {
        Truth += cells;
    } else {
        AddWord(cell, mark, cells);
    }
}

void CellCounts::Add(const CellCounts& other) {
    if (other.HexDigits > 0) {
        LeastLength = HexDigits == 0 ? other.LeastLength : std::min(LeastLength, other.LeastLength);
        MostLength = std::max(MostLength, other.MostLength);
    }
    if (other.Text > 0) {
        IsOneWord &= other.IsOneWord && (Text == 0 || Word == other.Word);
        if (Text == 0) Word = other.Word;
    }
    // Amounts of another unit are none.
    if (other.Amounts > 0 && (Amounts == 0 || AmountUnit == other.AmountUnit)) {
        AmountUnit = other.AmountUnit;
        Amounts += other.Amounts;
        DecimalAmounts += other.DecimalAmounts;
    }
    Empty += other.Empty;
    Missing += other.Missing;
    Whole += other.Whole;
    Decimal += other.Decimal;
    Truth += other.Truth;
    Single += other.Single;
    Text += other.Text;
    Nulls += other.Nulls;
    Ones += other.Ones;
    NotNumbers += other.NotNumbers;
    HexDigits += other.HexDigits;
    Prefixed += other.Prefixed;
    Letters += other.Letters;
    DigitPlaces |= other.DigitPlaces;
    LetterPlaces |= other.LetterPlaces;
    IsTooLong |= other.IsTooLong;
}

void CellCounts::AddHexDigits(std::u16string_view cell, std::uint64_t cells) {
    const bool isPrefixed = cell.size() > 2 && cell[0] == u'0' && (cell[1] | 32) == u'x';
    const std::u16string_view digits = isPrefixed ? cell.substr(2) : cell;
    constexpr std::size_t MostDigits = 16;
    if (digits.size() > MostDigits) return;
    std::uint32_t digitPlaces = 0;
    std::uint32_t letterPlaces = 0;
    for (const char16_t c : digits) {
        if (!IsHexDigit(c)) return;
        digitPlaces = digitPlaces << 1 | std::uint32_t{IsDigit(c)};
        letterPlaces = letterPlaces << 1 | std::uint32_t{!IsDigit(c)};
    }
    LeastLength = HexDigits == 0 ? digits.size() : std::min(LeastLength, digits.size());
    MostLength = std::max(MostLength, digits.size());
    HexDigits += cells;
    if (isPrefixed) Prefixed += cells;
    if (letterPlaces != 0) Letters += cells;
    DigitPlaces |= digitPlaces;
    LetterPlaces |= letterPlaces;
}

void CellCounts::AddNumber(std::u16string_view cell, const NumberLook& look, char16_t mark,
                           std::uint64_t cells) {
    const bool isThousands = look.Mark != u'\0' && look.Mark != mark && !look.HasExponent;
    if ((look.Mark != u'\0' && !isThousands) || look.HasExponent) {
        Decimal += cells;
        return;
    }
    Whole += cells;
    if (cell == u"0") Nulls += cells;
    if (cell == u"1") Ones += cells;
    IsTooLong |= look.Digits > 18;
}

void CellCounts::AddWord(std::u16string_view cell, char16_t mark, std::uint64_t cells) {
    if (Text == 0) Word = cell;
    Text += cells;
    IsOneWord = IsOneWord && cell == Word;
    if (cell.size() == 1) Single += cells;
    const std::optional<AmountParts> amount = AmountPartsIn(cell);
    if (!amount || (!AmountUnit.empty() && AmountUnit != amount->Unit)) return;
    AmountUnit = amount->Unit;
    Amounts += cells;
    if (amount->Number.find(mark) != amount->Number.npos) DecimalAmounts += cells;
}

// Digits with a prefix, with digits and letters in the same places, or so many in each cell and a letter in
// some: "00000270" beside "000002E4".
bool CellCounts::IsHexadecimal(bool isBesideOthers) const {
    const std::uint64_t filled = Filled();
    if (HexDigits != filled || HexDigits == 0) return false;
    if (Prefixed == filled) return true;
    // Names such as "A1" have their letters in one place, numbers in any.
    const int mixed = std::popcount(static_cast<unsigned>(DigitPlaces & LetterPlaces));
    if (mixed > 1 || (mixed == 1 && isBesideOthers)) return true;
    return Letters > 0 && LeastLength == MostLength && MostLength > 1 && 20 * Letters >= filled &&
           Letters < filled;
}

ColumnType CellCounts::Type(bool isCount, bool isBesideHexadecimal) const {
    const std::uint64_t numbers = Whole + Decimal;
    if (IsHexadecimal(isBesideHexadecimal)) return ColumnType::Hexadecimal;
    if (Text > 0 && Amounts == Text && numbers + Truth == 0)
        return DecimalAmounts > 0 ? ColumnType::Float : ColumnType::Integer;
    // A few words among many numbers are what a device prints in place of a value.
    constexpr std::uint64_t NumbersPerWord = 20;
    if (Text + Truth > 0 && numbers > NumbersPerWord * (Text + Truth))
        return Decimal > 0 || NotNumbers > 0 ? ColumnType::Float : ColumnType::Integer;
    // So is one word that comes again and again between decimals. Whole numbers may be states as the word is.
    if (Text > 1 && IsOneWord && Truth == 0 && 10 * Decimal > Text) return ColumnType::Float;
    if (Text > Single) return ColumnType::Text;
    if (Text > 0) return numbers + Truth == 0 ? ColumnType::Character : ColumnType::Text;
    if (Truth > 0) return Whole == Nulls + Ones && Decimal == 0 ? ColumnType::Boolean : ColumnType::Text;
    if (Decimal > 0 || NotNumbers > 0) return ColumnType::Float;
    if (Whole == 0) return Missing > 0 ? ColumnType::Float : ColumnType::Text;
    // Both values, and nothing else: a constant 0 may be any number.
    if (Nulls > 0 && Ones > 0 && Nulls + Ones == Whole && !isCount) return ColumnType::Boolean;
    return IsTooLong ? ColumnType::Text : ColumnType::Integer;
}

bool IsCountName(std::u16string_view name) {
    std::u16string low(name);
    for (char16_t& c : low) c = c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
    constexpr std::u16string_view Parts[] = {u"count",  u"cycle",  u"step",    u"number", u"index",
                                             u"anzahl", u"zyklus", u"schritt", u"nummer"};
    return std::any_of(std::begin(Parts), std::end(Parts),
                       [&](auto part) { return low.find(part) != low.npos; });
}

bool ReadingPlan::IsOfOther(std::uint64_t line) const {
    return std::any_of(Others.begin(), Others.end(),
                       [&](const OtherTable& other) { return other.Columns != Width && other.Holds(line); });
}

bool ReadingPlan::HaveOthersTimes() const {
    LineCutter cut(How);
    return Times && std::any_of(Others.begin(), Others.end(), [&](const OtherTable& other) {
               const SampleLine& last = Sample.Lines[static_cast<std::size_t>(other.LastLine - 1)];
               return other.FirstLine > FirstLine && Times->Recipe.TimeOf(cut(last.Text)).has_value();
           });
}

bool ReadingPlan::IsDeclaredMissing(std::u16string_view cell) const {
    if (Missing.empty() || cell.empty()) return false;
    const std::optional<NumberLook> look = LookAtNumber(cell);
    const std::optional<NumberLook> declared = LookAtNumber(Missing);
    return look && declared && ValueOf(cell, *look) == ValueOf(Missing, *declared);
}

std::optional<ReadingPlan> FindPlan(const std::u16string& path, const FindInSample& find,
                                    std::uint64_t firstLine) {
    constexpr std::size_t LinesOfATable = 2000;
    FileSample sample = SampleFile(path, LinesOfATable + static_cast<std::size_t>(firstLine));
    std::optional<ReadingPlan> plan = find(sample);
    // A table that begins below the lines that were counted: more of them are.
    constexpr std::size_t MostLines = 1'000'000;
    for (std::size_t lines = 8000; plan && plan->FirstLine == 0 && lines < MostLines; lines *= 4) {
        sample = SampleFile(path, lines);
        plan = find(sample);
    }
    if (plan) plan->Sample = std::move(sample);
    return plan;
}

std::optional<ReadingPlan> FindPlan(const std::u16string& path, const FixedTable& fixed) {
    return FindPlan(
        path, [&fixed](const FileSample& sample) { return FindPlan(sample, fixed); }, fixed.FirstLine);
}

std::optional<ReadingPlan> FindPlan(const FileSample& sample, const FixedTable& fixed) {
    const std::optional<FoundTable> table = FindTable(sample, fixed);
    if (!table) return std::nullopt;
    ReadingPlan plan = PlanOf(sample, *table, nullptr);
    plan.Fixed = fixed;
    return plan;
}

ReadingPlan PlanOf(const FileSample& sample, const FoundTable& table, const ReadingPlan* like) {
    const Labels labels = FindLabels(sample, table);
    ReadingPlan plan;
    plan.Others = FindOtherTables(sample, table, labels);
    const char16_t usualMark = like == nullptr ? u'\0' : like->Mark;
    TableRows rows = RowsOf(sample, table, plan.Others, usualMark == u'\0' ? char16_t{u'.'} : usualMark);
    plan.How = table.How;
    plan.Width = table.Width;
    plan.FirstLine = table.First < sample.Lines.size() ? sample.Lines[table.First].Number
                                                       : sample.Lines.back().Number + 1;  // no row yet
    plan.NamesLine = labels.NamesLine;
    plan.UnitsLine = labels.UnitsLine;
    plan.Mark = MarkOf(table.How, rows, usualMark);
    plan.RowsLookedAt = rows.Cells.size();
    plan.IsWholeLookedAt = sample.IsWhole;
    const PreambleClues clues = ReadPreamble(sample, table);
    plan.Missing = clues.Missing;
    if (like == nullptr) {
        plan.Times = FindTimes(rows, labels, clues);
    } else {
        plan.Times = FindTimesLike(*like->Times, rows, labels, clues);
        for (const PlannedColumn& column : like->Columns) plan.Elsewhere.push_back(column.Cells);
    }
    const bool isEndLookedAt = sample.IsWhole || sample.Lines.size() > sample.Head;
    plan.EndsInTotal = plan.Times && isEndLookedAt && plan.Times->Trial.EndsAtStart;
    AddColumns(rows, labels, plan);
    plan.Rows = std::move(rows);
    return plan;
}
}  // namespace kelvarin::plan
