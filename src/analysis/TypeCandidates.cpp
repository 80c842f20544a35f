// The ladder of the data types: a parser answers yes or no about one cell, and only this file knows the order
// of preference and the way down.
#include <algorithm>
#include <string_view>

#include "analysis/NumberCells.h"
#include "analysis/TextCells.h"
#include "settings/CsvImportSettings.h"

namespace {

constexpr std::size_t LongestCell = 511;  // a longer cell is judged by its beginning

// Whether a cell is of one type. The text is a copy that the test may change; the unit is the column's.
struct TypeTest {
    bool (*Accepts)(char16_t* text, std::u16string& unit);
    bool MaySetUnit;
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
    {IsBoolean, false}, {IsInteger, false},  {IsIntegerUnit, true}, {IsHex, false},
    {IsFloat, false},   {IsFloatUnit, true}, {IsChar, false},       {IsString, false},
};

}  // namespace

void CCsvImportSettings::AnalyzeCell(int column, const char16_t* cell) {
    CCsvColumnInfo& info = GetColumn(column);
    info.DetectedType = CsvTypeUndefined;
    const std::u16string_view whole(cell);
    const std::size_t length = std::min(whole.size(), LongestCell);
    char16_t copy[LongestCell + 1];
    for (int i = 0; i < CsvTypeCount; ++i) {
        bool& isCandidate = info.TypeCandidates[static_cast<std::size_t>(i)];
        // A test of a fallen type still counts while it can settle the unit; without that it shows nothing.
        if (!isCandidate && !(Tests[i].MaySetUnit && info.Unit.empty())) continue;
        std::copy_n(whole.data(), length, copy);
        copy[length] = u'\0';
        if (!Tests[i].Accepts(copy, info.Unit)) {
            isCandidate = false;
        } else if (isCandidate && info.DetectedType == CsvTypeUndefined) {
            info.DetectedType = static_cast<ECsvDataType>(i + 1);
        }
    }
}
