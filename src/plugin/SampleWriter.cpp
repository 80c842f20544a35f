#include "plugin/SampleWriter.h"

#include <string>

#include "analysis/NumberCells.h"
#include "analysis/TextCells.h"

namespace {

// Room for the value of any type of fixed size.
union SampleValue {
    std::uint8_t Boolean;
    std::int64_t Integer;
    double Real;
    char16_t Character;
};

// How the cells of one data type become samples.
struct SampleKind {
    std::uint32_t Bytes;
    bool (*Parse)(char16_t* cell, SampleValue& value, std::u16string& unit);
};

bool ParseBoolean(char16_t* cell, SampleValue& value, std::u16string&) {
    bool isTrue = false;
    const bool accepted = ParseBool(cell, isTrue);
    value.Boolean = isTrue ? 0xFF : 0x00;
    return accepted;
}

bool ParsePlainInteger(char16_t* cell, SampleValue& value, std::u16string&) {
    return ParseInteger(cell, value.Integer, true, 10, nullptr);
}

bool ParseIntegerWithUnit(char16_t* cell, SampleValue& value, std::u16string& unit) {
    return ParseInteger(cell, value.Integer, true, 10, &unit);
}

bool ParseHexNumber(char16_t* cell, SampleValue& value, std::u16string&) {
    return ParseHex(cell, value.Integer);
}

bool ParsePlainFloat(char16_t* cell, SampleValue& value, std::u16string&) {
    return ParseFloat(cell, value.Real, nullptr);
}

bool ParseFloatWithUnit(char16_t* cell, SampleValue& value, std::u16string& unit) {
    return ParseFloat(cell, value.Real, &unit);
}

bool ParseCharacter(char16_t* cell, SampleValue& value, std::u16string&) {
    return ParseChar(cell, value.Character);
}

// In the order of ECsvDataType, from CsvTypeBoolean to CsvTypeChar.
constexpr SampleKind Kinds[] = {
    {1, ParseBoolean},    {8, ParsePlainInteger},  {8, ParseIntegerWithUnit}, {8, ParseHexNumber},
    {8, ParsePlainFloat}, {8, ParseFloatWithUnit}, {2, ParseCharacter},
};

bool HasUnit(ECsvDataType type) {
    return type == CsvTypeIntegerUnit || type == CsvTypeFloatUnit;
}

// The signal takes its unit from its first accepted sample, and it stays.
void SettleUnit(SampleColumn& column) {
    if (column.UnitSettled) return;
    if (HasUnit(column.Type) && column.Signal->GetUnit().empty()) {
        column.Signal->SetUnit(column.Info->Unit.c_str());
    }
    column.UnitSettled = true;
}

bool WriteText(const SampleColumn& column, const char16_t* cell, std::int64_t time) {
    const std::size_t length = cell == nullptr ? 0 : std::char_traits<char16_t>::length(cell);
    column.Signal->AddSample(cell, static_cast<std::uint32_t>(length * sizeof(char16_t)), time);
    return true;
}

}  // namespace

bool WriteSample(SampleColumn& column, char16_t* cell, std::int64_t time) {
    if (column.Type == CsvTypeString) return WriteText(column, cell, time);
    const SampleKind& kind = Kinds[column.Type - CsvTypeBoolean];
    SampleValue value{};
    const bool accepted = cell != nullptr && kind.Parse(cell, value, column.Info->Unit);
    column.Signal->AddSample(accepted ? &value : nullptr, kind.Bytes, time);
    if (accepted) SettleUnit(column);
    return accepted;
}
