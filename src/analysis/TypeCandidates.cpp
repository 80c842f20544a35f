// The ladder of the data types: a parser answers yes or no about one cell, and only this file knows the order
// of preference and the way down.
#include "analysis/TypeCandidates.h"

#include <algorithm>
#include <string_view>

#include "analysis/NumberCells.h"
#include "analysis/TextCells.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"
#include "settings/CsvImportSettings.h"

namespace {

constexpr std::size_t LongestCell = 511;  // a longer cell is judged by its beginning

// Whether a cell is of one type. The unit is the column's.
struct TypeTest {
    bool (*Accepts)(char16_t* text, std::u16string& unit);
    bool MaySetUnit;
    bool ChangesText;  // and so needs a copy of its own
};

bool IsBoolean(char16_t* text, std::u16string&) {
    bool value;
    return ParseBool(text, value);
}

bool IsInteger(char16_t* text, std::u16string&) {
    std::int64_t value;
    return ParseInteger(text, value, false, 10, nullptr);
}

bool IsIntegerUnit(char16_t* text, std::u16string& unit) {
    std::int64_t value;
    return ParseInteger(text, value, false, 10, &unit);
}

bool IsHex(char16_t* text, std::u16string&) {
    std::int64_t value;
    return ParseHex(text, value);
}

bool IsFloat(char16_t* text, std::u16string&) {
    double value;
    return ParseFloat(text, value, nullptr);
}

bool IsFloatUnit(char16_t* text, std::u16string& unit) {
    double value;
    return ParseFloat(text, value, &unit);
}

bool IsChar(char16_t* text, std::u16string&) {
    char16_t value;
    return ParseChar(text, value);
}

bool IsString(char16_t*, std::u16string&) {
    return true;
}

// In the order of ECsvDataType, from CsvTypeBoolean.
constexpr TypeTest Tests[CsvTypeCount] = {
    {IsBoolean, false, true}, {IsInteger, false, false}, {IsIntegerUnit, true, false},
    {IsHex, false, false},    {IsFloat, false, true},    {IsFloatUnit, true, true},
    {IsChar, false, false},   {IsString, false, false},
};

bool& Candidate(CCsvColumnInfo& column, ECsvDataType type) {
    return column.TypeCandidates[static_cast<std::size_t>(type - CsvTypeBoolean)];
}

// NarrowTypes for a plain number in a column that can't be of truth values or characters any more, as most
// cells of an analysis are: what accepts it can be told from its mark. False, with nothing changed, for
// anything else.
bool NarrowByNumber(CCsvColumnInfo& column, const char16_t* cell) {
    if (Candidate(column, CsvTypeBoolean) || Candidate(column, CsvTypeChar)) return false;
    double number;
    const char16_t* mark;
    if (!ParseShortDecimal(cell, number, &mark)) return false;
    Candidate(column, CsvTypeIntegerUnit) = Candidate(column, CsvTypeFloatUnit) = false;
    if (mark != nullptr) Candidate(column, CsvTypeInteger) = Candidate(column, CsvTypeHex) = false;
    column.DetectedType = CsvTypeUndefined;
    for (const ECsvDataType type : {CsvTypeString, CsvTypeFloat, CsvTypeHex, CsvTypeInteger}) {
        if (Candidate(column, type)) column.DetectedType = type;
    }
    return true;
}

// Nothing that ends in a digit is a unit, and so no cell with such an end, however it begins, gives one.
bool MaySettleUnit(const CCsvColumnInfo& column, std::u16string_view cell) {
    return column.Unit.empty() && (cell.empty() || !IsDigit(cell.back()));
}

// NarrowTypes for a column that can only be text any more. False, with nothing changed, for another one, or
// if the cell may settle its unit.
bool StaysText(CCsvColumnInfo& column, std::u16string_view cell) {
    for (int type = CsvTypeBoolean; type < CsvTypeString; ++type) {
        if (Candidate(column, static_cast<ECsvDataType>(type))) return false;
    }
    if (!Candidate(column, CsvTypeString) || MaySettleUnit(column, cell)) return false;
    column.DetectedType = CsvTypeString;
    return true;
}

}  // namespace

void NarrowTypes(CCsvColumnInfo& column, const char16_t* cell) {
    if (NarrowByNumber(column, cell)) return;
    const std::u16string_view whole(cell);
    const std::size_t length = std::min(whole.size(), LongestCell);
    if (StaysText(column, whole.substr(0, length))) return;
    column.DetectedType = CsvTypeUndefined;
    char16_t text[LongestCell + 1];
    char16_t scratch[LongestCell + 1];
    std::copy_n(whole.data(), length, text);
    text[length] = u'\0';
    double number;
    const char16_t* mark;
    // What stands behind the digits of a plain number holds a mark or nothing: no unit, whatever the
    // column's.
    const bool isPlainNumber = ParseShortDecimal(text, number, &mark);
    for (int i = 0; i < CsvTypeCount; ++i) {
        const TypeTest& test = Tests[i];
        bool& isCandidate = column.TypeCandidates[static_cast<std::size_t>(i)];
        // A test of a fallen type still counts while it can settle the unit; without that it shows nothing.
        if (!isCandidate && !(test.MaySetUnit && column.Unit.empty() && !isPlainNumber)) continue;
        if (test.ChangesText) std::copy_n(text, length + 1, scratch);
        const bool isRefused = test.MaySetUnit && isPlainNumber;
        if (isRefused || !test.Accepts(test.ChangesText ? scratch : text, column.Unit)) {
            isCandidate = false;
        } else if (isCandidate && column.DetectedType == CsvTypeUndefined) {
            column.DetectedType = static_cast<ECsvDataType>(i + 1);
        }
    }
}

DataTypeSet SetOfTypes(const CCsvColumnInfo& column) {
    DataTypeSet set = 0;
    for (std::size_t i = 0; i < column.TypeCandidates.size(); ++i)
        set |= DataTypeSet{column.TypeCandidates[i]} << i;
    return set;
}

DataTypeSet TypesFitting(const char16_t* cell, const std::u16string& unit) {
    CCsvColumnInfo column;
    column.TypeCandidates.fill(true);
    column.Unit = unit;
    NarrowTypes(column, cell);
    return SetOfTypes(column);
}

void CCsvImportSettings::AnalyzeCell(int column, const char16_t* cell) {
    NarrowTypes(GetColumn(column), cell);
}
