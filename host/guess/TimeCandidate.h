// One way to give the rows of a table their times, and how it fares on them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/guess/ColumnHint.h"
#include "host/guess/FormatShape.h"
#include "host/guess/TimeReading.h"

namespace kelvarin::guess {

// What decides whether day or month comes first.
enum class OrderProof { NotNeeded, ByLabel, ByRange, ByRise, BySteps, Missing };

// What a number in a column counts.
enum class TimeKind { DateAndTime, Date, Epoch, TimeOfDay, Elapsed };

struct TimeCandidate {
    TimeKind Kind = TimeKind::Elapsed;
    int DateColumn = 0;  // from 1; 0 for none
    int TimeColumn = 0;  // from 1; that of the date if the time stands in the same
    FormatShape Shape;   // its format is the one that was tried
    TimeReading Reading;
    ColumnHint Hint;  // of the time column
    OrderProof Proof = OrderProof::NotNeeded;
    std::u16string Unit;                      // of an elapsed time, as a bracket field names it
    std::optional<std::int64_t> RangeLength;  // of a text with two times, if it is always the same

    bool HasDate() const { return Kind == TimeKind::DateAndTime || Kind == TimeKind::Date; }
};

}  // namespace kelvarin::guess
