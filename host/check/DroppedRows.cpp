#include "host/check/DroppedRows.h"

#include <algorithm>

#include "host/check/SourceLines.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

constexpr std::size_t AllUpTo = 1000;     // rows that are all looked at
constexpr std::size_t PerStride = 500;    // rows looked at before the stride doubles
constexpr std::uint64_t MostTried = 100;  // unreadable rows that other formats are tried on
constexpr std::size_t MostOfALine = 200;  // characters

bool IsEmpty(const std::u16string& line, char16_t separator) {
    return std::all_of(line.begin(), line.end(),
                       [&](char16_t c) { return c == separator || c == u'"' || IsWhiteSpace(c); });
}

}  // namespace

void DroppedRows::Add(std::uint64_t line, std::uint64_t moduleLine, std::optional<std::int64_t> lastTime) {
    ++Number;
    ++Unseen;
    if (--UntilNext != 0) return;
    Rows.push_back({line, moduleLine, Unseen, lastTime});
    Unseen = 0;
    if (Rows.size() >= AllUpTo && Rows.size() % PerStride == 0) Stride *= 2;
    UntilNext = Stride;
}

void DroppedRows::Examine(const std::u16string& path, const TimeSource& reading, TimeProbe& probe,
                          RowRange stored) {
    for (const std::u16string& format : {reading.WithDayAndMonthExchanged(), reading.WithOtherMark()}) {
        if (!format.empty()) Variants.push_back({format});
    }
    if (!Rows.empty()) Rows.back().Weight += Unseen;
    SourceLines lines(path);
    for (const Chosen& row : Rows) {
        if (Reference && Reference->Line < row.Line && lines.GoTo(Reference->Line)) {
            SettleCorrection(probe.Read(lines.Text()));
            Reference.reset();
        }
        if (!lines.GoTo(row.Line)) break;
        const DropReason reason = ReasonOf(row, lines.Text(), reading, probe, stored);
        const std::u16string text(TrimWhiteSpace(lines.Text()).substr(0, MostOfALine));
        Reasons[static_cast<std::size_t>(reason)].Add({row.Line, row.ModuleLine, text}, row.Weight);
    }
    std::uint64_t seen = 0;
    for (const FilePlaces& places : Reasons) seen += places.Count();
    Reasons[static_cast<std::size_t>(DropReason::Unknown)].AddUnseen(Number - seen);
    for (const Variant& variant : Variants) {
        if (variant.Reads != 0 && variant.Reads * 2 >= Tried) OtherFormat = variant.Format;
    }
}

// The reference row is stored, so the difference is what the settings add to every time that is read.
void DroppedRows::SettleCorrection(const std::optional<ProbedTime>& probed) {
    if (probed && probed->Time) Correction = WrappingSubtract(*Reference->LastTime, *probed->Time);
}

DropReason DroppedRows::ReasonOf(const Chosen& row, const std::u16string& line, const TimeSource& reading,
                                 TimeProbe& probe, RowRange stored) {
    if (IsEmpty(line, reading.SeparatorSign())) return DropReason::Empty;
    if (reading.IsInterval) return DropReason::NoStep;
    if (reading.Format.empty()) return DropReason::Unreadable;
    const std::optional<ProbedTime> probed = probe.Read(line);
    if (!probed) return DropReason::Unknown;
    if (!probed->Reads) {
        TryVariants(line, probe);
        if (stored.First == 0) return DropReason::Unreadable;
        if (row.Line < stored.First) return DropReason::UnreadableAtStart;
        return row.Line > stored.Last ? DropReason::UnreadableAtEnd : DropReason::Unreadable;
    }
    if (!row.LastTime) return DropReason::OutOfRange;
    // A time of day that falls is the next day's there.
    if (reading.DateFrom == TimeSource::Date::Fixed) return DropReason::Repeats;
    return probed->Time ? CompareTime(WrappingAdd(*probed->Time, Correction), row) : DropReason::NotLater;
}

DropReason DroppedRows::CompareTime(std::int64_t time, const Chosen& row) {
    if (time == *row.LastTime) return DropReason::Repeats;
    if (time > *row.LastTime) return DropReason::OutOfRange;
    const std::int64_t depth = WrappingSubtract(*row.LastTime, time);
    if (Falls++ == 0) {
        FallOfFirst = depth;
        TimeBeforeFall = *row.LastTime;
    }
    Deepest = std::max(Deepest, depth);
    if (time < LastFallen.value_or(*row.LastTime)) ++Descents;
    LastFallen = time;
    return DropReason::Falls;
}

void DroppedRows::TryVariants(const std::u16string& line, TimeProbe& probe) {
    if (Tried == MostTried) return;
    ++Tried;
    for (Variant& variant : Variants) {
        const std::optional<ProbedTime> probed = probe.Read(line, variant.Format);
        if (probed && probed->Reads) ++variant.Reads;
    }
}

}  // namespace kelvarin::check
