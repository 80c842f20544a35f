// Optional interface of a filter: a host that knows more of the file than the analysis finds.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "contract/RunObserver.h"

// What the host has chosen for a column, as a user does on the signal page. What is empty or 0 stays as the
// analysis finds it.
struct ColumnChoice {
    int Column = 0;  // from 0
    std::u16string Name;
    std::u16string Unit;  // of the signal, whatever unit its cells name
    int Type = 0;         // 1 boolean to 8 text
    bool Import = true;   // the column becomes a signal
};

// Asked and told during a run, on one thread at a time, only about cells and rows that give a message: a run
// without any costs nothing more.
class IReadingGuide {
  public:
    virtual ~IReadingGuide() = default;

    // True for a text that is no value and stands for none, such as "n/a": its sample has no value, and no
    // message says so. `cell` is the text as the parser left it, `column` counts from 0.
    virtual bool IsMissing(int column, const char16_t* cell) = 0;

    // A cell of a column of integers that holds more than digits and a sign. The parser takes marks out of
    // it: what "1.5" comes to is 15.
    virtual void OnMarkedInteger(int column, const char16_t* cell) = 0;

    // True for a line that is known to be no row, such as the header once more: nothing is said of it.
    virtual bool IsNoRow(const DroppedRow& row) = 0;

    // The line, from 1, that reports name for a line of the file that is read.
    virtual std::uint64_t SourceLine(std::uint64_t line) const = 0;
};

class IGuidedReading {
  public:
    static constexpr const char* Id = "kelvarin.GuidedReading/2";

    virtual ~IGuidedReading() = default;

    // Laid over the columns after each analysis from now on. A column beyond those that the analysis finds
    // is made.
    virtual void ChooseColumns(std::vector<ColumnChoice> choices) = 0;

    // Who is asked from now on; null for nobody, as at first. The guide must outlive the runs.
    virtual void FollowGuide(IReadingGuide* guide) = 0;

    // The letters by which runs and ITimeReader read formats from now on: of year, month, day, hours, minutes
    // and seconds, "YMDhms" in English. Those of the language in force at first, whose day may be a letter
    // that the times of a file have as a mark.
    virtual void ReadFormatsBy(const std::u16string& letters) = 0;
};
