// What the texts above a column say about times in it.
#pragma once

#include <string>

#include "contract/TableReader.h"
#include "host/guess/FormatShape.h"

namespace kelvarin::guess {

struct ColumnHint {
    bool IsNamed = false;                 // any text stands above the column
    bool IsTime = false;                  // a word for time or date is among them
    std::u16string Unit;                  // h, min, s, ms, µs, ns; empty if none is named
    DateOrder Order = DateOrder::NoDate;  // as "DD.MM.YYYY" tells
};

// Looks at the column's name and at the cells above its data. `column` counts from 0.
ColumnHint HintOf(const TableSample& table, std::size_t column);

}  // namespace kelvarin::guess
