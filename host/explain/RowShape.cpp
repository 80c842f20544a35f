#include "host/explain/RowShape.h"

#include <algorithm>
#include <string_view>

#include "host/Words.h"
#include "host/explain/AnalysisRecord.h"
#include "platform/framework/Text.h"

namespace kelvarin::explain {
namespace {
// A date, a time, a value with a unit: it begins with a digit, after a sign or a bracket at most.
bool BeginsWithDigit(std::u16string_view text) {
    const std::size_t skipped = std::u16string_view(u"+-<>$~").find(text.front()) != text.npos ? 1 : 0;
    const std::u16string_view rest = TrimWhiteSpace(text.substr(skipped));
    return !rest.empty() && IsDigit(rest.front());
}

// A piece that holds several cells, cut by the wrong separator. One comma may be decimal.
bool HoldsSeparators(std::u16string_view text) {
    return text.find_first_of(u";\t") != text.npos || std::count(text.begin(), text.end(), u',') > 1;
}

CellKind KindOf(const CutCell& cell) {
    const std::u16string_view text = TrimWhiteSpace(cell.Text);
    // "inf" is a value, but as little a sign of a table as a missing one.
    if (IsMissingValue(text) || EqualsIgnoreCase(text, u"inf")) return CellKind::Empty;
    if (Contains(cell.Fits, CsvTypeBoolean) || Contains(cell.Fits, CsvTypeFloat)) return CellKind::Number;
    if (HoldsSeparators(text)) return CellKind::Word;
    // A word of a few letters may be hexadecimal by chance; two digits of a byte are.
    const bool isShortHex = Contains(cell.Fits, CsvTypeHex) && text.size() == 2;
    return isShortHex || BeginsWithDigit(text) ? CellKind::Digits : CellKind::Word;
}
}  // namespace

RowShape::RowShape(const CutLine& row) : LineNumber(static_cast<int>(row.Line)), CellCount(row.CellCount) {
    for (const CutCell& cell : row.Cells) {
        const CellKind kind = KindOf(cell);
        Kinds.push_back(kind);
        Filled += kind != CellKind::Empty;
        Numbers += kind == CellKind::Number;
        Digits += kind == CellKind::Digits;
    }
}

bool RowShape::LooksLikeData() const {
    if (Numbers + Digits == 0) return false;
    const bool beginsWithValue = Kind(0) == CellKind::Number || Kind(0) == CellKind::Digits;
    return beginsWithValue || 4 * (Numbers + Digits) >= Filled;
}

ValueColumns::ValueColumns(const std::vector<RowShape>& rows, std::size_t cells) {
    std::vector<std::size_t> values(std::min(cells, AnalysisRecord::MostColumns), 0);
    std::vector<std::size_t> words(values.size(), 0);
    const auto isOne = [cells](const RowShape& row) { return row.Cells() == cells && row.LooksLikeData(); };
    // What lies above a table may have its number of cells and hold numbers as well; what lies below seldom
    // has.
    auto skipped = std::count_if(rows.begin(), rows.end(), isOne) / 2;
    for (const RowShape& row : rows) {
        if (!isOne(row) || skipped-- > 0) continue;
        for (std::size_t column = 0; column < values.size(); ++column) {
            const CellKind kind = row.Kind(column);
            if (kind != CellKind::Empty) ++(kind == CellKind::Word ? words : values)[column];
        }
    }
    for (std::size_t column = 0; column < values.size(); ++column) {
        HoldsValues.push_back(values[column] > 0 && values[column] >= 4 * words[column]);
    }
}

bool ValueColumns::IsEmpty() const {
    return std::find(HoldsValues.begin(), HoldsValues.end(), true) == HoldsValues.end();
}

bool ValueColumns::IsUnlike(const RowShape& row) const {
    std::size_t words = 0;
    std::size_t filled = 0;
    for (std::size_t column = 0; column < HoldsValues.size(); ++column) {
        if (!HoldsValues[column] || row.Kind(column) == CellKind::Empty) continue;
        ++filled;
        words += row.Kind(column) == CellKind::Word;
    }
    const bool beginsWithWord = HoldsValues[0] && row.Kind(0) == CellKind::Word;
    return beginsWithWord || 2 * words > filled;
}
}  // namespace kelvarin::explain
