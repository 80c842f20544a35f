#include "plugin/SampleWriter.h"

#include <string>

#include "analysis/NumberCells.h"
#include "analysis/ScanCell.h"
#include "analysis/TextCells.h"

namespace {

// True if the rest of a cell is the unit, and that one without the marks that the parsers remove or rewrite.
bool IsUnit(const char16_t* rest, const std::u16string& unit) {
    if (unit.empty()) return false;
    for (const char16_t c : unit) {
        if (c != *rest++ || c == u',' || c == u'.') return false;
    }
    return *rest == u'\0';
}

bool HasUnit(ECsvDataType type) {
    return type == CsvTypeIntegerUnit || type == CsvTypeFloatUnit;
}

// The signal takes its unit from its first accepted sample, and it stays.
void SettleUnit(SampleColumn& column) {
    if (HasUnit(column.Type) && column.Signal->GetUnit().empty()) {
        column.Signal->SetUnit(column.Info->Unit.c_str());
    }
    column.UnitSettled = true;
}

// Adds a value, or a sample without one if it was not accepted.
template <class Value>
bool Write(SampleColumn& column, bool accepted, const Value& value, std::int64_t time) {
    column.Signal->AddSample(accepted ? &value : nullptr, sizeof value, time);
    if (accepted && !column.UnitSettled) SettleUnit(column);
    return accepted;
}

// The plain numbers first; a cell that isn't plain goes to its parser, which may change it.

bool WriteInteger(SampleColumn& column, char16_t* cell, std::int64_t time) {
    std::int64_t value = 0;
    const char16_t* end = nullptr;
    const bool isPlain = cell != nullptr && ScanInteger(cell, value, &end) && *end == u'\0';
    return Write(column, isPlain || ParseInteger(cell, value, true, 10, nullptr), value, time);
}

bool WriteIntegerWithUnit(SampleColumn& column, char16_t* cell, std::int64_t time) {
    std::int64_t value = 0;
    const char16_t* end = nullptr;
    std::u16string& unit = column.Info->Unit;
    const bool isPlain = cell != nullptr && ScanInteger(cell, value, &end) && IsUnit(end, unit);
    return Write(column, isPlain || ParseInteger(cell, value, true, 10, &unit), value, time);
}

bool WriteFloat(SampleColumn& column, char16_t* cell, std::int64_t time) {
    double value = 0;
    const char16_t* end = nullptr;
    const bool isPlain = cell != nullptr && ScanDecimal(cell, value, &end) && *end == u'\0';
    return Write(column, isPlain || ParseFloat(cell, value, nullptr), value, time);
}

bool WriteFloatWithUnit(SampleColumn& column, char16_t* cell, std::int64_t time) {
    double value = 0;
    const char16_t* end = nullptr;
    std::u16string& unit = column.Info->Unit;
    const bool isPlain = cell != nullptr && ScanDecimal(cell, value, &end) && IsUnit(end, unit);
    return Write(column, isPlain || ParseFloat(cell, value, &unit), value, time);
}

bool WriteBoolean(SampleColumn& column, char16_t* cell, std::int64_t time) {
    bool isTrue = false;
    const bool accepted = ParseBool(cell, isTrue);
    return Write(column, accepted, static_cast<std::uint8_t>(isTrue ? 0xFF : 0x00), time);
}

bool WriteHex(SampleColumn& column, char16_t* cell, std::int64_t time) {
    std::int64_t value = 0;
    return Write(column, ParseHex(cell, value), value, time);
}

bool WriteCharacter(SampleColumn& column, char16_t* cell, std::int64_t time) {
    char16_t value = u'\0';
    return Write(column, ParseChar(cell, value), value, time);
}

bool WriteText(SampleColumn& column, char16_t* cell, std::int64_t time) {
    const std::size_t length = cell == nullptr ? 0 : ScanLength(cell);
    column.Signal->AddSample(cell, static_cast<std::uint32_t>(length * sizeof(char16_t)), time);
    return true;
}

}  // namespace

bool WriteSample(SampleColumn& column, char16_t* cell, std::int64_t time) {
    switch (column.Type) {
        case CsvTypeBoolean:
            return WriteBoolean(column, cell, time);
        case CsvTypeInteger:
            return WriteInteger(column, cell, time);
        case CsvTypeIntegerUnit:
            return WriteIntegerWithUnit(column, cell, time);
        case CsvTypeHex:
            return WriteHex(column, cell, time);
        case CsvTypeFloat:
            return WriteFloat(column, cell, time);
        case CsvTypeFloatUnit:
            return WriteFloatWithUnit(column, cell, time);
        case CsvTypeChar:
            return WriteCharacter(column, cell, time);
        default:
            return WriteText(column, cell, time);
    }
}
