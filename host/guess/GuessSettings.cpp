#include "host/guess/GuessParts.h"

#include <chrono>
#include <filesystem>

#include "contract/TimeStamp.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "settings/IntervalUnits.h"

namespace kelvarin::guess {

namespace {

constexpr std::int64_t Second = IntervalUnits[2].Nanoseconds;
constexpr std::int64_t DaySeconds = 86'400;

// The day on which the first row was written, if the file was last changed with its last row.
std::int64_t FirstDayOf(const std::u16string& path, std::size_t rollOvers) {
    std::error_code error;
    const auto changed = std::filesystem::last_write_time(PathForStream(path), error);
    const auto now = std::chrono::system_clock::now();
    const auto age = error ? decltype(changed)::duration::zero() : decltype(changed)::clock::now() - changed;
    const auto moment = std::chrono::duration_cast<std::chrono::seconds>(now.time_since_epoch()) -
                        std::chrono::duration_cast<std::chrono::seconds>(age);
    return moment.count() - static_cast<std::int64_t>(rollOvers) * DaySeconds;
}

// The later of two times is the one that a format reads; the rows belong to the earlier.
void AddRange(SettingList& settings, std::int64_t length) {
    const auto seconds = static_cast<int>(length / Second);
    const CTimeStamp amount(2000, 1, 1, seconds / 3600, seconds / 60 % 60, seconds % 60, 0);
    const std::string time = std::to_string(amount.GetCTime().Seconds);
    settings.insert(settings.end(), {{"Adjust", "1"}, {"AdjustMode", "2"}, {"AdjustTime", time}});
}

}  // namespace

bool RunsOverMidnight(const TimeCandidate& candidate) {
    return candidate.Kind == TimeKind::TimeOfDay && candidate.Reading.RollOvers != 0;
}

SettingList SettingsFor(const TimeCandidate& candidate, const std::u16string& path) {
    const bool fixedDate = candidate.Kind == TimeKind::Epoch || RunsOverMidnight(candidate);
    SettingList settings = {{"DateSetting", candidate.HasDate() ? "0" : fixedDate ? "1" : "2"}};
    if (candidate.HasDate()) settings.emplace_back("DateColumn", std::to_string(candidate.DateColumn));
    if (candidate.Kind == TimeKind::Epoch) settings.emplace_back("StartDate", "0");
    if (RunsOverMidnight(candidate))
        settings.emplace_back("StartDate", std::to_string(FirstDayOf(path, candidate.Reading.RollOvers)));
    settings.emplace_back("TimeSetting", "0");
    settings.emplace_back("TimeColumn", std::to_string(candidate.TimeColumn));
    if (candidate.RangeLength) AddRange(settings, *candidate.RangeLength);
    settings.emplace_back("TimestampFormat", Utf16ToUtf8(candidate.Shape.Format));
    return settings;
}

}  // namespace kelvarin::guess
