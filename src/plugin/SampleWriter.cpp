#include "plugin/SampleWriter.h"

#include <string>

#include "analysis/NumberCells.h"
#include "analysis/ScanCell.h"
#include "analysis/TextCells.h"

namespace {

// A cell of a row: as it stands in its line, for what reads plain cells, and in UTF-16, for the parsers.
template <class Unit>
class Cell;

template <>
class Cell<char16_t> {
  public:
    Cell(char16_t* text, RowCells&) : Text(text) {}
    char16_t* operator*() const { return Text; }
    char16_t* Wide() { return Text; }
    char16_t* Wide(std::size_t) { return Text; }

  private:
    char16_t* const Text;
};

[[gnu::noinline]] char16_t* WidenCell(RowCells& row, const char* cell) {
    return row.Widen(cell, ScanLength(cell));
}

// Kept in registers, which is why all but the widening is inlined. Widened when that is wanted first: a
// parser may change what others are then told of.
template <>
class Cell<char> {
  public:
    Cell(const char* text, RowCells& row) : Text(text), Row(row) {}
    const char* operator*() const { return Text; }
    [[gnu::always_inline]] char16_t* Wide() {
        if (WideText == nullptr) WideText = WidenCell(Row, Text);
        return WideText;
    }
    [[gnu::always_inline]] char16_t* Wide(std::size_t length) { return WideText = Row.Widen(Text, length); }

  private:
    const char* const Text;
    RowCells& Row;
    char16_t* WideText = nullptr;
};

// True if the rest of a cell is the unit, and that one without the marks that the parsers remove or rewrite.
template <class Unit>
bool IsUnit(const Unit* rest, const std::u16string& unit) {
    if (unit.empty()) return false;
    for (const char16_t c : unit) {
        if (c != static_cast<char16_t>(*rest++) || c == u',' || c == u'.') return false;
    }
    return *rest == 0;
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

template <class Unit>
void TellGuide(const SampleColumn& column, bool isPlain, Cell<Unit>& cell) {
    if (!isPlain && column.Guide != nullptr && **cell != 0)
        column.Guide->OnMarkedInteger(column.Index, cell.Wide());
}

template <class Unit>
bool WriteInteger(SampleColumn& column, Cell<Unit>& cell, std::int64_t time) {
    std::int64_t value = 0;
    const Unit* end = nullptr;
    const bool isPlain = ScanInteger(*cell, value, &end) && *end == 0;
    TellGuide(column, isPlain, cell);
    return Add(column, isPlain || ParseInteger(cell.Wide(), value, true, 10, nullptr), value, time);
}

template <class Unit>
bool WriteIntegerWithUnit(SampleColumn& column, Cell<Unit>& cell, std::int64_t time) {
    std::int64_t value = 0;
    const Unit* end = nullptr;
    std::u16string& unit = column.Info->Unit;
    const bool isPlain = ScanInteger(*cell, value, &end) && IsUnit(end, unit);
    TellGuide(column, isPlain, cell);
    return AddWithUnit(column, isPlain || ParseInteger(cell.Wide(), value, true, 10, &unit), value, time);
}

template <class Unit>
bool WriteFloat(SampleColumn& column, Cell<Unit>& cell, std::int64_t time) {
    double value = 0;
    const Unit* end = nullptr;
    const bool isPlain = ScanDecimal(*cell, value, &end) && *end == 0;
    return Add(column, isPlain || ParseFloat(cell.Wide(), value, nullptr), value, time);
}

template <class Unit>
bool WriteFloatWithUnit(SampleColumn& column, Cell<Unit>& cell, std::int64_t time) {
    double value = 0;
    const Unit* end = nullptr;
    std::u16string& unit = column.Info->Unit;
    const bool isPlain = ScanDecimal(*cell, value, &end) && IsUnit(end, unit);
    return AddWithUnit(column, isPlain || ParseFloat(cell.Wide(), value, &unit), value, time);
}

template <class Unit>
bool WriteBoolean(SampleColumn& column, Cell<Unit>& cell, std::int64_t time) {
    bool isTrue = false;
    const bool accepted = ScanBool(*cell, isTrue) || ParseBool(cell.Wide(), isTrue);
    return Add(column, accepted, static_cast<std::uint8_t>(isTrue ? 0xFF : 0x00), time);
}

template <class Unit>
bool WriteHex(SampleColumn& column, Cell<Unit>& cell, std::int64_t time) {
    std::int64_t value = 0;
    return Add(column, ScanHex(*cell, value) || ParseHex(cell.Wide(), value), value, time);
}

template <class Unit>
bool WriteCharacter(SampleColumn& column, Cell<Unit>& cell, std::int64_t time) {
    char16_t value = static_cast<char16_t>(**cell);
    const bool isOne = value != u'\0' && (*cell)[1] == 0;
    return Add(column, isOne || ParseChar(cell.Wide(), value), value, time);
}

template <class Unit>
bool WriteText(SampleColumn& column, Cell<Unit>& cell, std::int64_t time) {
    const std::size_t length = ScanLength(*cell);
    const auto size = static_cast<std::uint32_t>(length * sizeof(char16_t));
    column.Signal->AddSample(cell.Wide(length), size, time);
    return true;
}

// A row while it is written.
template <class Unit>
struct Row {
    const CellsOf<Unit>& Cells;
    RowCells& Line;
    std::int64_t Time;
    SampleColumn* End;  // behind the last column
    const RefusedCellHandler& OnRefused;
};

// Writes the columns from `first` on up to the first of another type, whose place it answers. One loop for a
// type: most files have many columns of one.
template <class Unit, bool (*Write)(SampleColumn&, Cell<Unit>&, std::int64_t), std::uint32_t Bytes>
[[gnu::always_inline]] inline SampleColumn* WriteRun(SampleColumn* first, const Row<Unit>& row) {
    const ECsvDataType type = first->Type;
    SampleColumn* column = first;
    do {
        const auto index = static_cast<std::size_t>(column->Index);
        if (index >= row.Cells.size()) {
            column->Signal->AddSample(nullptr, Bytes, row.Time);
            continue;
        }
        Cell<Unit> cell(row.Cells[index], row.Line);
        if (!Write(*column, cell, row.Time) && *cell.Wide() != u'\0') row.OnRefused(*column, cell.Wide());
    } while (++column != row.End && column->Type == type);
    return column;
}

// The same for a first column of any type. Without a value a text has no bytes.
template <class Unit>
[[gnu::always_inline]] inline SampleColumn* WriteRun(SampleColumn* first, const Row<Unit>& row) {
    switch (first->Type) {
        case CsvTypeBoolean:
            return WriteRun<Unit, WriteBoolean<Unit>, 1>(first, row);
        case CsvTypeInteger:
            return WriteRun<Unit, WriteInteger<Unit>, 8>(first, row);
        case CsvTypeIntegerUnit:
            return WriteRun<Unit, WriteIntegerWithUnit<Unit>, 8>(first, row);
        case CsvTypeHex:
            return WriteRun<Unit, WriteHex<Unit>, 8>(first, row);
        case CsvTypeFloat:
            return WriteRun<Unit, WriteFloat<Unit>, 8>(first, row);
        case CsvTypeFloatUnit:
            return WriteRun<Unit, WriteFloatWithUnit<Unit>, 8>(first, row);
        case CsvTypeChar:
            return WriteRun<Unit, WriteCharacter<Unit>, 2>(first, row);
        default:
            return WriteRun<Unit, WriteText<Unit>, 0>(first, row);
    }
}

template <class Unit>
void WriteRow(std::vector<SampleColumn>& columns, const Row<Unit>& row) {
    SampleColumn* column = columns.data();
    while (column != row.End) column = WriteRun<Unit>(column, row);
}

}  // namespace

void WriteSamples(std::vector<SampleColumn>& columns, RowCells& cells, std::int64_t time,
                  const RefusedCellHandler& onRefused) {
    SampleColumn* const end = columns.data() + columns.size();
    if (cells.AreBytes()) {
        WriteRow<char>(columns, {cells.Bytes(), cells, time, end, onRefused});
    } else {
        WriteRow<char16_t>(columns, {cells.Wide(), cells, time, end, onRefused});
    }
}
