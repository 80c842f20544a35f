// All candidates are read on the same rows. The one that an import would take most rows of wins; a date is
// worth more than a time without, and a named unit more than none.
#include <algorithm>
#include <optional>

#include "app/guess/DateCandidates.h"
#include "app/guess/GuessDoubts.h"
#include "app/guess/GuessSettings.h"
#include "app/guess/IntervalGuess.h"
#include "app/guess/NumberCandidates.h"
#include "app/guess/StandardSpelling.h"
#include "app/guess/TimeGuess.h"
#include "app/language/Phrase.h"

namespace {

// With fewer rows a column's times are no axis, and an interval serves better.
constexpr double LeastRisingPart = 0.02;

double WeightOf(const TimeCandidate& candidate) {
    switch (candidate.Kind) {
        case TimeKind::DateAndTime:
            return 1.0;
        case TimeKind::Epoch:
            return 0.98;
        case TimeKind::Date:
            return 0.93;
        case TimeKind::TimeOfDay:
            return 0.85;
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
        part = std::max(part, static_cast<double>(reading.Falling) / static_cast<double>(reading.Times.size()) / 2);
    }
    return part < LeastRisingPart ? 0 : part * WeightOf(candidate);
}

// The best one; the leftmost of those that are as good.
std::optional<TimeCandidate> Choose(std::vector<TimeCandidate> candidates) {
    constexpr double Better = 0.02;
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const auto& one, const auto& other) { return one.TimeColumn < other.TimeColumn; });
    std::optional<TimeCandidate> best;
    for (TimeCandidate& candidate : candidates) {
        const double score = ScoreOf(candidate);
        if (score > 0 && (!best || score > ScoreOf(*best) + Better)) best = std::move(candidate);
    }
    return best;
}

}  // namespace

TimeGuess GuessTime(const ModuleLoader& module, const std::u16string& path) {
    TimeGuess guess;
    TableSample table;
    if (!module.TableTool().SampleTable(path.c_str(), nullptr, table, guess.Failure)) return guess;
    guess.Rows = table.Rows.size();
    if (table.Rows.empty()) {
        guess.Failure = Phrase("the table has no rows");
        return guess;
    }
    const TableTrial trial(module.TableTool(), table);
    std::vector<TimeCandidate> candidates = FindDateCandidates(trial);
    for (TimeCandidate& candidate : FindNumberCandidates(trial)) candidates.push_back(std::move(candidate));
    std::optional<TimeCandidate> best = Choose(std::move(candidates));
    if (!best) {
        GuessInterval(trial, guess);
        return guess;
    }
    UseStandardSpelling(module, trial, *best);
    guess.Read = best->Reading.Read;
    guess.Rising = best->Reading.Rising;
    guess.Settings = SettingsOf(*best, path);
    guess.Basis = BasisOf(*best);
    AddDoubts(trial, *best, guess);
    return guess;
}
