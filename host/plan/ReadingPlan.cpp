#include "host/plan/ReadingPlan.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <utility>

#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
// The decimal mark of a file: that of most decimal numbers, where those before exactly three digits count for
// little. Between commas, where numbers with a comma are in quotes, they count for nothing.
char16_t MarkOf(const Cut& how, const TableRows& rows) {
    constexpr std::size_t Sure = 1000;
    std::size_t commas = 0;
    std::size_t points = 0;
    for (const auto& row : rows.Cells) {
        for (const std::u16string& cell : row) {
            const std::optional<Amount> amount = AmountIn(cell);
            const std::u16string_view number = amount ? amount->Number : cell;
            const std::optional<NumberLook> look = LookAtNumber(number);
            if (!look || look->Mark == u'\0') continue;
            const bool isDoubtful = look->Thousands == u'\0' && number.size() - number.find(look->Mark) == 4;
            (look->Mark == u',' ? commas : points) += isDoubtful ? 1 : Sure;
        }
    }
    const bool isComma = commas > points && (how.Separator != u',' || commas >= Sure);
    return isComma ? u',' : u'.';
}

bool Reads(const TimeRecipe& recipe, std::size_t column) {
    const std::vector<std::size_t> columns = ColumnsOf(recipe);
    return std::find(columns.begin(), columns.end(), column) != columns.end();
}

// The columns of the plan, which has its decimal mark and its times already.
void AddColumns(const TableRows& rows, const Labels& labels, ReadingPlan& plan) {
    std::size_t width = plan.Width;
    for (const auto& row : rows.Cells) width = std::max(width, row.size());
    plan.Columns.resize(width);
    std::vector<CellCounts> counts(width);
    for (const auto& row : rows.Cells) {
        for (std::size_t i = 0; i < row.size(); ++i)
            counts[i].Add(plan.IsDeclaredMissing(row[i]) ? u"" : row[i], plan.Mark);
    }
    const bool hasHexadecimal = std::any_of(counts.begin(), counts.end(), [](const CellCounts& one) {
        return one.Type(false) == ColumnType::Hexadecimal;
    });
    for (std::size_t i = 0; i < width; ++i) {
        PlannedColumn& column = plan.Columns[i];
        if (i < labels.Columns.size()) {
            column.Name = labels.Columns[i].Name;
            column.Unit = labels.Columns[i].Unit;
        }
        if (column.Unit.empty() && counts[i].Amounts > 0 && counts[i].Amounts == counts[i].Text)
            column.Unit = counts[i].AmountUnit;
        column.HasAmounts = counts[i].Amounts > 0;
        column.Type = counts[i].Type(!column.Unit.empty() || IsCountName(column.Name), hasHexadecimal);
        column.IsTime = plan.Times && Reads(plan.Times->Recipe, i);
        column.Cells = std::move(counts[i]);
    }
}
}  // namespace

void CellCounts::Add(std::u16string_view cell, char16_t mark) {
    if (cell.empty()) {
        ++Empty;
        return;
    }
    const PlainNumber plain = LookAtPlainNumber(cell, mark);
    if (plain.Digits == 0 && IsMissing(cell)) {
        ++Missing;
        NotNumbers += EqualsIgnoreCase(cell, u"nan");
        return;
    }
    const bool isPrefixed = cell.size() > 2 && cell[0] == u'0' && (cell[1] | 32) == u'x';
    const std::u16string_view digits = isPrefixed ? cell.substr(2) : cell;
    if (digits.size() <= 16 && std::all_of(digits.begin(), digits.end(), IsHexDigit)) {
        LeastLength = HexDigits == 0 ? digits.size() : std::min(LeastLength, digits.size());
        MostLength = std::max(MostLength, digits.size());
        ++HexDigits;
        Prefixed += isPrefixed;
        Letters += !std::all_of(digits.begin(), digits.end(), IsDigit);
        for (std::size_t place = 0; place < digits.size(); ++place)
            (IsDigit(digits[digits.size() - 1 - place]) ? DigitPlaces : LetterPlaces) |= 1u << place;
    }
    if (plain.Digits != 0) {
        AddNumber(cell, {plain.HasMark ? mark : u'\0', u'\0', false, plain.Digits}, mark);
    } else if (const std::optional<NumberLook> look = LookAtNumber(cell)) {
        AddNumber(cell, *look, mark);
    } else {
        AddText(cell, mark);
    }
}

void CellCounts::AddNumber(std::u16string_view cell, const NumberLook& look, char16_t mark) {
    const bool isThousands = look.Mark != u'\0' && look.Mark != mark && !look.HasExponent;
    if ((look.Mark != u'\0' && !isThousands) || look.HasExponent) {
        ++Decimal;
        return;
    }
    ++Whole;
    Nulls += cell == u"0";
    Ones += cell == u"1";
    IsTooLong |= look.Digits > 18;
}

void CellCounts::AddText(std::u16string_view cell, char16_t mark) {
    if (IsTruth(cell)) {
        ++Truth;
        return;
    }
    if (Text++ == 0) Word = cell;
    IsOneWord &= cell == Word;
    Single += cell.size() == 1;
    const std::optional<Amount> amount = AmountIn(cell);
    if (!amount || (Amounts > 0 && AmountUnit != amount->Unit)) return;
    AmountUnit = amount->Unit;
    ++Amounts;
    DecimalAmounts += amount->Number.find(mark) != amount->Number.npos;
}

// Digits with a prefix, with digits and letters in the same places, or so many in each cell and a letter in
// some: "00000270" beside "000002E4".
bool CellCounts::IsHexadecimal(bool isBesideOthers) const {
    const std::uint64_t filled = Whole + Decimal + Truth + Text;
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

bool ReadingPlan::IsDeclaredMissing(std::u16string_view cell) const {
    if (Missing.empty() || cell.empty()) return false;
    const std::optional<NumberLook> look = LookAtNumber(cell);
    const std::optional<NumberLook> declared = LookAtNumber(Missing);
    return look && declared && ValueOf(cell, *look) == ValueOf(Missing, *declared);
}

std::optional<ReadingPlan> FindPlan(const std::u16string& path, const FixedTable& fixed) {
    constexpr std::size_t LinesOfATable = 2000;
    FileSample sample = SampleFile(path, LinesOfATable + static_cast<std::size_t>(fixed.FirstLine));
    std::optional<ReadingPlan> plan = FindPlan(sample, fixed);
    // A table that begins below the lines that were counted: more of them are.
    constexpr std::size_t MostLines = 1'000'000;
    for (std::size_t lines = 8000; plan && plan->FirstLine == 0 && lines < MostLines; lines *= 4) {
        sample = SampleFile(path, lines);
        plan = FindPlan(sample, fixed);
    }
    if (plan) plan->Sample = std::move(sample);
    return plan;
}

std::optional<ReadingPlan> FindPlan(const FileSample& sample, const FixedTable& fixed) {
    const std::optional<FoundTable> table = FindTable(sample, fixed);
    if (!table) return std::nullopt;
    const Labels labels = FindLabels(sample, *table);
    TableRows rows = RowsOf(sample, *table);
    ReadingPlan plan;
    plan.Fixed = fixed;
    plan.How = table->How;
    plan.Width = table->Width;
    plan.FirstLine = sample.Lines[table->First].Number;
    plan.NamesLine = labels.NamesLine;
    plan.UnitsLine = labels.UnitsLine;
    plan.Mark = MarkOf(table->How, rows);
    plan.RowsLookedAt = rows.Cells.size();
    plan.IsWholeLookedAt = sample.IsWhole;
    const PreambleClues clues = ReadPreamble(sample, *table);
    plan.Missing = clues.Missing;
    plan.Times = FindTimes(rows, labels, clues);
    const bool isEndLookedAt = sample.IsWhole || sample.Lines.size() > sample.Head;
    plan.EndsInTotal = plan.Times && isEndLookedAt && plan.Times->Trial.EndsAtStart;
    AddColumns(rows, labels, plan);
    plan.Rows = std::move(rows);
    return plan;
}
}  // namespace kelvarin::plan
