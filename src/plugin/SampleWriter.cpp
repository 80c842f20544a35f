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

// The signal takes its unit from its first accepted sample, and it stays.
void SettleUnit(SampleColumn& column) {
    if (column.Signal->GetUnit().empty()) column.Signal->SetUnit(column.Info->Unit.c_str());
    column.UnitSettled = true;
}

// Each reads a cell, adds the sample and answers whether the cell was accepted. The plain numbers come first;
// a cell that isn't plain goes to its parser, which may change it.

template <class Value>
inline bool Add(const SampleColumn& column, bool accepted, const Value& value, std::int64_t time) {
    column.Signal->AddSample(accepted ? &value : nullptr, sizeof value, time);
    return accepted;
}

template <class Value>
bool AddWithUnit(SampleColumn& column, bool accepted, const Value& value, std::int64_t time) {
    Add(column, accepted, value, time);
    if (accepted && !column.UnitSettled) SettleUnit(column);
    return accepted;
}

void TellGuide(const SampleColumn& column, bool isPlain, const char16_t* cell) {
    if (!isPlain && column.Guide != nullptr && *cell != u'\0')
        column.Guide->OnMarkedInteger(column.Index, cell);
}

bool WriteInteger(SampleColumn& column, char16_t* cell, std::int64_t time) {
    std::int64_t value = 0;
    const char16_t* end = nullptr;
    const bool isPlain = ScanInteger(cell, value, &end) && *end == u'\0';
    TellGuide(column, isPlain, cell);
    return Add(column, isPlain || ParseInteger(cell, value, true, 10, nullptr), value, time);
}

bool WriteIntegerWithUnit(SampleColumn& column, char16_t* cell, std::int64_t time) {
    std::int64_t value = 0;
    const char16_t* end = nullptr;
    std::u16string& unit = column.Info->Unit;
    const bool isPlain = ScanInteger(cell, value, &end) && IsUnit(end, unit);
    TellGuide(column, isPlain, cell);
    return AddWithUnit(column, isPlain || ParseInteger(cell, value, true, 10, &unit), value, time);
}

bool WriteFloat(SampleColumn& column, char16_t* cell, std::int64_t time) {
    double value = 0;
    const char16_t* end = nullptr;
    const bool isPlain = ScanDecimal(cell, value, &end) && *end == u'\0';
    return Add(column, isPlain || ParseFloat(cell, value, nullptr), value, time);
}

bool WriteFloatWithUnit(SampleColumn& column, char16_t* cell, std::int64_t time) {
    double value = 0;
    const char16_t* end = nullptr;
    std::u16string& unit = column.Info->Unit;
    const bool isPlain = ScanDecimal(cell, value, &end) && IsUnit(end, unit);
    return AddWithUnit(column, isPlain || ParseFloat(cell, value, &unit), value, time);
}

bool WriteBoolean(SampleColumn& column, char16_t* cell, std::int64_t time) {
    bool isTrue = false;
    const bool accepted = ScanBool(cell, isTrue) || ParseBool(cell, isTrue);
    return Add(column, accepted, static_cast<std::uint8_t>(isTrue ? 0xFF : 0x00), time);
}

bool WriteHex(SampleColumn& column, char16_t* cell, std::int64_t time) {
    std::int64_t value = 0;
    return Add(column, ScanHex(cell, value) || ParseHex(cell, value), value, time);
}

bool WriteCharacter(SampleColumn& column, char16_t* cell, std::int64_t time) {
    char16_t value = u'\0';
    return Add(column, ParseChar(cell, value), value, time);
}

bool WriteText(SampleColumn& column, char16_t* cell, std::int64_t time) {
    column.Signal->AddSample(cell, static_cast<std::uint32_t>(ScanLength(cell) * sizeof(char16_t)), time);
    return true;
}

// A row while it is written.
struct Row {
    char16_t* const* Cells;
    std::size_t CellCount;
    std::int64_t Time;
    SampleColumn* End;  // behind the last column
    const RefusedCellHandler& OnRefused;
};

// Writes the columns from `first` on up to the first of another type, whose place it answers. One loop for a
// type: most files have many columns of one.
template <bool (*Write)(SampleColumn&, char16_t*, std::int64_t), std::uint32_t Bytes>
SampleColumn* WriteRun(SampleColumn* first, const Row& row) {
    const ECsvDataType type = first->Type;
    SampleColumn* column = first;
    do {
        const auto index = static_cast<std::size_t>(column->Index);
        if (index >= row.CellCount) {
            column->Signal->AddSample(nullptr, Bytes, row.Time);
        } else if (!Write(*column, row.Cells[index], row.Time) && *row.Cells[index] != u'\0') {
            row.OnRefused(*column, row.Cells[index]);
        }
    } while (++column != row.End && column->Type == type);
    return column;
}

// In the order of ECsvDataType, from CsvTypeBoolean to CsvTypeString. Without a value a text has no bytes.
using RunWriter = SampleColumn* (*)(SampleColumn* first, const Row& row);
constexpr RunWriter RunWriters[] = {
    WriteRun<WriteBoolean, 1>,   WriteRun<WriteInteger, 8>, WriteRun<WriteIntegerWithUnit, 8>,
    WriteRun<WriteHex, 8>,       WriteRun<WriteFloat, 8>,   WriteRun<WriteFloatWithUnit, 8>,
    WriteRun<WriteCharacter, 2>, WriteRun<WriteText, 0>,
};

}  // namespace

void WriteSamples(std::vector<SampleColumn>& columns, const CellList& cells, std::int64_t time,
                  const RefusedCellHandler& onRefused) {
    SampleColumn* column = columns.data();
    const Row row{cells.begin(), cells.size(), time, column + columns.size(), onRefused};
    while (column != row.End) column = RunWriters[column->Type - CsvTypeBoolean](column, row);
}
