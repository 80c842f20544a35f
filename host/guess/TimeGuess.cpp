// All candidates are read on the same rows. The one that an import would take most rows of wins; a date is
// worth more than a time without, and a named unit more than none.
#include <algorithm>
#include <set>

#include "host/guess/GuessParts.h"
#include "host/language/Phrase.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "settings/IntervalUnits.h"

namespace kelvarin::guess {
namespace {
// With fewer rows a column's times are no axis, and an interval serves better. Days beside hourly rows keep
// one row in 24 and are worth a proposal with its objection; a least part of 0.1 loses them.
constexpr double LeastRisingPart = 0.02;

// Scores so close are equal, and the column further left is taken, as people do. At 0.05 times of day tie
// with dates, and minutes with seconds. At 0 the files tried give the same, but one lost row would decide.
constexpr double Better = 0.02;

// From here on another proposal is worth a line: elapsed times with a unit and a name beside a full date.
constexpr double NearlyAsGood = 0.8;

bool HasFractions(const TimeReading& reading) {
    return std::any_of(reading.Times.begin(), reading.Times.end(),
                       [](std::int64_t time) { return time != -1 && time % Second != 0; });
}

// What a kind of time is worth where several columns keep as many rows. Only the order and the distances
// count. Each figure was tried at those beside it, on some 45 files of loggers, meters, battery testers and
// buses, and on made ones:
//
// Date and time: the complete axis. In doubt about day and month it loses 0.1 and so comes below the time of
// day with fractions, above the one without. With no loss, or the fractions at 0.85, a battery tester's
// doubtful date wins over its exact test time; with a loss of 0.2 a clock in whole seconds wins over the
// date.
//
// Seconds since 1970: as complete, so within Better of 1; anything from 0.9 to 1 gave the same.
//
// Date alone: at 1 it wins over dates with times if it is further left.
//
// Time of day: with fractions within Better of a date alone; without, at 0.93, it wins over doubtful dates.
//
// Elapsed: a number may be anything, so below all texts; at 1 the seconds of a step win over a date. A name
// that speaks of time is worth more than a unit alone, which may be another word: in "min. V" a minimum.
// With the name at 0.6 or the unit at 0.8 the record number below that wins over the test time.
double WeightOf(const TimeCandidate& candidate) {
    const double doubt = candidate.Proof == OrderProof::Missing ? 0.1 : 0;
    switch (candidate.Kind) {
        case TimeKind::DateAndTime:
            return 1.0 - doubt;
        case TimeKind::Epoch:
            return 0.98;
        case TimeKind::Date:
            return 0.93 - doubt;
        case TimeKind::TimeOfDay:
            return HasFractions(candidate.Reading) ? 0.95 : 0.85;
        default:
            if (candidate.Hint.Unit.empty()) return candidate.Hint.IsTime ? 0.75 : 0.6;
            return candidate.Hint.IsTime ? 0.8 : 0.7;
    }
}

// Rows in falling order count half: an import takes one of them, but the times are found.
double ScoreOf(const TimeCandidate& candidate) {
    const TimeReading& reading = candidate.Reading;
    double part = reading.RisingPart();
    if (reading.IsDescending()) {
        part = std::max(part,
                        static_cast<double>(reading.Falling) / static_cast<double>(reading.Times.size()) / 2);
    }
    return part < LeastRisingPart ? 0 : part * WeightOf(candidate);
}

// The best one, the leftmost of those that are as good; it is taken out of the list.
std::optional<TimeCandidate> TakeBest(std::vector<TimeCandidate>& candidates, double leastScore) {
    auto best = candidates.end();
    for (auto candidate = candidates.begin(); candidate != candidates.end(); ++candidate) {
        const double score = ScoreOf(*candidate);
        if (score <= leastScore) continue;
        if (best == candidates.end() || score > ScoreOf(*best) + Better) best = candidate;
    }
    if (best == candidates.end()) return std::nullopt;
    TimeCandidate taken = std::move(*best);
    candidates.erase(best);
    return taken;
}

std::vector<TimeCandidate> FindCandidates(const TableTrial& trial) {
    std::vector<TimeCandidate> candidates = FindDateCandidates(trial);
    // The time of a date's neighbour column belongs to that date.
    std::set<int> taken;
    for (const TimeCandidate& date : candidates) taken.insert(date.HasDate() ? date.TimeColumn : 0);
    std::erase_if(candidates, [&](const TimeCandidate& time) {
        return time.Kind == TimeKind::TimeOfDay && taken.contains(time.TimeColumn);
    });
    for (TimeCandidate& candidate : FindNumberCandidates(trial)) candidates.push_back(std::move(candidate));
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const auto& one, const auto& other) { return one.TimeColumn < other.TimeColumn; });
    return candidates;
}
}  // namespace

TimeGuess GuessTime(const ModuleLoader& module, const std::u16string& path) {
    TimeGuess guess;
    TableSample table;
    const auto filter = module.MakeFilter(path);
    ITableReader* const reader = filter->Find<ITableReader>();
    ITimeReader* const times = filter->Find<ITimeReader>();
    if (reader == nullptr || times == nullptr) {
        guess.Failure = Phrase("this module shows no rows");
        return guess;
    }
    if (!reader->SampleTable(nullptr, table, guess.Failure)) return guess;
    guess.Rows = table.Rows.size();
    if (table.Rows.empty()) {
        guess.Failure = Phrase("the table has no rows");
        return guess;
    }
    const TableTrial trial(*times, table);
    std::vector<TimeCandidate> candidates = FindCandidates(trial);
    std::optional<TimeCandidate> best = TakeBest(candidates, 0);
    // Texts that are times count more than numbers of which nothing tells what they are.
    const bool isSpoken =
        best && (best->Kind != TimeKind::Elapsed || best->Hint.IsTime || !best->Hint.Unit.empty());
    if (!isSpoken && GuessFromUnreadableTimes(trial, guess)) return guess;
    if (!best) {
        GuessAnyInterval(trial, guess);
        return guess;
    }
    UseStandardFormat(module, trial, *best);
    guess.Read = best->Reading.Read;
    guess.Rising = best->Reading.Rising;
    guess.Settings = SettingsFor(*best, path);
    guess.Basis = BasisOf(*best);
    AddObjections(*best, guess);
    if (std::optional<TimeCandidate> other = TakeBest(candidates, ScoreOf(*best) * NearlyAsGood)) {
        UseStandardFormat(module, trial, *other);
        guess.OtherBasis = BasisOf(*other);
        guess.OtherSettings = SettingsFor(*other, path);
    }
    return guess;
}

GuessLayer::GuessLayer(const ModuleLoader& module, const std::u16string& path, const GuessOptions& options,
                       const std::vector<ParsedSetting>& chosen) {
    if (!options.GuessTime) return;
    Made = GuessTime(module, path);
    if (!Made->Failure.empty()) return;
    const std::u16string sidecar = path + u".info";
    const int errors = sidecar::CheckSidecar(module, sidecar).Errors;
    if (errors == 0) {
        Made->Objections.push_back(
            Phrase("it is not used: {} is in force", Utf16ToUtf8(PathStripPath(sidecar))));
    }
    for (const auto& guessed : Made->Settings) {
        const bool isChosen = std::any_of(chosen.begin(), chosen.end(), [&](const ParsedSetting& setting) {
            return Utf16ToUtf8(setting.Key) == guessed.first;
        });
        if (isChosen) {
            Made->Objections.push_back(Phrase("{} stays as it was set", guessed.first));
        } else {
            Layer.Set(guessed.first, guessed.second);
        }
    }
    if (!options.Save) return;
    Made->SaveFailure = sidecar::SaveSidecar(module, path);
    if (Made->SaveFailure.empty()) Made->Saved = Utf16ToUtf8(sidecar);
    Made->IsSaveLost = Made->Saved.empty() && errors < 0;
}

Remedy AdviseTimestamp(const ModuleLoader& module, const std::u16string& path, const Reading& reading) {
    const std::string why =
        reading.TimestampFormat.empty()
            ? Phrase("no row has a timestamp, since no timestamp format is set")
            : Phrase("no row fits the timestamp format '{}'", Utf16ToUtf8(reading.TimestampFormat));
    const TimeGuess guess = GuessTime(module, path);
    if (!guess.Failure.empty()) return {why, {}};
    const std::string what = guess.IsFixedInterval
                                 ? Phrase(" and no format fits; {}", guess.Basis)
                                 : Phrase("; {} ({})", guess.Basis, CertaintyInWords(guess.Sureness));
    return {why + what, guess.Settings};
}
}  // namespace kelvarin::guess
