#include "timestamp/RowTimestamp.h"

#include <algorithm>

#include "contract/DeviceHost.h"
#include "platform/framework/Numbers.h"
#include "settings/CsvImportSettings.h"
#include "settings/IntervalUnits.h"

namespace {

constexpr std::uint64_t Day = 86'400'000'000'000;

std::int64_t Correction(const CCsvImportSettings& settings, std::int64_t firstRowTime, RunTimes& times) {
    if (!times.Correction) times.Correction = settings.GetTimeCorrection(firstRowTime);
    return *times.Correction;
}

// The time of a row from its index; the step is cut to whole nanoseconds once, not at every row.
std::int64_t IntervalTime(const CCsvImportSettings& settings, std::int64_t row, RunTimes& times) {
    const std::int64_t unit =
        IntervalUnits[std::clamp(settings.IntervalUnit, 0, IntervalUnitCount - 1)].Nanoseconds;
    const std::int64_t step = DoubleToInt64(static_cast<double>(unit) * settings.IntervalValue);
    const std::int64_t time = WrappingMultiply(step, row);
    if (time == NoTimestamp) return NoTimestamp;
    return WrappingAdd(time, Correction(settings, 0, times));
}

// Moves a time of day that went back over midnight to the first day on which it isn't before `last`.
std::int64_t RollOver(std::int64_t time, std::int64_t last) {
    if (time >= last) return time;
    const std::uint64_t behind = static_cast<std::uint64_t>(last) - static_cast<std::uint64_t>(time) - 1;
    return WrappingAdd(time, static_cast<std::int64_t>(Day + behind / Day * Day));
}

template <class Unit>
std::int64_t TextTime(const CCsvImportSettings& settings, std::int64_t row, const Unit* text,
                      RunTimes& times) {
    const bool hasDate = settings.DateSetting == DateFromColumn;
    if (!times.Format) times.Format.emplace(settings.TimestampFormat.c_str());
    std::int64_t time = times.Format->Read(text, hasDate);
    if (row == 0) times.FirstRowTime = time;
    if (time == NoTimestamp) return NoTimestamp;
    time = WrappingAdd(time, Correction(settings, times.FirstRowTime, times));
    return settings.DateSetting == DateFixed ? RollOver(time, times.LastTime) : time;
}

std::int64_t BaseTime(IRelativeTimeContext& context, RunTimes& times) {
    if (!times.Base) {
        const bool isFixed = context.QueryFixedBaseA() || context.QueryFixedBaseB();
        times.Base = isFixed ? RelativeTimeEpoch : context.GetBaseTime();
    }
    return *times.Base;
}

// Why a row that has a time isn't stored.
DropReason ReasonOf(const CCsvImportSettings& settings, std::int64_t time, std::int64_t last) {
    if (time > MaxTimestamp || last == 0) return DropReason::OutOfRange;
    if (settings.TimeSetting == TimeInterval) return DropReason::NoStep;
    return time == last ? DropReason::Repeats : DropReason::Falls;
}

}  // namespace

template <class Unit>
RowTimestamp MakeRowTimestamp(const CCsvImportSettings& settings, std::int64_t row, const Unit* text,
                              IRelativeTimeContext& context, RunTimes& times) {
    RowTimestamp result;
    std::int64_t time = settings.TimeSetting == TimeInterval ? IntervalTime(settings, row, times)
                                                             : TextTime(settings, row, text, times);
    if (time == NoTimestamp) {
        if (settings.TimeSetting == TimeInterval) result.Reason = DropReason::NoStep;
        return result;
    }
    result.HasTime = true;
    if (settings.DateSetting == DateNone) {
        time = WrappingAdd(time, BaseTime(context, times));
    } else {
        result.Before1990 = time < AbsoluteTimeLimit;
    }
    result.Time = time;
    result.Accepted = time > times.LastTime && time <= MaxTimestamp;
    if (result.Accepted) {
        times.LastTime = time;
    } else {
        result.Reason = ReasonOf(settings, time, times.LastTime);
    }
    return result;
}

template RowTimestamp MakeRowTimestamp(const CCsvImportSettings&, std::int64_t, const char*,
                                       IRelativeTimeContext&, RunTimes&);
template RowTimestamp MakeRowTimestamp(const CCsvImportSettings&, std::int64_t, const char16_t*,
                                       IRelativeTimeContext&, RunTimes&);
