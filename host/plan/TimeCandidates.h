// All that may be the times of a table, each with its score.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "host/plan/TimeSearch.h"

namespace kelvarin::plan {
// A column of whole numbers of at most six digits, the smallest and the largest of them.
struct NumberBounds {
    bool IsWhole = false;
    std::int64_t Least = 0, Most = 0;

    bool IsWithin(std::int64_t least, std::int64_t most) const {
        return IsWhole && Least >= least && Most <= most;
    }
};

// What the texts of a column are, as counts.
struct ColumnLook {
    std::size_t Filled = 0, Dates = 0, Clocks = 0, Both = 0, Numbers = 0;

    void AddTime(const ParsedTime& time) {
        Dates += time.HasDate && !time.HasClock;
        Clocks += !time.HasDate;
        Both += time.HasDate && time.HasClock;
    }

    // Most of the texts; in a short file all but one, as a total at its end.
    bool Is(std::size_t count) const {
        constexpr std::size_t Fewest = 3;
        return Filled > 0 && (10 * count >= 8 * Filled || (count >= Fewest && count + 1 >= Filled));
    }
};

// The arguments must outlive the object.
class TimeCandidates {
  public:
    TimeCandidates(const TableRows& rows, const Labels& labels, const PreambleClues& clues);

    // Of recipes that read other columns than these not all are found.
    TimeCandidates(const TableRows& rows, const Labels& labels, const PreambleClues& clues,
                   const std::vector<std::size_t>& columns);

    // Texts that people read as dates and clocks: TextCandidates.cpp.
    void AddTexts();

    // Year, month, day and so on in columns of their own, by their names, or without names by their values:
    // PartCandidates.cpp.
    void AddParts();

    // Numbers that count a unit of time: NumberCandidates.cpp.
    void AddNumbers();

    const std::vector<FoundTimes>& Found() const { return All; }

  private:
    // TimeCandidates.cpp. Adds a recipe with what it makes of the rows; null if too few have a time. Valid
    // until the next call.
    FoundTimes* Consider(TimeRecipe recipe, double weight);
    const Label& LabelOf(std::size_t column) const;
    NumberBounds BoundsOf(std::size_t column) const;

    // TextCandidates.cpp.
    void LookAtTexts();
    void AddDates(std::size_t column);
    void AddClockBeside(const FoundTimes& date, std::size_t other, std::size_t distance);
    bool MayBeHours(std::size_t column) const;
    int YearOf(const std::vector<std::u16string_view>& texts) const;
    void PutMonthFirst(std::size_t column, DateStyle& style) const;
    bool AreHalves(std::size_t column) const;
    bool LeavesOut(std::size_t column) const;
    bool MayBeQuarters(std::size_t column) const;
    void AddQuartersBeside(const FoundTimes& date, std::size_t other);
    void AddHoursBeside(const FoundTimes& date, std::size_t other, double weight);
    void AddMilliseconds(std::size_t date, std::size_t clock, const DateStyle& style);
    void AddJointDigits(std::size_t column);
    bool AddClocksBelowDates(std::size_t column);
    void AddClocks(std::size_t column);
    TimeRecipe ClockOf(std::size_t column) const;

    // PartCandidates.cpp.
    std::vector<PartColumn> PartsByName() const;
    std::vector<PartColumn> PartsByValue() const;
    void AddDatesByValue();
    void AddClockDigits();
    void ConsiderRising(const std::vector<PartColumn>& parts, double weight);

    // NumberCandidates.cpp.
    struct NumberColumn;
    void AddSince1970(const NumberColumn& column);
    void AddDays(const NumberColumn& column);
    void AddElapsed(const NumberColumn& column);
    void AddRising(const NumberColumn& column);

    const TableRows& Rows;
    const Labels& Names;
    const PreambleClues& Clues;
    std::size_t Width = 0;                                // columns looked at
    std::vector<std::vector<std::u16string_view>> Texts;  // by column
    std::vector<bool> IsWanted;                           // by column
    std::vector<int> Years;                               // by column, as YearOf, after AddTexts
    std::vector<ColumnLook> Looks;                        // the same
    std::vector<FoundTimes> All;
};
}  // namespace kelvarin::plan
