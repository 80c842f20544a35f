// Dates with or without a time, in one column or two, and times of day.
#include <algorithm>

#include "host/guess/GuessParts.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"
#include "settings/IntervalUnits.h"

namespace kelvarin::guess {
namespace {
// Why the first candidate is better than the second, or Missing if it isn't.
OrderProof ProofOver(const TimeCandidate& one, const TimeCandidate& other) {
    // Read the wrong way around, ten days of a month become ten months: steps of a day become steps of
    // thirty. A gap of a few days in the file makes the right way less even, but hardly five times.
    constexpr std::int64_t ClearlyLarger = 5;
    const TimeReading& a = one.Reading;
    const TimeReading& b = other.Reading;
    if (one.Hint.Order != DateOrder::NoDate && other.Shape.Order != one.Hint.Order &&
        one.Shape.Order == one.Hint.Order && a.Read >= b.Read)
        return OrderProof::ByLabel;
    if (a.Read != b.Read) return a.Read > b.Read ? OrderProof::ByRange : OrderProof::Missing;
    if (a.Ordered() != b.Ordered())
        return a.Ordered() > b.Ordered() ? OrderProof::ByRise : OrderProof::Missing;
    return a.LargestStep < b.LargestStep / ClearlyLarger ? OrderProof::BySteps : OrderProof::Missing;
}

// A fraction may first come far down. It is no loss to the rows before.
std::vector<FormatShape> WithFractions(const std::vector<FormatShape>& shapes, char16_t seconds) {
    std::vector<FormatShape> all = shapes;
    for (const FormatShape& shape : shapes) {
        if (shape.Format.empty() || shape.Format.back() != seconds) continue;
        for (const char16_t* const tail : {u".000", u",000"}) {
            all.push_back(shape);
            all.back().Format += tail;
        }
    }
    return all;
}

// How long each of the two times of a text lasts, if that is always the same.
std::optional<std::int64_t> RangeLengthOf(const TableTrial& trial, const TimeCandidate& candidate,
                                          TextList texts) {
    constexpr std::int64_t Day = 24 * IntervalUnits[0].Nanoseconds;
    for (std::u16string& text : texts) text = text.substr(0, text.find(candidate.Shape.RangeMark));
    const TimeReading starts = trial.Read(candidate.Shape.FormatUpToMark, texts, true);
    std::optional<std::int64_t> length;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (starts.Times[i] == -1 || candidate.Reading.Times[i] == -1) continue;
        const std::int64_t own = WrappingSubtract(candidate.Reading.Times[i], starts.Times[i]);
        if (own < 0 || own >= Day || (length && *length != own)) return std::nullopt;
        length = own;
    }
    return length;
}

// The texts of one column and the shapes of its examples, without those that a format can't hold.
struct ColumnTexts {
    TextList Texts;
    std::vector<FormatShape> Dates, Times;
};

ColumnTexts LookAt(const TableTrial& trial, std::size_t column) {
    ColumnTexts result{trial.Texts(column), {}, {}};
    for (const std::u16string& text : trial.Examples(result.Texts)) {
        for (FormatShape& shape : ShapesOf(text, trial.Letters())) {
            auto& shapes = shape.Order == DateOrder::NoDate ? result.Times : result.Dates;
            const bool isKnown = std::any_of(shapes.begin(), shapes.end(), [&](const FormatShape& other) {
                return other.Format == shape.Format;
            });
            if (!isKnown && shape.Blocked == u'\0' && !shape.IsTwelveHours)
                shapes.push_back(std::move(shape));
        }
    }
    return result;
}

// The best of the shapes for a column of its own.
std::optional<TimeCandidate> Alone(const TableTrial& trial, const std::vector<FormatShape>& shapes,
                                   const TextList& texts, std::size_t column) {
    const ColumnHint hint = HintOf(trial.Sample(), column);
    std::optional<TimeCandidate> best = BestOrder(trial, shapes, texts, hint);
    // Four or six digits are a time or a date only where the name says so.
    if (!best || (best->Shape.IsDigitsOnly && !hint.IsTime)) return std::nullopt;
    best->TimeColumn = static_cast<int>(column) + 1;
    best->Kind = TimeKind::TimeOfDay;
    if (best->Shape.Order == DateOrder::NoDate) return best;
    best->Kind = best->Shape.HasTime ? TimeKind::DateAndTime : TimeKind::Date;
    best->DateColumn = best->TimeColumn;
    if (!best->Shape.RangeMark.empty()) best->RangeLength = RangeLengthOf(trial, *best, texts);
    return best;
}

// Two of three of the first rows must be times of day by themselves: a format would take any digits for one.
// The third may be notes, as loggers write them between their rows.
bool AreTimes(const TextList& texts, const std::u16string& letters) {
    constexpr std::size_t Looked = 32;
    const std::size_t count = std::min(texts.size(), Looked);
    std::size_t misfits = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::vector<FormatShape> shapes = ShapesOf(texts[i], letters);
        if (!texts[i].empty() && (shapes.empty() || shapes.front().Order != DateOrder::NoDate)) ++misfits;
    }
    return misfits * 3 <= count;
}

std::optional<TimeCandidate> Pair(const TableTrial& trial, const std::vector<ColumnTexts>& columns,
                                  std::size_t date, std::size_t time) {
    const std::u16string& separator = trial.Sample().Separator;
    const bool isField = separator.find_first_of(trial.Letters() + u"0[") != std::u16string::npos;
    if (separator.empty() || isField || columns[time].Times.empty()) return std::nullopt;
    if (!AreTimes(columns[time].Texts, trial.Letters())) return std::nullopt;
    const std::u16string joint = IsWhiteSpace(separator[0]) ? u" " : separator;
    std::vector<FormatShape> shapes;
    for (const FormatShape& day : columns[date].Dates) {
        for (const FormatShape& clock : columns[time].Times) {
            FormatShape& both = shapes.emplace_back(day);
            both.Format = date < time ? day.Format + joint + clock.Format : clock.Format + joint + day.Format;
            both.HasTime = true;
            both.IsDigitsOnly |= clock.IsDigitsOnly;
            both.Zone = clock.Zone;
            both.ZoneShiftsFraction = clock.ZoneShiftsFraction;
        }
    }
    const TextList texts = trial.Texts(date, time);
    std::optional<TimeCandidate> best = BestOrder(trial, shapes, texts, HintOf(trial.Sample(), date));
    if (!best) return std::nullopt;
    best->Kind = TimeKind::DateAndTime;
    best->DateColumn = static_cast<int>(date) + 1;
    best->TimeColumn = static_cast<int>(time) + 1;
    return best;
}

// A date's time is in the next column or the one after that, on either side.
std::optional<TimeCandidate> WithNeighbour(const TableTrial& trial, const std::vector<ColumnTexts>& columns,
                                           std::size_t date) {
    std::optional<TimeCandidate> best;
    for (const int distance : {1, -1, 2, -2}) {
        const std::size_t time = date + static_cast<std::size_t>(distance);
        if (time >= columns.size()) continue;
        std::optional<TimeCandidate> pair = Pair(trial, columns, date, time);
        if (pair && (!best || pair->Reading.Ordered() > best->Reading.Ordered())) best = std::move(pair);
    }
    return best;
}
}  // namespace

std::optional<TimeCandidate> BestOrder(const TableTrial& trial, const std::vector<FormatShape>& shapes,
                                       const TextList& texts, const ColumnHint& hint) {
    std::optional<TimeCandidate> best;
    for (const FormatShape& shape : WithFractions(shapes, trial.Letters()[5])) {
        const bool hasDate = shape.Order != DateOrder::NoDate;
        if (!trial.FitsFirstRows(shape.Format, texts, hasDate)) continue;
        TimeCandidate candidate;
        candidate.Shape = shape;
        candidate.Hint = hint;
        candidate.Reading = trial.Read(shape.Format, texts, hasDate);
        if (!best || shape.Order == best->Shape.Order) {
            if (best) candidate.Proof = best->Proof;
            if (!best || candidate.Reading.Read > best->Reading.Read) best = std::move(candidate);
            continue;
        }
        const OrderProof forOther = ProofOver(candidate, *best);
        const OrderProof forBest = ProofOver(*best, candidate);
        // The order that a mark between the numbers has in most countries that use it.
        const bool hasSlash = shape.Format.find(u'/') != std::u16string::npos;
        const bool isUsual = shape.Order == (hasSlash ? DateOrder::MonthFirst : DateOrder::DayFirst);
        if (forOther != OrderProof::Missing || (forBest == OrderProof::Missing && isUsual)) {
            best = std::move(candidate);
            best->Proof = forOther;
        } else {
            best->Proof = std::max(best->Proof, forBest);
        }
    }
    return best;
}

std::vector<TimeCandidate> FindDateCandidates(const TableTrial& trial) {
    std::vector<ColumnTexts> columns;
    for (std::size_t column = 0; column < trial.Columns(); ++column) columns.push_back(LookAt(trial, column));
    std::vector<TimeCandidate> found;
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const ColumnTexts& own = columns[column];
        std::optional<TimeCandidate> date = Alone(trial, own.Dates, own.Texts, column);
        if (date && date->Kind == TimeKind::Date) {
            std::optional<TimeCandidate> pair = WithNeighbour(trial, columns, column);
            if (pair && pair->Reading.Ordered() >= date->Reading.Ordered()) date = std::move(pair);
        }
        if (date) found.push_back(std::move(*date));
        if (std::optional<TimeCandidate> time = Alone(trial, own.Times, own.Texts, column))
            found.push_back(std::move(*time));
    }
    return found;
}
}  // namespace kelvarin::guess
