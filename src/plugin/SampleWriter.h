// From one cell to one sample of its column's signal.
#pragma once

#include <cstdint>

#include "host/DataStore.h"
#include "settings/CsvColumnInfo.h"

// A column of a run that gets samples. Points into the settings and the store; valid during the run.
struct SampleColumn {
    int Index;          // 0-based
    ECsvDataType Type;  // CsvTypeBoolean to CsvTypeString
    CCsvColumnInfo* Info;
    DM::SignalProxy* Signal;
    bool UnitSettled = false;  // the signal has its unit, or never gets one
};

// Adds the cell (null if the row is too short) as a sample at `time`, or a sample without a value if it isn't
// of the column's type. LinePadding must follow the line that the cell stands in. The cell's text may change;
// a refused one is left as its parser leaves it. False for a cell that was refused.
bool WriteSample(SampleColumn& column, char16_t* cell, std::int64_t time);
