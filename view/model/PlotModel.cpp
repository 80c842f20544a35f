#include "view/model/PlotModel.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "contract/FixedTimes.h"

namespace kelvarin::view {
namespace {
constexpr std::size_t MostSteps = 1000;

// The nearest moment that a time can be.
std::int64_t Moment(double time) {
    constexpr auto Most = static_cast<double>(MaxTimestamp);
    return std::llround(std::clamp(time, -Most, Most));
}
}  // namespace

std::vector<std::string> Pane::Units() const {
    std::vector<std::string> units;
    for (const SignalPointer& signal : Signals) {
        const bool isNumber = signal->Kind() == SignalKind::Number;
        if (isNumber && std::find(units.begin(), units.end(), signal->Unit()) == units.end())
            units.push_back(signal->Unit());
    }
    return units;
}

bool PlotModel::Has(const PlottedSignal& signal) const {
    return std::any_of(AllPanes.begin(), AllPanes.end(), [&](const Pane& pane) {
        return std::any_of(pane.Signals.begin(), pane.Signals.end(),
                           [&](const SignalPointer& other) { return other.get() == &signal; });
    });
}

void PlotModel::Add(SignalPointer signal, std::size_t pane) {
    if (Has(*signal)) return;
    const TimeRange before = Whole();
    const bool showsAll = IsEmpty() || State.Time == before;
    if (pane >= AllPanes.size()) {
        pane = AllPanes.size();
        AllPanes.emplace_back();
    }
    AllPanes[pane].Signals.push_back(std::move(signal));
    AllPanes[pane].FixedRanges.clear();
    if (showsAll) SetTimes(Whole());
}

void PlotModel::Remove(const PlottedSignal& signal) {
    for (Pane& pane : AllPanes) {
        const auto removed =
            std::erase_if(pane.Signals, [&](const SignalPointer& other) { return other.get() == &signal; });
        if (removed != 0) pane.FixedRanges.clear();
    }
    std::erase_if(AllPanes, [](const Pane& pane) { return pane.Signals.empty(); });
}

void PlotModel::Clear() {
    AllPanes.clear();
    Past.clear();
    Future.clear();
    Cursor.reset();
    Second.reset();
}

void PlotModel::Replace(const PlottedSignal& old, SignalPointer signal) {
    for (Pane& pane : AllPanes) {
        for (SignalPointer& other : pane.Signals) {
            if (other.get() != &old) continue;
            if (other->Unit() != signal->Unit() || other->Kind() != signal->Kind()) pane.FixedRanges.clear();
            other = std::move(signal);
            return;
        }
    }
}

TimeRange PlotModel::Whole() const {
    std::optional<TimeRange> whole;
    for (const Pane& pane : AllPanes) {
        for (const SignalPointer& signal : pane.Signals) {
            if (signal->Count() == 0) continue;
            const TimeRange range = signal->Times().Range();
            whole = whole ? United(*whole, range) : range;
        }
    }
    return whole.value_or(TimeRange{});
}

void PlotModel::SetTimes(const TimeRange& range) {
    State.Time.From = std::clamp(range.From, -MaxTimestamp, MaxTimestamp - 1);
    State.Time.To = std::clamp(range.To, State.Time.From + 1, MaxTimestamp);
}

PlotModel::Look PlotModel::Now() const {
    Look look{State.Time, {}};
    for (const Pane& pane : AllPanes) look.Values.push_back(pane.FixedRanges);
    return look;
}

void PlotModel::Restore(const Look& look) {
    SetTimes(look.Time);
    // Panes may have come and gone since.
    for (std::size_t i = 0; i < AllPanes.size(); ++i) {
        Pane& pane = AllPanes[i];
        pane.FixedRanges.clear();
        if (i < look.Values.size() && look.Values[i].size() == pane.Units().size())
            pane.FixedRanges = look.Values[i];
    }
}

void PlotModel::Note() {
    if (IsMoving && !Past.empty()) return;
    Past.push_back(Now());
    if (Past.size() > MostSteps) Past.erase(Past.begin());
    Future.clear();
}

void PlotModel::BeginMovement() {
    IsMoving = false;
    Note();
    IsMoving = true;
}

void PlotModel::ShowTimes(TimeRange range) {
    IsMoving = false;
    Note();
    SetTimes(range);
}

void PlotModel::ShowValues(std::size_t pane, std::vector<ValueRange> ranges, bool joinsLastStep) {
    if (pane >= AllPanes.size()) return;
    if (!ranges.empty() && ranges.size() != AllPanes[pane].Units().size()) return;
    if (!joinsLastStep) Note();
    AllPanes[pane].FixedRanges = std::move(ranges);
}

void PlotModel::FitAll() {
    IsMoving = false;
    Note();
    SetTimes(Whole());
    for (Pane& pane : AllPanes) pane.FixedRanges.clear();
}

void PlotModel::Zoom(double factor, double share) {
    Note();
    const double length = std::max(State.Time.Length() * factor, 1.0);
    const double shift = State.Time.Length() * share - length * share;
    const std::int64_t from = Moment(static_cast<double>(State.Time.From) + shift);
    // Near the nanosecond a double of the whole time is too coarse.
    const std::int64_t exact =
        std::abs(shift) < 1e15 ? State.Time.From + static_cast<std::int64_t>(std::llround(shift)) : from;
    SetTimes({exact, exact + static_cast<std::int64_t>(std::min(std::ceil(length), 4e18))});
}

void PlotModel::Pan(double share) {
    Note();
    const std::int64_t shift = Moment(State.Time.Length() * share);
    const std::int64_t length = State.Time.To - State.Time.From;
    const std::int64_t from = std::clamp(State.Time.From + shift, -MaxTimestamp, MaxTimestamp - length);
    SetTimes({from, from + length});
}

void PlotModel::GoBack(std::vector<Look>& from, std::vector<Look>& to) {
    if (from.empty()) return;
    IsMoving = false;
    to.push_back(Now());
    Restore(from.back());
    from.pop_back();
}

std::vector<CursorRow> PlotModel::AtCursors() const {
    std::vector<CursorRow> rows;
    for (const Pane& pane : AllPanes) {
        for (const SignalPointer& signal : pane.Signals) {
            CursorRow row{signal, {}, {}};
            if (Cursor) row.First = signal->At(*Cursor);
            if (Second) row.Second = signal->At(*Second);
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

std::int64_t PlotModel::NextSample(bool forward) const {
    const std::int64_t now = Cursor.value_or(State.Time.From);
    std::optional<std::int64_t> best;
    for (const Pane& pane : AllPanes) {
        for (const SignalPointer& signal : pane.Signals) {
            const store::TimeIndex& times = signal->Times().Index();
            const std::uint64_t row = times.RowsBefore(forward ? now + 1 : now);
            if (forward ? row == times.Count() : row == 0) continue;
            const std::int64_t time = times.TimeAt(forward ? row : row - 1);
            const bool isNearer = !best || (forward ? time < *best : time > *best);
            if (isNearer) best = time;
        }
    }
    return best.value_or(now);
}
}  // namespace kelvarin::view
