#include "host/plan/FileKind.h"

#include <algorithm>

#include "host/language/Phrase.h"
#include "host/plan/SharedTimes.h"
#include "host/plan/Sureness.h"
#include "host/plan/TimesInWords.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
constexpr std::size_t MostNamed = 3;  // columns in one list of differences

std::string Quoted(const std::u16string& text) {
    return "\"" + Utf16ToUtf8(text) + "\"";
}

bool ShowsMark(const ReadingPlan& plan) {
    return std::any_of(plan.Columns.begin(), plan.Columns.end(), [](const PlannedColumn& column) {
        return column.Cells.Decimal + column.Cells.DecimalAmounts > 0;
    });
}

// True if the recipe reads the cells in any order of day and month.
bool ReadsInAnyOrder(TimeRecipe recipe, const std::vector<std::u16string_view>& cells) {
    for (const DateOrder order : {DateOrder::DayFirst, DateOrder::MonthFirst, DateOrder::YearFirst}) {
        recipe.Style.Order = order;
        if (recipe.TimeOf(cells)) return true;
    }
    return false;
}

bool AreNames(const std::vector<std::u16string_view>& line, const ReadingPlan& plan) {
    // Most lines aren't, and are told from names without a copy: at most an introduction is before the first.
    const std::u16string& first = plan.Columns.front().Name;
    const auto end = line.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(line.size(), 3));
    if (2 * line.size() < plan.Width || std::find(line.begin(), end, first) == end) return false;
    std::vector<std::u16string> cells(line.begin(), line.end());
    DropIntroduction(cells, plan.Width);
    bool isAny = false;
    for (std::size_t i = 0; i < plan.Width; ++i) {
        const std::u16string cell = i < cells.size() ? cells[i] : std::u16string();
        if (cell != plan.Columns[i].Name) return false;
        isAny |= !cell.empty();
    }
    return isAny;
}

// The index of the first row from there on; the number of lines for a header without a row. Nothing if no row
// has a time.
std::optional<std::size_t> FirstRowOf(const FileSample& sample, const FoundTable& table,
                                      const ReadingPlan& like, std::size_t from) {
    LineCutter cut(table.How);
    bool isHeaderAlone = sample.IsWhole;
    for (std::size_t i = from; i < sample.Lines.size(); ++i) {
        if (!table.Shapes[i].LooksLikeData()) continue;
        const std::vector<std::u16string_view>& cells = cut(sample.Lines[i].Text);
        const bool isRow = like.Times->Recipe.Kind == TimeKind::Interval
                               ? cells.size() == table.Width
                               : ReadsInAnyOrder(like.Times->Recipe, cells);
        if (isRow) return i;
        isHeaderAlone = false;
    }
    return isHeaderAlone ? std::optional(sample.Lines.size()) : std::nullopt;
}

// Some of the sentences, and how many more there are.
void AddSome(std::vector<std::string>& all, const std::vector<std::string>& some) {
    all.insert(all.end(), some.begin(),
               some.begin() + static_cast<std::ptrdiff_t>(std::min(some.size(), MostNamed)));
    if (some.size() > MostNamed) all.push_back(Phrase("{} more columns differ so", some.size() - MostNamed));
}

// The names of one that the other lacks.
std::vector<std::u16string> NamesBeyond(const ReadingPlan& plan, const ReadingPlan& other) {
    std::vector<std::u16string> names;
    for (std::size_t i = 0; i < plan.Width; ++i) {
        const std::u16string& name = plan.Columns[i].Name;
        const bool isThere =
            std::any_of(other.Columns.begin(), other.Columns.end(),
                        [&name](const PlannedColumn& column) { return column.Name == name; });
        if (!isThere) names.push_back(name);
    }
    return names;
}

void AddNameDifferences(const ReadingPlan& plan, const ReadingPlan& like, std::vector<std::string>& all) {
    if (plan.Width != like.Width) all.push_back(Phrase("it has {} columns, not {}", plan.Width, like.Width));
    if ((plan.NamesLine == 0) != (like.NamesLine == 0)) {
        all.push_back(plan.NamesLine == 0 ? Phrase("no line names its columns")
                                          : Phrase("a line names its columns"));
        return;
    }
    std::vector<std::string> some;
    if (plan.Width != like.Width) {
        for (const std::u16string& name : NamesBeyond(plan, like))
            some.push_back(Phrase("it has a column {} besides", Quoted(name)));
        AddSome(all, some);
        some.clear();
        for (const std::u16string& name : NamesBeyond(like, plan))
            some.push_back(Phrase("it has no column {}", Quoted(name)));
    } else {
        for (std::size_t i = 0; i < plan.Width; ++i) {
            const std::u16string& name = plan.Columns[i].Name;
            const std::u16string& other = like.Columns[i].Name;
            if (name != other)
                some.push_back(Phrase("column {} is {}, not {}", i + 1, Quoted(name), Quoted(other)));
        }
    }
    AddSome(all, some);
}

void AddUnitDifferences(const ReadingPlan& plan, const ReadingPlan& like, std::vector<std::string>& all) {
    std::vector<std::string> some;
    for (std::size_t i = 0; i < std::min(plan.Width, like.Width); ++i) {
        const std::u16string& unit = plan.Columns[i].Unit;
        const std::u16string& other = like.Columns[i].Unit;
        if (plan.Columns[i].Name == like.Columns[i].Name && unit != other && !unit.empty() && !other.empty())
            some.push_back(
                Phrase("{} is in {}, not in {}", ColumnInWords(plan, i), Quoted(unit), Quoted(other)));
    }
    AddSome(all, some);
}

void AddTimeDifferences(const ReadingPlan& plan, const ReadingPlan& like, std::vector<std::string>& all) {
    if (AreOfOneForm(plan.Times->Recipe, like.Times->Recipe) && !AreOrdersOpposed(*plan.Times, *like.Times))
        return;
    all.push_back(Phrase("its times are {}, not {}", TimesInWords(plan), TimesInWords(like)));
}

// Fewer rows have a time than those of a file of the kind.
bool IsTimeless(const ReadingPlan& plan) {
    return plan.RowsLookedAt > 0 && 5 * plan.Times->Trial.Read < 3 * plan.RowsLookedAt;
}
}  // namespace

FileKind KindFrom(ReadingPlan plan, const std::u16string& name) {
    FileKind kind;
    if (plan.Times->Order == OrderProof::Texts) kind.OrderFile = name;
    if (!ShowsMark(plan)) plan.Mark = u'\0';
    kind.Plan = std::move(plan);
    kind.Plan.Sample = {};
    kind.Plan.Rows = {};
    kind.Plan.Missing.clear();
    kind.Plan.Kin.reset();
    kind.Plan.Columns.resize(plan.Width);
    kind.Files = 1;
    return kind;
}

CellCounts UsualCells(const PlannedColumn& column, bool hasWords, std::uint64_t rows) {
    rows = std::max<std::uint64_t>(rows, 2);
    CellCounts cells;
    cells.IsOneWord = false;
    if (column.HasAmounts) {
        cells.Text = cells.Amounts = rows;
        cells.AmountUnit = column.Unit;
        if (column.Type == ColumnType::Float) cells.DecimalAmounts = rows;
        return cells;
    }
    switch (column.Type) {
        case ColumnType::Boolean:
            (hasWords ? cells.Truth : cells.Whole) = rows;
            if (!hasWords) cells.Nulls = rows - 1;
            if (!hasWords) cells.Ones = 1;
            break;
        case ColumnType::Integer:
            cells.Whole = rows;
            break;
        case ColumnType::Float:
            cells.Decimal = rows;
            break;
        case ColumnType::Hexadecimal:
            cells.Text = cells.HexDigits = cells.Prefixed = rows;
            break;
        case ColumnType::Character:
            cells.Text = cells.Single = rows;
            break;
        default:
            cells.Text = rows;
    }
    return cells;
}

void AddFile(FileKind& kind, const ReadingPlan& plan, const std::u16string& name) {
    ReadingPlan& shared = kind.Plan;
    if (shared.Mark == u'\0' && ShowsMark(plan)) shared.Mark = plan.Mark;
    if (shared.Times->Order != OrderProof::Texts && plan.Times->Order == OrderProof::Texts)
        kind.OrderFile = name;
    AddEvidence(*shared.Times, *plan.Times);
    for (std::size_t i = 0; i < shared.Width; ++i) {
        shared.Columns[i].Cells.Add(plan.Columns[i].Cells);
        if (shared.Columns[i].Unit.empty()) shared.Columns[i].Unit = plan.Columns[i].Unit;
        shared.Columns[i].Type = plan.Columns[i].Type;
        shared.Columns[i].HasAmounts = plan.Columns[i].HasAmounts;
    }
    shared.RowsLookedAt += plan.RowsLookedAt;
    ++kind.Files;
}

bool WidenTypes(FileKind& kind, const ReadingPlan& plan, const std::vector<CellCounts>& cells) {
    bool isAny = false;
    for (std::size_t i = 0; i < std::min({kind.Plan.Width, plan.Columns.size(), cells.size()}); ++i) {
        PlannedColumn& column = kind.Plan.Columns[i];
        if (column.IsTime || column.Type == plan.Columns[i].Type) continue;
        column.Type = plan.Columns[i].Type;
        column.Cells.Add(cells[i]);
        isAny = true;
    }
    return isAny;
}

KindSearch::KindSearch(const FileSample& sample, const std::vector<FileKind>& kinds)
    : Sample(sample), Kinds(kinds), BelowNames(kinds.size(), 0) {
    std::vector<Cut> cuts;
    for (const FileKind& kind : kinds) {
        if (std::find(cuts.begin(), cuts.end(), kind.Plan.How) != cuts.end()) continue;
        cuts.push_back(kind.Plan.How);
        FindNames(cuts.back());
    }
}

// Of all kinds that are cut so.
void KindSearch::FindNames(const Cut& how) {
    std::vector<std::size_t> sought;
    for (std::size_t k = 0; k < Kinds.size(); ++k) {
        if (Kinds[k].Plan.NamesLine != 0 && Kinds[k].Plan.How == how) sought.push_back(k);
    }
    LineCutter cut(how);
    for (std::size_t i = 0; i < Sample.Lines.size() && !sought.empty(); ++i) {
        const std::vector<std::u16string_view>& cells = cut(Sample.Lines[i].Text);
        std::erase_if(sought, [&](std::size_t k) {
            const bool isFound = AreNames(cells, Kinds[k].Plan);
            if (isFound) BelowNames[k] = i + 1;
            return isFound;
        });
    }
}

// The table below the names; without names, the one that is found, if it is cut alike.
std::optional<FoundTable> KindSearch::TableLike(std::size_t kind) {
    const ReadingPlan& like = Kinds[kind].Plan;
    if (like.NamesLine == 0) {
        if (!IsOwnFound) Own = FindTable(Sample);
        IsOwnFound = true;
        return Own && Own->How == like.How && Own->Width == like.Width ? Own : std::nullopt;
    }
    if (BelowNames[kind] == 0) return std::nullopt;
    FoundTable table =
        CutTable(Sample, like.How, like.Width, like.Mark == u'\0' ? char16_t{u'.'} : like.Mark);
    const std::optional<std::size_t> first = FirstRowOf(Sample, table, like, BelowNames[kind]);
    if (!first) return std::nullopt;
    table.First = *first;
    return table;
}

std::optional<ReadingPlan> KindSearch::Follow(std::size_t kind) {
    const std::optional<FoundTable> table = TableLike(kind);
    if (!table) return std::nullopt;
    ReadingPlan plan = PlanOf(Sample, *table, &Kinds[kind].Plan);
    if (IsTimeless(plan) || !DifferencesOf(plan, Kinds[kind]).empty()) return std::nullopt;
    return plan;
}

std::vector<std::string> DifferencesOf(const ReadingPlan& plan, const FileKind& kind) {
    const ReadingPlan& like = kind.Plan;
    std::vector<std::string> all;
    if (!(plan.How == like.How))
        all.push_back(Phrase("it is {}, not {}", SeparatorInWords(plan.How), SeparatorInWords(like.How)));
    AddNameDifferences(plan, like, all);
    AddUnitDifferences(plan, like, all);
    if (like.Mark != u'\0' && plan.Mark != like.Mark && ShowsMark(plan))
        all.push_back(plan.Mark == u',' ? Phrase("its decimal mark is a comma")
                                        : Phrase("its decimal mark is a point"));
    if (plan.Times) AddTimeDifferences(plan, like, all);
    return all;
}

std::vector<std::string> TypeDifferencesOf(const ReadingPlan& plan, const FileKind& kind) {
    std::vector<std::string> all;
    for (std::size_t i = 0; i < std::min(plan.Columns.size(), kind.Plan.Width); ++i) {
        const ColumnType type = plan.Columns[i].Type;
        const ColumnType other = kind.Plan.Columns[i].Type;
        if (type == other || plan.Columns[i].IsTime || kind.Plan.Columns[i].Cells.Filled() == 0) continue;
        all.push_back(
            Phrase("{} holds {}, not {}", ColumnInWords(plan, i), TypesInWords(type), TypesInWords(other)));
    }
    std::vector<std::string> some;
    AddSome(some, all);
    return some;
}
}  // namespace kelvarin::plan
