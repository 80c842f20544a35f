// What a guess is put together of: the looks of texts, the candidates for times, and what is said of the best
// one. Inside the guess only.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/guess/TableTrial.h"
#include "host/guess/TimeGuess.h"
#include "settings/IntervalUnits.h"

namespace kelvarin::guess {
// In nanoseconds.
constexpr std::int64_t Second = IntervalUnits[2].Nanoseconds;

// What the numbers of a date are, from left to right.
enum class DateOrder { NoDate, YearFirst, DayFirst, MonthFirst };

// One way to read a text.
struct FormatShape {
    std::u16string Format;
    DateOrder Order = DateOrder::NoDate;
    bool HasTime = false;
    bool IsDigitsOnly = false;      // a number might as well look so
    bool IsTwelveHours = false;     // a clock of twelve hours, which no format can read
    char16_t Blocked = u'\0';       // a letter of the text that a format takes for a field; a blank in Format
    std::u16string RangeMark;       // between the two times of a text that holds two; else empty
    std::u16string FormatUpToMark;  // of the first of two times
    std::u16string Zone;            // as it is written after the time; a format can only step over it
    bool ZoneShiftsFraction = false;  // stepping over it adds up to a quarter of a second
};

// Every way to read the text as a date, a time of day or both. `letters` are the six of a format.
std::vector<FormatShape> ShapesOf(std::u16string_view text, const std::u16string& letters);

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

    // Times of day over midnight, which need a start date.
    bool RunsOverMidnight() const { return Kind == TimeKind::TimeOfDay && Reading.RollOvers != 0; }
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

// What was found where, as one phrase.
std::string BasisOf(const TimeCandidate& candidate);

// Settles how sure the guess is and adds what speaks against it.
void AddObjections(const TimeCandidate& candidate, TimeGuess& guess);

// The settings that make a candidate the times of a file. The path is that of the file, whose own date is
// taken if its rows lack one.
SettingList SettingsFor(const TimeCandidate& candidate, const std::u16string& path);

// The interval and the start of times that people can read and no format can. False, with the guess left
// alone, if there are none.
bool GuessFromUnreadableTimes(const TableTrial& trial, TimeGuess& guess);

// One second per row, for want of times.
void GuessAnyInterval(const TableTrial& trial, TimeGuess& guess);
}  // namespace kelvarin::guess
