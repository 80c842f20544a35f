// Checks of an explanation, each for one thing that people do not expect: first of the table's place and
// names, then of the values of its columns. The lines above the first row of data are told apart from rows by
// looks, so that no check is more than a warning.
#include <algorithm>
#include <string_view>

#include "host/Words.h"
#include "host/explain/Explanation.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::explain {
namespace {
// The advised settings, or a copy where no settings do.
Remedy AdvisedReading(const Explanation& all) {
    if (!all.IsAdvised() && all.NeedsCopy) return {{}, {}, RemedyAction::CopyFile};
    return {{}, all.Advised, RemedyAction::None, {}, all.AdvisedLetters};
}

// A line with another count late among the first hundred, after which the detection forgets all lines above
// it.
std::optional<Warning> LateLine(const Explanation& all) {
    const AnalysisRecord& record = all.Record;
    if (!all.Proposal || !all.FollowsDetection) return {};
    const int first = all.Proposal->Format.FirstDataLine();
    const int separator = all.Proposal->Format.Separator;
    if (first >= record.RunStart || !all.IsOtherTable || separator >= SeparatorsCounted) return {};
    for (std::size_t i = 1; i < record.Counted.size(); ++i) {
        const SeenLine& line = record.Counted[i];
        const std::int32_t count = line.Run(separator).LastCount;
        if (line.Line <= first || count == record.Counted[i - 1].Run(separator).LastCount) continue;
        return Warning{
            "late-line-moves-the-table",
            Phrase("The lines from {} on look like the table's, but line {} has another count of the "
                   "separator {}, {}: {}. One such line among the first hundred moves the table's beginning "
                   "below, here to line {}.",
                   first, line.Line, SeparatorName(separator), count, Quoted(line.Text), record.RunStart),
            AdvisedReading(all)};
    }
    return {};
}

// Separators of a line that its neighbour has and that an open quote keeps from being counted.
std::int32_t CountHidden(const SeenLine& line, const SeenLine& neighbour, int separator) {
    const auto count = [&](char16_t c) { return std::count(line.Text.begin(), line.Text.end(), c); };
    constexpr std::u16string_view Quotes = u"'\"";
    const bool isOpen =
        std::any_of(Quotes.begin(), Quotes.end(), [&](char16_t quote) { return count(quote) % 2 == 1; });
    const std::int32_t usual = neighbour.Run(separator).LastCount;
    return isOpen && count(SeparatorCharOf(static_cast<std::uint32_t>(separator))) == usual
               ? usual - line.Run(separator).LastCount
               : 0;
}

std::optional<Warning> HiddenSeparators(const Explanation& all) {
    const std::vector<SeenLine>& lines = all.Record.Counted;
    for (int separator = 0; separator < SeparatorsCounted; ++separator) {
        for (std::size_t i = 0; lines.size() > 1 && i < lines.size(); ++i) {
            const SeenLine& neighbour = lines[i + 1 < lines.size() ? i + 1 : i - 1];
            const std::int32_t hidden = CountHidden(lines[i], neighbour, separator);
            if (hidden <= 0) continue;
            return Warning{"quote-hides-separators",
                           Phrase("In line {} an apostrophe or a quote without its partner keeps {} of the "
                                  "separator {} from being counted: {}.",
                                  lines[i].Line, hidden, SeparatorName(separator), Quoted(lines[i].Text)),
                           all.IsOtherTable ? AdvisedReading(all)
                                            : Remedy{Phrase("Remove it from the file, or double it.")}};
        }
    }
    return {};
}

// The plan has the same separator and another line.
std::optional<Warning> WrongLine(const Explanation& all) {
    if (!all.IsOtherTable || all.Proposal->Format.Separator != all.Format.Separator) return {};
    const AnalysisRecord& record = all.Record;
    const TableFormat& proposed = all.Proposal->Format;
    const int data = all.Format.FirstDataLine;
    const bool lacksHeader = proposed.Header && all.Format.HeaderLine == 0;
    const Remedy remedy = AdvisedReading(all);
    if (lacksHeader && proposed.FirstLine == data)
        return Warning{
            "names-taken-for-data",
            Phrase("Line {} seems to hold the columns' names, but is taken for the first row of data: {}.",
                   data, Quoted(record.TextOf(data))),
            remedy};
    if (lacksHeader && proposed.FirstDataLine() == data)
        return Warning{"names-skipped",
                       Phrase("Line {} seems to hold the columns' names, but is skipped, since it has not as "
                              "many separators as the rows: {}.",
                              proposed.FirstLine, Quoted(record.TextOf(proposed.FirstLine))),
                       remedy};
    if (data >= proposed.FirstDataLine()) return {};
    return Warning{
        "preamble-taken-for-data",
        Phrase("Line {} has enough numbers to count as data, but the table seems to begin in line {}: {}.",
               data, proposed.FirstDataLine(), Quoted(record.TextOf(data))),
        remedy};
}

std::optional<Warning> EmptyLine(const Explanation& all) {
    const AnalysisRecord& record = all.Record;
    const int lastKnown = record.Counted.empty() ? 0 : record.Counted.back().Line;
    if (record.End != TableEnd::EmptyLine || lastKnown <= record.EndLine) return {};
    const bool hasRows = record.DataRows() != 0;
    return Warning{"empty-line-ends-the-table",
                   hasRows ? Phrase("Line {} is empty and ends the analysis: the types are settled by the {} "
                                    "rows above it alone. The import itself goes on after it.",
                                    record.EndLine, record.DataRows())
                           : Phrase("Line {} is empty and ends the analysis before the first row of data, so "
                                    "no column gets a type.",
                                    record.EndLine),
                   AdvisedReading(all)};
}

std::optional<Warning> LostNames(const Explanation& all) {
    if (!all.Proposal || !all.Proposal->NamesAreLost()) return {};
    const TableProposal& table = *all.Proposal;
    const int data = table.Format.FirstDataLine();
    return Warning{
        "names-not-above-the-data",
        Phrase("The names seem to be in line {}, but they are taken only from the line directly above the "
               "first row, {}: {}.",
               table.NamesLine, data, Quoted(table.Names)),
        {Phrase("No setting takes them; a clean copy has them directly above"), {}, RemedyAction::CopyFile}};
}

// Cells beyond the first line's are dropped.
std::optional<Warning> WideRows(const Explanation& all) {
    const AnalysisRecord& record = all.Record;
    if (record.Rows.empty()) return {};
    const std::size_t columns = record.Rows.front().CellCount;
    std::size_t rows = 0;
    std::string where;  // of the first
    for (const SeenRow& row : record.Rows) {
        std::size_t lost = columns;
        while (lost < row.Cells.size() && row.Cells[lost].Text.empty()) ++lost;
        if (lost < row.Cells.size() && rows++ == 0)
            where = Phrase("{} in line {}", Quoted(row.Cells[lost].Text), row.Line);
    }
    if (rows == 0) return {};
    return Warning{"more-cells-than-columns",
                   rows == 1 ? Phrase("A row has more than the {} cells of the table's first line; the "
                                      "surplus is not imported: {}.",
                                      columns, where)
                             : Phrase("{} rows have more than the {} cells of the table's first line; the "
                                      "surplus is not imported, first {}.",
                                      rows, columns, where),
                   {Phrase("A clean copy has a column for them"), {}, RemedyAction::CopyFile}};
}

std::size_t ColumnsKept(const Explanation& all) {
    return std::min(all.Columns.size(), AnalysisRecord::MostColumns);
}

// One warning for all columns that `describe` returns a text for: the text of the first, then the others'
// numbers. The remedy gets the type that `describe` sets, if any.
template <class Describe>
std::optional<Warning> OfColumns(const Explanation& all, const char* kind, std::string advice,
                                 Describe&& describe) {
    constexpr std::size_t MostNamed = 8;
    std::string text, others;
    Remedy remedy{std::move(advice)};
    std::size_t named = 0;
    for (std::size_t column = 0; column < ColumnsKept(all); ++column) {
        if (all.Columns[column].IsTimestamp) continue;
        int type = CsvTypeUndefined;
        const std::string one = describe(column, ReasonFor(all.Record, column), type);
        if (one.empty()) continue;
        if (type != CsvTypeUndefined)
            remedy.Columns.push_back({all.Columns[column].Index, {}, {}, type, true});
        if (text.empty()) {
            text = one;
        } else if (++named <= MostNamed) {
            others += (named == 1 ? "" : ", ") + std::to_string(column + 1);
        }
    }
    if (text.empty()) return {};
    if (named > MostNamed) others += ", …";
    if (named > 0) text += " " + Phrase("The same holds for columns {}.", others);
    return Warning{kind, text, std::move(remedy)};
}

// "column 3 "Strom"".
std::string ColumnName(const Explanation& all, std::size_t column) {
    return Phrase("column {} {}", column + 1, Quoted(all.Columns[column].Name));
}

bool IsAllDigits(std::u16string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

// "1e5": digits, the letter, digits.
bool IsPlainExponent(const SeenCell& cell) {
    const std::u16string_view text = cell.Text;
    const std::size_t letter = text.find_first_of(u"eE");
    return letter != text.npos && IsAllDigits(text.substr(0, letter)) && IsAllDigits(text.substr(letter + 1));
}

// A letter that no exponent has.
bool HasHexLetter(const SeenCell& cell) {
    return cell.Text.find_first_of(u"abcdfxABCDFX$#") != cell.Text.npos;
}

std::optional<Warning> Exponents(const Explanation& all) {
    const auto describe = [&](std::size_t column, const ColumnReason& reason, int& type) -> std::string {
        const CellGroup exponents = all.Record.CellsWhere(column, IsPlainExponent);
        const bool isHex = all.Record.CellsWhere(column, HasHexLetter).Count != 0;
        if (reason.Type != CsvTypeHex || exponents.Count == 0 || isHex) return {};
        type = CsvTypeFloat;
        return Phrase(
            "In {}, {} in line {} is read as a hexadecimal number, since an exponent without a decimal mark "
            "is one as well.",
            ColumnName(all, column), Quoted(exponents.FirstText), exponents.FirstLine);
    };
    return OfColumns(all, "exponent-read-as-hexadecimal", Phrase("Choose the type of floats"), describe);
}

// "1,234" or "12.345" with this mark: as well a number of thousands.
bool MayBeThousands(std::u16string_view text, char16_t mark) {
    if (!text.empty() && (text.front() == u'-' || text.front() == u'+')) text.remove_prefix(1);
    const std::size_t place = text.find(mark);
    return place != text.npos && place >= 1 && place <= 3 && text.front() != u'0' &&
           IsAllDigits(text.substr(0, place)) && text.size() == place + 4 &&
           IsAllDigits(text.substr(place + 1));
}

// The cells with this mark that can't be thousands.
CellGroup DecimalsWithMark(const AnalysisRecord& record, std::size_t column, char16_t mark) {
    return record.CellsWhere(column, [mark](const SeenCell& cell) {
        return cell.Text.find(mark) != cell.Text.npos && !MayBeThousands(cell.Text, mark);
    });
}

// A mark whose every use in the column fits thousands. Points are decimal as a rule; they are doubtful only
// where other columns write decimal commas.
std::optional<Warning> Thousands(const Explanation& all) {
    const AnalysisRecord& record = all.Record;
    std::u16string marks = u",";
    for (std::size_t column = 0; column < ColumnsKept(all) && marks.size() == 1; ++column) {
        const bool isFloat = record.TypeOf(column) == CsvTypeFloat;
        if (isFloat && DecimalsWithMark(record, column, u',').Count != 0) marks += u'.';
    }
    const auto describe = [&](std::size_t column, const ColumnReason& reason, int&) -> std::string {
        for (const char16_t mark : marks) {
            const auto hasMark = [mark](const SeenCell& cell) {
                return cell.Text.find(mark) != cell.Text.npos;
            };
            const CellGroup marked = record.CellsWhere(column, hasMark);
            if (reason.Type != CsvTypeFloat || marked.Count == 0) continue;
            if (DecimalsWithMark(record, column, mark).Count != 0) continue;
            return Phrase("In {}, {} in line {} is read as {}, not as thousands.", ColumnName(all, column),
                          Quoted(marked.FirstText), marked.FirstLine,
                          Utf16ToUtf8(ReplaceAll(marked.FirstText, u",", u".")));
        }
        return {};
    };
    return OfColumns(all, "thousands-read-as-decimals",
                     Phrase("If thousands are meant, remove the marks from the file; a lone mark is always a "
                            "decimal mark in a column of floats."),
                     describe);
}

std::optional<Warning> EmptyBeginnings(const Explanation& all) {
    const AnalysisRecord& record = all.Record;
    if (record.DataRows() == 0) return {};
    const int firstDataLine = record.Rows[record.Rows.size() - record.DataRows()].Line;
    const auto describe = [&](std::size_t column, const ColumnReason& reason, int& type) -> std::string {
        const bool isOnlyEmpty =
            reason.Type == CsvTypeString && reason.Others.Count == 0 && reason.MostType != CsvTypeUndefined;
        if (!isOnlyEmpty || reason.Empty.FirstLine != firstDataLine) return {};
        type = reason.MostType;
        const CellGroup filled =
            record.CellsWhere(column, [](const SeenCell& cell) { return !cell.Text.empty(); });
        return Phrase("Text only because its first rows are empty: {}; from line {} on it is of type {}.",
                      ColumnName(all, column), filled.FirstLine, DataTypeInWords(reason.MostType));
    };
    return OfColumns(all, "text-because-of-empty-cells",
                     Phrase("Choose its type; its empty cells then become samples without value"), describe);
}

using Check = std::optional<Warning> (*)(const Explanation&);

std::vector<Warning> Run(std::initializer_list<Check> checks, const Explanation& all) {
    std::vector<Warning> found;
    for (const Check check : checks) {
        if (std::optional<Warning> warning = check(all)) found.push_back(std::move(*warning));
    }
    return found;
}
}  // namespace

std::vector<Warning> FindWarnings(const Explanation& all) {
    return Run({LateLine, HiddenSeparators, WrongLine, EmptyLine, LostNames, WideRows, Exponents, Thousands,
                EmptyBeginnings},
               all);
}

std::vector<Warning> FindDoubtfulValues(const Explanation& all) {
    return Run({WideRows, Thousands}, all);
}
}  // namespace kelvarin::explain
