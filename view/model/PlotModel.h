// What is plotted and where one looks: stacked plots over one time axis, zoom with its history, cursors.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "view/model/Clock.h"
#include "view/model/PlottedSignal.h"
#include "view/model/TimeRange.h"

namespace kelvarin::view {
using SignalPointer = std::shared_ptr<const PlottedSignal>;

struct ValueRange {
    double Lowest = 0, Highest = 1;

    bool operator==(const ValueRange&) const = default;
};

// A plot: signals one over the other, those of numbers with an axis for each unit.
struct Pane {
    std::vector<SignalPointer> Signals;
    std::vector<ValueRange> FixedRanges;  // by axis as Units() has them; empty: what is visible fits

    // The units of its signals of numbers in their order, each once.
    std::vector<std::string> Units() const;
};

// What a cursor shows of a signal.
struct CursorRow {
    SignalPointer Signal;
    std::optional<SampleAt> First,
        Second;  // at the cursors; none before the first sample or without a cursor
};

class PlotModel {
  public:
    const std::vector<Pane>& Panes() const { return AllPanes; }
    bool IsEmpty() const { return AllPanes.empty(); }

    bool Has(const PlottedSignal& signal) const;

    // Plots a signal, in a pane that is there or, with Panes().size(), in a new one below. The first signals
    // decide what is visible.
    void Add(SignalPointer signal, std::size_t pane);
    void Remove(const PlottedSignal& signal);
    void Clear();

    // Puts a signal in the place of another, such as that of the same file read anew, and keeps all else.
    void Replace(const PlottedSignal& old, SignalPointer signal);

    // Of all signals together; 1 ns long without samples.
    TimeRange Whole() const;

    const TimeRange& Visible() const { return State.Time; }

    // Each of these is a step that Undo takes back. Ranges are kept within what times can be, 1 ns long at
    // least. No ranges of values let a pane fit what is visible again.
    void ShowTimes(TimeRange range);
    void ShowValues(std::size_t pane, std::vector<ValueRange> ranges, bool joinsLastStep = false);
    void FitAll();

    // Steps of one movement, such as a drag, are one for Undo: from Begin on until the next one.
    void BeginMovement();

    // Keeps the moment at this share of the visible range (0 to 1) where it is.
    void Zoom(double factor, double share);
    // By a share of the visible range.
    void Pan(double share);

    bool CanUndo() const { return !Past.empty(); }
    bool CanRedo() const { return !Future.empty(); }
    void Undo() { GoBack(Past, Future); }
    void Redo() { GoBack(Future, Past); }

    Clock Times;
    std::optional<std::int64_t> Cursor, Second;

    // For each signal that is plotted.
    std::vector<CursorRow> AtCursors() const;

    // The time of the sample before or after the cursor that is nearest, of any signal; the cursor's own time
    // if there is none.
    std::int64_t NextSample(bool forward) const;

  private:
    struct Look {
        TimeRange Time;
        std::vector<std::vector<ValueRange>> Values;  // by pane

        bool operator==(const Look&) const = default;
    };

    Look Now() const;
    void Restore(const Look& look);
    // Restores the last look of one list and adds the present one to the other.
    void GoBack(std::vector<Look>& from, std::vector<Look>& to);
    void Note();
    void SetTimes(const TimeRange& range);

    std::vector<Pane> AllPanes;
    Look State;
    std::vector<Look> Past, Future;
    bool IsMoving = false;
};
}  // namespace kelvarin::view
