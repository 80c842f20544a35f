// What a guess makes of its best candidate: the settings, with a standard format of the module where one will
// do, and in words what was found, how sure it is and what speaks against it.
#include "host/guess/GuessParts.h"

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "contract/TimeStamp.h"
#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "resources/ResourceIds.h"
#include "settings/IntervalUnits.h"

namespace kelvarin::guess {
namespace {
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
    const std::u16string& separator = trial.Sample().Separator;
    const bool isBlank = candidate.DateColumn == candidate.TimeColumn || IsWhiteSpace(separator[0]);
    const std::u16string joint = isBlank ? u" " : separator + u" ";
    const bool isDateFirst = candidate.DateColumn <= candidate.TimeColumn;
    TextList formats;
    for (const std::u16string& date : dates) {
        for (const std::u16string& time : times)
            formats.push_back(isDateFirst ? date + joint + time : time + joint + date);
    }
    return formats;
}

void Add(TimeGuess& guess, Certainty most, std::string text) {
    guess.Sureness = std::max(guess.Sureness, most);
    guess.Objections.push_back(std::move(text));
}

// "lines 120-131 and 140", or how many rows if they lie too far down to be counted.
std::string MisfitsInWords(const TimeReading& reading) {
    std::string lines;
    for (const MisfitRows& misfit : reading.Misfits) {
        if (misfit.FirstLine == 0) break;
        lines += (lines.empty() ? "" : ", ") + std::to_string(misfit.FirstLine);
        if (misfit.LastLine > misfit.FirstLine) lines += "-" + std::to_string(misfit.LastLine);
    }
    const std::size_t count = reading.Times.size() - reading.Read;
    if (lines.empty()) return Phrase("{} of the {} rows looked at", count, reading.Times.size());
    if (reading.MisfitRuns > reading.Misfits.size()) lines += ", ...";
    return count == 1 ? Phrase("line {}", lines) : Phrase("lines {}", lines);
}

void AddAboutRows(const TimeReading& reading, TimeGuess& guess) {
    const std::size_t rows = reading.Times.size();
    // With three rows both orders of day and month, and any unit, fit too easily.
    if (rows < 4) Add(guess, Certainty::Likely, Phrase("only {} rows to judge by", rows));
    // A tenth of the rows may be notes, totals and repeated headers in a format that is certain all the same.
    if (reading.Read < rows) {
        Add(guess, reading.Read * 10 < rows * 9 ? Certainty::Likely : guess.Sureness,
            Phrase("the format does not fit {}", MisfitsInWords(reading)));
    }
    const std::size_t lost = reading.Read - reading.Rising;
    if (reading.IsDescending()) {
        Add(guess, Certainty::Uncertain,
            Phrase("the newest row stands first: only the first row is taken, unless the file is turned "
                   "around"));
    } else if (lost != 0) {
        // One row in fifty is an hour repeated when clocks change, or a restart; half of the rows is a column
        // that is no time axis, or lacks the part of the time that tells rows apart.
        const bool isMost = lost * 2 > reading.Read;
        const bool isMany = lost * 50 > reading.Read;
        Add(guess,
            isMost   ? Certainty::Uncertain
            : isMany ? Certainty::Likely
                     : guess.Sureness,
            reading.Repeats * 2 > lost
                ? Phrase("times repeat: {} of the {} rows looked at are lost", lost, rows)
                : Phrase("times fall: {} of the {} rows looked at are lost", lost, rows));
    }
}

void AddAboutText(const TimeCandidate& candidate, TimeGuess& guess) {
    const FormatShape& shape = candidate.Shape;
    if (candidate.Proof == OrderProof::Missing)
        Add(guess, Certainty::Uncertain,
            Phrase("day and month could be swapped: no row tells which comes first"));
    if (candidate.Proof == OrderProof::BySteps)
        Add(guess, Certainty::Likely,
            shape.Order == DateOrder::DayFirst
                ? Phrase("that the day comes before the month follows from the distances of the rows alone")
                : Phrase("that the month comes before the day follows from the distances of the rows alone"));
    if (shape.IsDigitsOnly) Add(guess, Certainty::Likely, Phrase("plain numbers may mean something else"));
    if (!shape.Zone.empty())
        Add(guess, guess.Sureness,
            Phrase("the zone {} is not applied: the times count as local ones of this computer",
                   Utf16ToUtf8(shape.Zone)));
    if (shape.ZoneShiftsFraction)
        Add(guess, Certainty::Likely,
            Phrase("the zone's digits add up to a quarter of a second to every time"));
    if (candidate.RangeLength) {
        Add(guess, guess.Sureness,
            Phrase("the cells hold two times; the later is read and set back to the earlier"));
    } else if (!shape.RangeMark.empty()) {
        Add(guess, Certainty::Likely, Phrase("the cells hold two times; the later is taken"));
    }
}

void AddAboutKind(const TimeCandidate& candidate, TimeGuess& guess) {
    constexpr std::int64_t FirstGoodTime = 631'148'400'000'000'000;  // 1990 at UTC+1
    if (candidate.Kind == TimeKind::Elapsed && candidate.Hint.Unit.empty()) {
        const bool isUsual = candidate.Unit == u"s" && candidate.Hint.IsTime;
        Add(guess, isUsual ? Certainty::Likely : Certainty::Uncertain,
            Phrase("no unit is named; {} makes usual steps", Utf16ToUtf8(candidate.Unit)));
    } else if (candidate.Kind != TimeKind::TimeOfDay && !candidate.HasDate() && !candidate.Hint.IsTime) {
        Add(guess, Certainty::Likely, Phrase("the column's name does not speak of time"));
    }
    if (candidate.RunsOverMidnight())
        Add(guess, Certainty::Likely,
            Phrase("the rows have no date; the start is that of the file's last change"));
    if (candidate.HasDate() && candidate.Reading.First < FirstGoodTime)
        Add(guess, guess.Sureness, Phrase("there are times before 1990, which the host can't process"));
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
        const std::string amount = AdjustTimeFor(*candidate.RangeLength);
        settings.insert(settings.end(), {{"Adjust", "1"}, {"AdjustMode", "2"}, {"AdjustTime", amount}});
    }
    settings.emplace_back("TimestampFormat", Utf16ToUtf8(candidate.Shape.Format));
    return settings;
}

std::string BasisOf(const TimeCandidate& candidate) {
    switch (candidate.Kind) {
        case TimeKind::DateAndTime:
            if (candidate.DateColumn == candidate.TimeColumn)
                return Phrase("date and time in column {}", candidate.TimeColumn);
            return Phrase("date in column {}, time in column {}", candidate.DateColumn, candidate.TimeColumn);
        case TimeKind::Date:
            return Phrase("date in column {}", candidate.TimeColumn);
        case TimeKind::Epoch:
            return Phrase("{} since 1970 in column {}", Utf16ToUtf8(candidate.Unit), candidate.TimeColumn);
        case TimeKind::TimeOfDay:
            return Phrase("time without a date in column {}", candidate.TimeColumn);
        default:
            return Phrase("elapsed {} in column {}", Utf16ToUtf8(candidate.Unit), candidate.TimeColumn);
    }
}

void AddObjections(const TimeCandidate& candidate, TimeGuess& guess) {
    AddAboutRows(candidate.Reading, guess);
    AddAboutText(candidate, guess);
    AddAboutKind(candidate, guess);
}
}  // namespace kelvarin::guess
