#include <algorithm>
#include <functional>
#include <string_view>

#include "host/Words.h"
#include "host/explain/ColumnReason.h"
#include "host/explain/Surprises.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::explain {

namespace {

constexpr std::size_t MostColumnsNamed = 8;

// "Column 3 "Strom"".
std::string ColumnName(const Explanation& explanation, std::size_t column) {
    return Phrase("column {} {}", column + 1, Quoted(explanation.Columns[column].Name));
}

// Adds one surprise for all columns of which `describe` answers a text: the text of the first, then the
// others.
void AddOfColumns(const Explanation& explanation, const std::string& kind, const std::string& remedy,
                  const std::function<std::string(std::size_t column, const ColumnReason& reason)>& describe,
                  std::vector<Surprise>& found) {
    std::string text, others;
    std::size_t named = 0;
    const std::size_t columns = std::min(explanation.Columns.size(), AnalysisRecord::MostColumns);
    for (std::size_t column = 0; column < columns; ++column) {
        if (explanation.Columns[column].IsTimestamp) continue;
        const std::string one = describe(column, ReasonFor(explanation.Record, column));
        if (one.empty()) continue;
        if (text.empty()) {
            text = one;
        } else if (++named <= MostColumnsNamed) {
            others += (named == 1 ? "" : ", ") + std::to_string(column + 1);
        }
    }
    if (text.empty()) return;
    if (named > MostColumnsNamed) others += ", …";
    if (named > 0) text += " " + Phrase("The same holds for columns {}.", others);
    found.push_back({kind, text, remedy});
}

template <class Test>
const SeenCell* FindCell(const AnalysisRecord& record, std::size_t column, Test&& test, int& line) {
    for (const SeenRow& row : record.Rows) {
        if (column >= row.Cells.size() || !test(std::u16string_view(row.Cells[column].Text))) continue;
        line = row.Line;
        return &row.Cells[column];
    }
    return nullptr;
}

bool IsAllDigits(std::u16string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

// "1e5": digits, the letter, digits.
bool IsPlainExponent(std::u16string_view text) {
    const std::size_t letter = text.find_first_of(u"eE");
    return letter != text.npos && IsAllDigits(text.substr(0, letter)) && IsAllDigits(text.substr(letter + 1));
}

// A letter that no exponent has.
bool HasHexLetter(std::u16string_view text) {
    return text.find_first_of(u"abcdfxABCDFX$#") != text.npos;
}

// "1,234" or "12.345" with this mark: as well a number of thousands.
bool MayBeThousands(std::u16string_view text, char16_t mark) {
    if (!text.empty() && (text.front() == u'-' || text.front() == u'+')) text.remove_prefix(1);
    const std::size_t place = text.find(mark);
    return place != text.npos && place >= 1 && place <= 3 && text.front() != u'0' &&
           IsAllDigits(text.substr(0, place)) && text.size() == place + 4 &&
           IsAllDigits(text.substr(place + 1));
}

bool HasMark(std::u16string_view text, char16_t mark) {
    return text.find(mark) != text.npos;
}

void FindExponents(const Explanation& explanation, std::vector<Surprise>& found) {
    AddOfColumns(
        explanation, "exponent-read-as-hexadecimal",
        Phrase("Write 1.0e5 in one of the first rows, or choose the type float on the signal page of the "
               "settings dialog."),
        [&](std::size_t column, const ColumnReason& reason) -> std::string {
            int line = 0;
            const SeenCell* const cell = FindCell(explanation.Record, column, IsPlainExponent, line);
            const bool isHex = FindCell(explanation.Record, column, HasHexLetter, line) != nullptr;
            if (reason.Type != HexType || cell == nullptr || isHex) return {};
            return Phrase(
                "In {}, {} in line {} is read as a hexadecimal number, since an exponent without a decimal "
                "mark is one as well.",
                ColumnName(explanation, column), Quoted(cell->Text), line);
        },
        found);
}

// A mark whose every use in the column fits thousands. Points are decimal as a rule; they are doubtful only
// where other columns write decimal commas.
void FindThousands(const Explanation& explanation, std::vector<Surprise>& found) {
    const AnalysisRecord& record = explanation.Record;
    bool hasCommas = false;
    for (std::size_t column = 0; column < std::min(explanation.Columns.size(), AnalysisRecord::MostColumns);
         ++column) {
        int line = 0;
        const auto isDecimalComma = [](std::u16string_view text) {
            return HasMark(text, u',') && !MayBeThousands(text, u',');
        };
        hasCommas |=
            record.TypeOf(column) == FloatType && FindCell(record, column, isDecimalComma, line) != nullptr;
    }
    AddOfColumns(
        explanation, "thousands-read-as-decimals",
        Phrase("If thousands are meant, remove the marks from the file; a lone mark is always a decimal mark "
               "in a column of floats."),
        [&](std::size_t column, const ColumnReason& reason) -> std::string {
            if (reason.Type != FloatType) return {};
            for (const char16_t mark : {u',', u'.'}) {
                if (mark == u'.' && !hasCommas) continue;
                int line = 0;
                const auto has = [mark](std::u16string_view text) { return HasMark(text, mark); };
                const auto isOther = [mark](std::u16string_view text) {
                    return HasMark(text, mark) && !MayBeThousands(text, mark);
                };
                if (FindCell(record, column, isOther, line) != nullptr) continue;
                const SeenCell* const cell = FindCell(record, column, has, line);
                if (cell == nullptr) continue;
                const std::u16string read = ReplaceAll(cell->Text, u",", u".");
                return Phrase("In {}, {} in line {} is read as {}, not as thousands.",
                              ColumnName(explanation, column), Quoted(cell->Text), line, Utf16ToUtf8(read));
            }
            return {};
        },
        found);
}

void FindEmptyBeginnings(const Explanation& explanation, std::vector<Surprise>& found) {
    const AnalysisRecord& record = explanation.Record;
    if (record.DataRows() == 0) return;
    const int firstDataLine = record.Rows[record.Rows.size() - record.DataRows()].Line;
    AddOfColumns(
        explanation, "text-because-of-empty-cells",
        Phrase("Choose its type on the signal page of the settings dialog; its empty cells then become "
               "samples without value."),
        [&](std::size_t column, const ColumnReason& reason) -> std::string {
            const bool isOnlyEmpty =
                reason.Type == TextType && reason.Others.Count == 0 && reason.MostType != NoType;
            if (!isOnlyEmpty || reason.Empty.FirstLine != firstDataLine) return {};
            int line = 0;
            FindCell(
                record, column, [](std::u16string_view text) { return !text.empty(); }, line);
            return Phrase("Text only because its first rows are empty: {}; from line {} on it is of type {}.",
                          ColumnName(explanation, column), line, DataTypeInWords(reason.MostType));
        },
        found);
}

}  // namespace

void FindColumnSurprises(const Explanation& explanation, std::vector<Surprise>& found) {
    FindExponents(explanation, found);
    FindThousands(explanation, found);
    FindEmptyBeginnings(explanation, found);
}

}  // namespace kelvarin::explain
