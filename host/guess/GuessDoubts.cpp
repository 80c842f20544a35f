#include "host/guess/GuessDoubts.h"

#include <algorithm>

#include "host/guess/GuessSettings.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin::guess {

namespace {

class DoubtList {
  public:
    DoubtList(const TableTrial& trial, const TimeCandidate& candidate, TimeGuess& guess)
        : Trial(trial), Candidate(candidate), Reading(candidate.Reading), Guess(guess) {}

    void AboutRows() {
        const std::size_t rows = Reading.Times.size();
        if (rows < 4) Add(Certainty::Likely, Phrase("only {} rows to judge by", rows));
        if (Reading.Read < rows) {
            Add(Reading.Read * 10 < rows * 9 ? Certainty::Likely : Guess.Sureness,
                Phrase("the format does not fit {}", MisfitText()));
        }
        const std::size_t lost = Reading.Read - Reading.Rising;
        if (Reading.IsDescending()) {
            Add(Certainty::Uncertain, Phrase("the newest row stands first: only the first row is taken, "
                                             "unless the file is turned around"));
        } else if (lost != 0) {
            const bool many = lost * 2 > Reading.Read;
            const bool some = lost * 50 > Reading.Read;
            Add(many ? Certainty::Uncertain : some ? Certainty::Likely : Guess.Sureness, LostText(lost));
        }
    }

    void AboutOrder() {
        switch (Candidate.Proof) {
            case OrderProof::Missing:
                Add(Certainty::Uncertain,
                    Phrase("day and month could be swapped: no row tells which comes first"));
                break;
            case OrderProof::BySteps:
                Add(Certainty::Likely, Candidate.Shape.Order == DateOrder::DayFirst
                                           ? Phrase("that the day comes before the month follows from the "
                                                    "distances of the rows alone")
                                           : Phrase("that the month comes before the day follows from the "
                                                    "distances of the rows alone"));
                break;
            default:
                break;
        }
    }

    void AboutText() {
        if (Candidate.Shape.IsDigitsOnly)
            Add(Certainty::Likely, Phrase("plain numbers may mean something else"));
        if (!Candidate.Shape.Zone.empty()) {
            Add(Guess.Sureness,
                Phrase("the zone {} is not applied: the times count as local ones of this computer",
                       Utf16ToUtf8(Candidate.Shape.Zone)));
        }
        if (Candidate.Shape.ZoneShiftsFraction)
            Add(Certainty::Likely, Phrase("the zone's digits add up to a quarter of a second to every time"));
        if (Candidate.Shape.RangeMark.empty()) return;
        if (Candidate.RangeLength) {
            Add(Guess.Sureness,
                Phrase("the cells hold two times; the later is read and set back to the earlier"));
        } else {
            Add(Certainty::Likely, Phrase("the cells hold two times; the later is taken"));
        }
    }

    void AboutKind() {
        if (Candidate.Kind == TimeKind::Elapsed && Candidate.Hint.Unit.empty()) {
            const bool isUsual = Candidate.Unit == u"s" && Candidate.Hint.IsTime;
            Add(isUsual ? Certainty::Likely : Certainty::Uncertain,
                Phrase("no unit is named; {} makes usual steps", Utf16ToUtf8(Candidate.Unit)));
        } else if (Candidate.Kind != TimeKind::TimeOfDay && !Candidate.HasDate() && !Candidate.Hint.IsTime) {
            Add(Certainty::Likely, Phrase("the column's name does not speak of time"));
        }
        if (RunsOverMidnight(Candidate))
            Add(Certainty::Likely,
                Phrase("the rows have no date; the start is that of the file's last change"));
        if (Candidate.HasDate() && Reading.First < FirstGoodTime)
            Add(Guess.Sureness, Phrase("there are times before 1990, which the host can't process"));
    }

  private:
    static constexpr std::int64_t FirstGoodTime = 631'148'400'000'000'000;  // 1990 at UTC+1

    void Add(Certainty most, std::string text) {
        Guess.Sureness = std::max(Guess.Sureness, most);
        Guess.Objections.push_back(std::move(text));
    }

    // "lines 120-131 and 140", or how many rows if they lie too far down to be counted.
    std::string MisfitText() const {
        std::string lines;
        for (const MisfitRows& misfit : Reading.Misfits) {
            if (misfit.FirstLine == 0) break;
            lines += (lines.empty() ? "" : ", ") + std::to_string(misfit.FirstLine);
            if (misfit.LastLine > misfit.FirstLine) lines += "-" + std::to_string(misfit.LastLine);
        }
        const std::size_t count = Reading.Times.size() - Reading.Read;
        if (lines.empty()) return Phrase("{} of the {} rows looked at", count, Reading.Times.size());
        if (Reading.MisfitRuns > Reading.Misfits.size()) lines += ", ...";
        return count == 1 ? Phrase("line {}", lines) : Phrase("lines {}", lines);
    }

    std::string LostText(std::size_t lost) const {
        const std::size_t rows = Trial.Sample().Rows.size();
        if (Reading.Repeats * 2 > lost)
            return Phrase("times repeat: {} of the {} rows looked at are lost", lost, rows);
        return Phrase("times fall: {} of the {} rows looked at are lost", lost, rows);
    }

    const TableTrial& Trial;
    const TimeCandidate& Candidate;
    const TimeReading& Reading;
    TimeGuess& Guess;
};

}  // namespace

std::string BasisOf(const TimeCandidate& candidate) {
    switch (candidate.Kind) {
        case TimeKind::DateAndTime:
            if (candidate.DateColumn != candidate.TimeColumn)
                return Phrase("date in column {}, time in column {}", candidate.DateColumn,
                              candidate.TimeColumn);
            return Phrase("date and time in column {}", candidate.TimeColumn);
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

void AddDoubts(const TableTrial& trial, const TimeCandidate& candidate, TimeGuess& guess) {
    DoubtList doubts(trial, candidate, guess);
    doubts.AboutRows();
    doubts.AboutOrder();
    doubts.AboutText();
    doubts.AboutKind();
}

}  // namespace kelvarin::guess
