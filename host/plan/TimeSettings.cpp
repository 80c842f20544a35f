// A format is tried on all rows of the sample, and taken only if the module reads every time as the plan
// does: what the module makes of a text is the module's to say.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>

#include "contract/GuidedReading.h"
#include "contract/TimeReader.h"
#include "host/plan/CopyTime.h"
#include "host/plan/Durations.h"
#include "host/plan/FormatShapes.h"
#include "host/plan/PlanSettings.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "settings/IntervalUnits.h"
#include "settings/SettingsTable.h"

namespace kelvarin::plan {
namespace {
using Texts = std::vector<std::u16string>;
using Times = std::vector<std::int64_t>;

std::string Text(std::int64_t number) {
    return std::to_string(number);
}

// The texts of the rows that have a time, as the module would join them, and the times of the plan.
struct TimedTexts {
    Texts Joined;
    std::vector<Texts> Cells;  // by column of the recipe, in the order of the table
    Times Expected;            // ns as TimeRecipe::TimeOf gives them
};

TimedTexts TextsOf(const ReadingPlan& plan, const std::vector<std::size_t>& columns) {
    TimedTexts texts;
    texts.Cells.resize(columns.size());
    MinuteMemo memo;
    for (const auto& row : plan.Rows.Cells) {
        const std::optional<std::int64_t> time = memo.TimeOf(plan.Times->Recipe, row);
        if (!time) continue;
        std::u16string joined;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (i != 0) joined += plan.How.Separator;
            joined += row[columns[i]];
            texts.Cells[i].emplace_back(row[columns[i]]);
        }
        texts.Joined.push_back(std::move(joined));
        texts.Expected.push_back(*time);
    }
    return texts;
}

std::u16string FieldOf(char16_t letter, std::size_t length) {
    return std::u16string(length, letter);
}

// The format of the times that a copy has.
std::u16string WrittenFormat(const std::u16string& letters) {
    return FieldOf(letters[0], 4) + u"-" + FieldOf(letters[1], 2) + u"-" + FieldOf(letters[2], 2) + u" " +
           FieldOf(letters[3], 2) + u":" + FieldOf(letters[4], 2) + u":" + FieldOf(letters[5], 2) + u".[ns]";
}

// The letters of English formats, among which is no mark that times have: "2024-03-01T12:00:00Z".
constexpr const char16_t* LettersWithoutMarks = u"YMDhms";

// What has to be added to each time that was read; nothing if that differs or is no part of a day in seconds.
std::optional<std::int64_t> ShiftOf(const Times& expected, const Times& read) {
    const std::int64_t shift = WrappingSubtract(expected.front(), read.front());
    if (shift % Second != 0 || shift <= -DayLength || shift >= DayLength) return std::nullopt;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (read[i] == -1 || WrappingSubtract(expected[i], read[i]) != shift) return std::nullopt;
    }
    return shift;
}

// The texts among which one has the look of all: the first, the longest and the last.
Texts Examples(const Texts& texts) {
    const auto longest = std::max_element(texts.begin(), texts.end(), [](const auto& one, const auto& other) {
        return one.size() < other.size();
    });
    return {texts.front(), *longest, texts.back()};
}

// The field that reads so many digits behind a mark as a whole number. As a fraction the module adds them up
// digit by digit and cuts off what the sum lacks: from four digits on some times are a nanosecond short.
std::u16string_view WholeFraction(std::size_t digits) {
    if (digits == 6) return u"[µs]";
    return digits == 9 ? u"[ns]" : u"";
}

// Digits from `at` on.
std::size_t DigitsFrom(std::u16string_view text, std::size_t at) {
    return std::min(text.find_first_not_of(u"0123456789", at), text.size()) - at;
}

// Adds a format for the text, after the one that reads the digits of its fraction exactly.
void AddWithFraction(const std::u16string& format, const std::u16string& text, Texts& formats) {
    const std::size_t zeros = format.find(u"000");
    if (zeros != format.npos && zeros > 0) {
        const std::size_t mark = text.rfind(format[zeros - 1]);
        const std::u16string_view whole = mark == text.npos ? u"" : WholeFraction(DigitsFrom(text, mark + 1));
        if (!whole.empty())
            formats.push_back(
                std::u16string(format).replace(zeros, std::u16string_view(u"000").size(), whole));
    }
    formats.push_back(format);
}

// Formats that a text could have, also with a fraction that it lacks itself.
Texts FormatsOf(const std::u16string& text, const std::u16string& letters) {
    Texts formats;
    for (const std::u16string& format : FormatsLike(text, letters)) {
        AddWithFraction(format, text, formats);
        if (format.back() != letters[5]) continue;
        for (const char16_t* const fraction : {u".000", u",000"}) formats.push_back(format + fraction);
    }
    return formats;
}

// The formats for the joined texts.
Texts JoinedFormats(const TimedTexts& texts, char16_t separator, const std::u16string& letters) {
    Texts joined;
    for (std::size_t i = 0; i < texts.Cells.size(); ++i) {
        Texts own;
        for (const std::u16string& example : Examples(texts.Cells[i])) {
            for (std::u16string& format : FormatsOf(example, letters)) {
                if (std::find(own.begin(), own.end(), format) == own.end()) own.push_back(std::move(format));
            }
        }
        if (i == 0) {
            joined = std::move(own);
            continue;
        }
        const std::u16string joint = IsWhiteSpace(separator) ? u" " : std::u16string(1, separator);
        Texts longer;
        for (const std::u16string& left : joined) {
            for (const std::u16string& right : own) longer.push_back(left + joint + right);
        }
        joined = std::move(longer);
    }
    return joined;
}

// The day on which the first row was written, if the file was last changed with its last row.
std::int64_t FirstDayOf(const std::u16string& path, std::int64_t span) {
    std::error_code error;
    const auto changed = std::filesystem::last_write_time(PathForStream(path), error);
    const auto moment = error ? std::chrono::system_clock::now()
                              : std::chrono::time_point_cast<std::chrono::system_clock::duration>(
                                    std::chrono::file_clock::to_sys(changed));
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(moment.time_since_epoch());
    return seconds.count() - span / Second;
}

SettingList ColumnSettings(int dateSetting, std::size_t date, std::size_t time,
                           const std::u16string& format) {
    SettingList settings = {{"DateSetting", std::to_string(dateSetting)}};
    if (dateSetting == DateFromColumn) settings.emplace_back("DateColumn", std::to_string(date + 1));
    settings.emplace_back("TimeSetting", "0");
    settings.emplace_back("TimeColumn", std::to_string(time + 1));
    settings.emplace_back("TimestampFormat", Utf16ToUtf8(format));
    return settings;
}

// The times as a copy has them, read by the module: where the plan has local times it means these.
Times InLocalTime(ITimeReader& reader, const Times& times) {
    TimeWriter writer(CopyTimes::Local);
    Texts written;
    for (const std::int64_t time : times) {
        std::string text;
        writer.Append(time, text);
        written.push_back(Utf8ToUtf16(text));
    }
    return reader.ReadTimes(WrittenFormat(reader.FormatLetters()), written, true);
}

// True if no clock is changed here from a day before the first time until a day after the last one.
bool IsClockSteady(ITimeReader& reader, const TimeTrial& trial) {
    constexpr std::int64_t MostDays = 40'000;
    const std::int64_t first = trial.First / DayLength - 1;
    const std::int64_t count = trial.Last / DayLength + 2 - first;
    if (count > MostDays) return false;
    Times midnights;
    for (std::int64_t day = first; day <= first + count; ++day) midnights.push_back(day * DayLength);
    const Times read = InLocalTime(reader, midnights);
    return std::adjacent_find(read.begin(), read.end(), [](std::int64_t one, std::int64_t next) {
               return next - one != DayLength;
           }) == read.end();
}

// A format that reads all texts.
struct FittingFormat {
    std::u16string Format;
    std::int64_t Shift = 0;  // ns to be added to each time
};

std::optional<FittingFormat> FindFormat(ITimeReader& reader, const ReadingPlan& plan,
                                        const TimedTexts& texts) {
    const TimeRecipe& recipe = plan.Times->Recipe;
    const bool isLocal = recipe.IsAbsolute && !recipe.AppliesZone;
    const Times expected = isLocal ? InLocalTime(reader, texts.Expected) : texts.Expected;
    for (std::u16string& format : JoinedFormats(texts, plan.How.Separator, reader.FormatLetters())) {
        const Times read = reader.ReadTimes(format, texts.Joined, recipe.IsAbsolute);
        const std::optional<std::int64_t> shift = ShiftOf(expected, read);
        if (!shift || (*shift != 0 && !recipe.AppliesZone)) continue;
        if (recipe.AppliesZone && !IsClockSteady(reader, plan.Times->Trial)) return std::nullopt;
        return FittingFormat{std::move(format), *shift};
    }
    return std::nullopt;
}

void AddShift(std::int64_t shift, SettingList& settings) {
    if (shift == 0) return;
    settings.emplace_back("Adjust", "1");
    settings.emplace_back("AdjustMode", Text(shift > 0 ? AdjustForward : AdjustBack));
    settings.emplace_back("AdjustTime", AdjustTimeFor(std::abs(shift)));
}

std::optional<SettingList> TextSettings(ITimeReader& reader, const ReadingPlan& plan,
                                        const std::u16string& path) {
    const TimeRecipe& recipe = plan.Times->Recipe;
    // No format carries a date or a year on.
    const bool isCarried =
        recipe.CarriesDate || recipe.HasDateLines || (recipe.RollsOver && recipe.Style.Year != 0);
    if (isCarried || recipe.Columns.size() > 2) return std::nullopt;
    std::vector<std::size_t> columns = recipe.Columns;
    std::sort(columns.begin(), columns.end());
    const TimedTexts texts = TextsOf(plan, columns);
    if (texts.Joined.empty()) return std::nullopt;
    const std::optional<FittingFormat> found = FindFormat(reader, plan, texts);
    if (!found) return std::nullopt;
    if (recipe.IsAbsolute) {
        SettingList settings =
            ColumnSettings(DateFromColumn, recipe.Columns.front(), recipe.Columns.back(), found->Format);
        AddShift(found->Shift, settings);
        return settings;
    }
    if (columns.size() != 1) return std::nullopt;
    const bool runsOver = recipe.RollsOver && plan.Times->Trial.Last > DayLength;
    SettingList settings = ColumnSettings(runsOver ? DateFixed : DateNone, 0, columns[0], found->Format);
    if (runsOver) {
        const std::int64_t span = plan.Times->Trial.Last - plan.Times->Trial.First;
        settings.emplace_back("StartDate", Text(FirstDayOf(path, span)));
    }
    return settings;
}

// By the letters of the language in force, else by those that leave the marks of times alone.
std::optional<TimeSettings> TextSettings(const CImportFilter& filter, ITimeReader& reader,
                                         const ReadingPlan& plan, const std::u16string& path) {
    std::optional<SettingList> settings = TextSettings(reader, plan, path);
    if (settings) return TimeSettings{*std::move(settings), {}};
    IGuidedReading* const guided = filter.Find<IGuidedReading>();
    if (guided == nullptr) return std::nullopt;
    guided->ReadFormatsBy(LettersWithoutMarks);
    settings = TextSettings(reader, plan, path);
    if (!settings) return std::nullopt;
    return TimeSettings{*std::move(settings), LettersWithoutMarks};
}

// "[s].000" for numbers of seconds with a point, and before it "ss.[µs]" where the text has six digits behind
// it.
Texts NumberFormats(const TimeRecipe& recipe, char16_t mark, bool hasPlus, const std::u16string& text,
                    const std::u16string& letters) {
    Texts formats;
    const std::u16string sign = hasPlus ? u"+" : u"";
    for (const IntervalUnit& named : IntervalUnits) {
        if (named.Nanoseconds != recipe.Unit) continue;
        const bool isMinutes = named.Name == std::u16string_view(u"min");
        const std::u16string field =
            isMinutes ? FieldOf(letters[4], 2) : u"[" + std::u16string(named.Name) + u"]";
        if (mark == u'\0') return {sign + field};
        const std::size_t digits = DigitsFrom(text, std::min(text.find(mark), text.size() - 1) + 1);
        const std::u16string_view whole = recipe.Unit == Second ? WholeFraction(digits) : u"";
        if (!whole.empty()) formats.push_back(sign + FieldOf(letters[5], 2) + mark + std::u16string(whole));
        formats.push_back(sign + field + mark + u"000");
    }
    return formats;
}

std::optional<SettingList> NumberSettings(ITimeReader& reader, const ReadingPlan& plan) {
    const TimeRecipe& recipe = plan.Times->Recipe;
    if (recipe.Offset != 0 || recipe.Epoch != 0 || recipe.IsAbsolute != recipe.IsUtc) return std::nullopt;
    const TimedTexts texts = TextsOf(plan, {recipe.Columns.front()});
    if (texts.Joined.empty()) return std::nullopt;
    const auto has = [&](char16_t sign) {
        return std::any_of(texts.Joined.begin(), texts.Joined.end(), [sign](const std::u16string& text) {
            return text.find(sign) != std::u16string::npos;
        });
    };
    const char16_t mark = has(recipe.Mark) ? recipe.Mark : u'\0';
    for (const std::u16string& format :
         NumberFormats(recipe, mark, has(u'+'), texts.Joined.front(), reader.FormatLetters())) {
        if (ShiftOf(texts.Expected, reader.ReadTimes(format, texts.Joined, false)) != 0) continue;
        SettingList settings =
            ColumnSettings(recipe.IsUtc ? DateFixed : DateNone, 0, recipe.Columns.front(), format);
        if (recipe.IsUtc) settings.emplace_back("StartDate", "0");
        return settings;
    }
    return std::nullopt;
}

// Only where each line is a row: the module counts all but the blank ones.
std::optional<SettingList> IntervalSettings(const ReadingPlan& plan) {
    const TimeRecipe& recipe = plan.Times->Recipe;
    if (recipe.IsAbsolute || plan.Times->Trial.Read != plan.Rows.Cells.size()) return std::nullopt;
    for (int i = 0; i < IntervalUnitCount; ++i) {
        if (recipe.Unit % IntervalUnits[i].Nanoseconds != 0) continue;
        return SettingList{{"DateSetting", std::to_string(DateNone)},
                           {"TimeSetting", std::to_string(TimeInterval)},
                           {"IntervalValue", Text(recipe.Unit / IntervalUnits[i].Nanoseconds)},
                           {"IntervalUnit", std::to_string(i)}};
    }
    return std::nullopt;
}
}  // namespace

std::optional<TimeSettings> TimeSettingsOf(const CImportFilter& filter, const ReadingPlan& plan,
                                           const std::u16string& path) {
    ITimeReader* const reader = filter.Find<ITimeReader>();
    if (!plan.Times || plan.Times->Recipe.EndsDays || plan.HaveOthersTimes() || reader == nullptr ||
        plan.Times->Trial.Falling != (plan.EndsInTotal ? 1u : 0u))
        return std::nullopt;
    if (plan.Times->Recipe.Kind == TimeKind::Text) return TextSettings(filter, *reader, plan, path);
    std::optional<SettingList> settings;
    if (plan.Times->Recipe.Kind == TimeKind::Number) settings = NumberSettings(*reader, plan);
    if (plan.Times->Recipe.Kind == TimeKind::Interval) settings = IntervalSettings(plan);
    if (!settings) return std::nullopt;
    return TimeSettings{*std::move(settings), {}};
}

SettingList CopyTimeSettings(const CImportFilter& filter, CopyTimes times, std::size_t column) {
    const std::u16string letters = filter.Find<ITimeReader>()->FormatLetters();
    if (times == CopyTimes::Local)
        return ColumnSettings(DateFromColumn, column, column, WrittenFormat(letters));
    SettingList settings = ColumnSettings(times == CopyTimes::Moments ? DateFixed : DateNone, 0, column,
                                          FieldOf(letters[5], 2) + u".[ns]");
    if (times == CopyTimes::Moments) settings.emplace_back("StartDate", "0");
    return settings;
}
}  // namespace kelvarin::plan
