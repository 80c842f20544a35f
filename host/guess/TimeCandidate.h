// One way to give the rows of a table their times, and how it fares on them. Inside the guess only.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/ModuleLoader.h"
#include "host/guess/FormatShape.h"
#include "host/guess/TableTrial.h"

namespace kelvarin::guess {

// What the texts above a column say about times in it.
struct ColumnHint {
    bool IsNamed = false;                 // there is any text above the column
    bool IsTime = false;                  // a word for time or date is among them
    std::u16string Unit;                  // h, min, s, ms, µs, ns; empty if none is named
    DateOrder Order = DateOrder::NoDate;  // as "DD.MM.YYYY" has it
};

// Looks at the column's name and at the cells above its data. `column` counts from 0.
ColumnHint HintOf(const TableSample& table, std::size_t column);

// What decides whether day or month comes first, the better proof first.
enum class OrderProof { NotNeeded, ByLabel, ByRange, ByRise, BySteps, Missing };

// What a number in a column counts.
enum class TimeKind { DateAndTime, Date, Epoch, TimeOfDay, Elapsed };

struct TimeCandidate {
    TimeKind Kind = TimeKind::Elapsed;
    int DateColumn = 0;  // from 1; 0 for none
    int TimeColumn = 0;  // from 1; that of the date if the time is in the same
    FormatShape Shape;   // its format is the one that was tried
    TimeReading Reading;
    ColumnHint Hint;  // of the time column
    OrderProof Proof = OrderProof::NotNeeded;
    std::u16string Unit;                      // of an elapsed time, as a bracket field names it
    std::optional<std::int64_t> RangeLength;  // of a text with two times, if it is always the same

    bool HasDate() const { return Kind == TimeKind::DateAndTime || Kind == TimeKind::Date; }
};

// The best of the shapes that read the same texts and differ in the order of day and month; nothing if none
// fits. `hint` is that of the date's column.
std::optional<TimeCandidate> BestOrder(const TableTrial& trial, const std::vector<FormatShape>& shapes,
                                       const TextList& texts, const ColumnHint& hint);

// The best reading of each column, or of it with a neighbour, whose text looks like a date or a time of day.
std::vector<TimeCandidate> FindDateCandidates(const TableTrial& trial);

// Numbers that count time, since a start or since 1970: a candidate for each column of rising numbers whose
// name speaks of time, and for the first one if no column has a name.
std::vector<TimeCandidate> FindNumberCandidates(const TableTrial& trial);

// Takes the first standard format of the module that reads every sampled row as the candidate's own does: the
// user finds it in the settings dialog's list.
void UseStandardFormat(const ModuleLoader& module, const TableTrial& trial, TimeCandidate& candidate);

}  // namespace kelvarin::guess
