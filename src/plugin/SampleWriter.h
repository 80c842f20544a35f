// From the cells of a row to samples of its columns' signals.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "analysis/RowCells.h"
#include "contract/DataStore.h"
#include "contract/GuidedReading.h"
#include "settings/CsvColumnInfo.h"

// A column of a run that gets samples. Points into the settings and the store; valid during the run.
struct SampleColumn {
    int Index;          // 0-based
    ECsvDataType Type;  // CsvTypeBoolean to CsvTypeString
    bool UnitSettled;   // the signal has its unit, or never gets one
    CCsvColumnInfo* Info;
    DM::SignalProxy* Signal;
    IReadingGuide* Guide = nullptr;  // hears of integers with marks; null for nobody
};

// Called for a cell that is not of its column's type, as its parser left it; not for one that is empty by
// then.
using RefusedCellHandler = std::function<void(const SampleColumn& column, const char16_t* cell)>;

// Adds a row's cells as samples at `time`, one for each column: without a value if the row is too short, or
// if the cell isn't of the column's type, which is reported before the next column's sample. Cells may
// change.
void WriteSamples(std::vector<SampleColumn>& columns, RowCells& cells, std::int64_t time,
                  const RefusedCellHandler& onRefused);
