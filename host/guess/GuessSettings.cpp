// The settings of a guess. Its format is one of the standard formats of the module where one will do.
#include "host/guess/GuessParts.h"

#include <chrono>
#include <filesystem>

#include "contract/TimeStamp.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "resources/ResourceIds.h"
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

TextList Items(const ModuleLoader& module, unsigned id) {
    TextList items;
    for (const std::u16string& item : module.ResourceItems(id)) items.emplace_back(TrimWhiteSpace(item));
    return items;
}

TextList StandardFormats(const ModuleLoader& module, const TableTrial& trial,
                         const TimeCandidate& candidate) {
    TextList times = Items(module, IdTimeFormats);
    if (!candidate.HasDate()) {
        const TextList elapsed = Items(module, IdElapsedTimeFormats);
        times.insert(times.end(), elapsed.begin(), elapsed.end());
        return times;
    }
    const TextList dates = Items(module, IdDateFormats);
    if (candidate.Kind == TimeKind::Date) return dates;
    const bool sameColumn = candidate.DateColumn == candidate.TimeColumn;
    const std::u16string& separator = trial.Sample().Separator;
    const bool isBlank = sameColumn || IsWhiteSpace(separator[0]);
    const std::u16string joint = isBlank ? u" " : separator + u" ";
    TextList formats;
    for (const std::u16string& date : dates) {
        for (const std::u16string& time : times) {
            formats.push_back(candidate.DateColumn <= candidate.TimeColumn ? date + joint + time
                                                                           : time + joint + date);
        }
    }
    return formats;
}
}  // namespace

void UseStandardFormat(const ModuleLoader& module, const TableTrial& trial, TimeCandidate& candidate) {
    const bool hasDate = candidate.HasDate();
    const auto time = static_cast<std::size_t>(candidate.TimeColumn) - 1;
    const TextList texts =
        trial.Texts(time, hasDate ? static_cast<std::size_t>(candidate.DateColumn) - 1 : time);
    for (const std::u16string& format : StandardFormats(module, trial, candidate)) {
        if (!trial.FitsFirstRows(format, texts, hasDate)) continue;
        if (trial.Read(format, texts, hasDate).Times != candidate.Reading.Times) continue;
        candidate.Shape.Format = format;
        return;
    }
}

SettingList SettingsFor(const TimeCandidate& candidate, const std::u16string& path) {
    const bool fixedDate = candidate.Kind == TimeKind::Epoch || candidate.RunsOverMidnight();
    SettingList settings = {{"DateSetting", candidate.HasDate() ? "0" : fixedDate ? "1" : "2"}};
    if (candidate.HasDate()) settings.emplace_back("DateColumn", std::to_string(candidate.DateColumn));
    if (candidate.Kind == TimeKind::Epoch) settings.emplace_back("StartDate", "0");
    if (candidate.RunsOverMidnight())
        settings.emplace_back("StartDate", std::to_string(FirstDayOf(path, candidate.Reading.RollOvers)));
    settings.emplace_back("TimeSetting", "0");
    settings.emplace_back("TimeColumn", std::to_string(candidate.TimeColumn));
    if (candidate.RangeLength) {
        // The later of two times is the one that a format reads; the rows belong to the earlier.
        const auto seconds = static_cast<int>(*candidate.RangeLength / Second);
        const CTimeStamp amount(2000, 1, 1, seconds / 3600, seconds / 60 % 60, seconds % 60, 0);
        const std::string time = std::to_string(amount.GetCTime().Seconds);
        settings.insert(settings.end(), {{"Adjust", "1"}, {"AdjustMode", "2"}, {"AdjustTime", time}});
    }
    settings.emplace_back("TimestampFormat", Utf16ToUtf8(candidate.Shape.Format));
    return settings;
}
}  // namespace kelvarin::guess
