#include "host/guess/DateCandidates.h"

#include <algorithm>

#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace kelvarin::guess {

namespace {

// The order that a mark between the numbers has in most countries that use it.
DateOrder UsualOrder(const std::u16string& format) {
    return format.find(u'/') != std::u16string::npos ? DateOrder::MonthFirst : DateOrder::DayFirst;
}

// Rows in the better of both directions.
std::size_t Ordered(const TimeReading& reading) {
    return std::max(reading.Rising, reading.Falling);
}

// Why the first candidate is better than the second, or Missing if it isn't.
OrderProof ProofOver(const TimeCandidate& one, const TimeCandidate& other) {
    constexpr std::int64_t ClearlyLarger = 5;
    const TimeReading& a = one.Reading;
    const TimeReading& b = other.Reading;
    if (one.Hint.Order != DateOrder::NoDate && other.Shape.Order != one.Hint.Order &&
        one.Shape.Order == one.Hint.Order && a.Read >= b.Read)
        return OrderProof::ByLabel;
    if (a.Read != b.Read) return a.Read > b.Read ? OrderProof::ByRange : OrderProof::Missing;
    if (Ordered(a) != Ordered(b)) return Ordered(a) > Ordered(b) ? OrderProof::ByRise : OrderProof::Missing;
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

// The shapes of the examples, without those that a format can't hold.
std::vector<FormatShape> UsableShapes(const TableTrial& trial, const TextList& texts) {
    std::vector<FormatShape> shapes;
    for (const std::u16string& text : trial.Examples(texts)) {
        for (FormatShape& shape : ShapesOf(text, trial.Letters())) {
            const bool known = std::any_of(shapes.begin(), shapes.end(), [&](const FormatShape& other) {
                return other.Format == shape.Format;
            });
            if (!known && shape.Blocked == u'\0' && !shape.IsTwelveHours) shapes.push_back(std::move(shape));
        }
    }
    return shapes;
}

std::vector<FormatShape> OnlyWithDate(std::vector<FormatShape> shapes, bool hasDate) {
    std::erase_if(shapes,
                  [&](const FormatShape& shape) { return (shape.Order != DateOrder::NoDate) != hasDate; });
    return shapes;
}

// How long each of the two times of a text lasts, if that is always the same.
std::optional<std::int64_t> RangeLengthOf(const TableTrial& trial, const TimeCandidate& candidate,
                                          TextList texts) {
    constexpr std::int64_t Day = 86'400'000'000'000;
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

// What stands in one column alone.
struct ColumnTexts {
    TextList Texts;
    std::vector<FormatShape> Dates, Times;
};

ColumnTexts LookAt(const TableTrial& trial, std::size_t column) {
    ColumnTexts result;
    result.Texts = trial.Texts(column);
    const std::vector<FormatShape> shapes = UsableShapes(trial, result.Texts);
    result.Dates = OnlyWithDate(shapes, true);
    result.Times = OnlyWithDate(shapes, false);
    return result;
}

std::optional<TimeCandidate> TimeAlone(const TableTrial& trial, const ColumnTexts& texts,
                                       std::size_t column) {
    const ColumnHint hint = HintOf(trial.Sample(), column);
    std::optional<TimeCandidate> best = BestOrder(trial, texts.Times, texts.Texts, hint);
    // Four or six digits are a time only where the name says so.
    if (!best || (best->Shape.IsDigitsOnly && !hint.IsTime)) return std::nullopt;
    best->Kind = TimeKind::TimeOfDay;
    best->TimeColumn = static_cast<int>(column) + 1;
    return best;
}

std::optional<TimeCandidate> DateAlone(const TableTrial& trial, const ColumnTexts& texts,
                                       std::size_t column) {
    const ColumnHint hint = HintOf(trial.Sample(), column);
    std::optional<TimeCandidate> best = BestOrder(trial, texts.Dates, texts.Texts, hint);
    if (!best || (best->Shape.IsDigitsOnly && !hint.IsTime)) return std::nullopt;
    best->Kind = best->Shape.HasTime ? TimeKind::DateAndTime : TimeKind::Date;
    best->DateColumn = best->TimeColumn = static_cast<int>(column) + 1;
    if (!best->Shape.RangeMark.empty()) best->RangeLength = RangeLengthOf(trial, *best, texts.Texts);
    return best;
}

// Most of the first rows must be times of day by themselves: a format would take any digits for one.
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
            shapes.push_back(day);
            shapes.back().Format =
                date < time ? day.Format + joint + clock.Format : clock.Format + joint + day.Format;
            shapes.back().HasTime = true;
            shapes.back().IsDigitsOnly = day.IsDigitsOnly || clock.IsDigitsOnly;
            shapes.back().Zone = clock.Zone;
            shapes.back().ZoneShiftsFraction = clock.ZoneShiftsFraction;
        }
    }
    const TextList texts = trial.JoinedTexts(std::min(date, time), std::max(date, time));
    std::optional<TimeCandidate> best = BestOrder(trial, shapes, texts, HintOf(trial.Sample(), date));
    if (!best) return std::nullopt;
    best->Kind = TimeKind::DateAndTime;
    best->DateColumn = static_cast<int>(date) + 1;
    best->TimeColumn = static_cast<int>(time) + 1;
    return best;
}

// A date's time stands beside it.
std::optional<TimeCandidate> WithNeighbour(const TableTrial& trial, const std::vector<ColumnTexts>& columns,
                                           std::size_t date) {
    std::optional<TimeCandidate> best;
    for (const int distance : {1, -1, 2, -2}) {
        const std::size_t time = date + static_cast<std::size_t>(distance);
        if (time >= columns.size()) continue;
        std::optional<TimeCandidate> pair = Pair(trial, columns, date, time);
        if (pair && (!best || Ordered(pair->Reading) > Ordered(best->Reading))) best = std::move(pair);
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
        if (!best) {
            best = std::move(candidate);
            continue;
        }
        if (shape.Order == best->Shape.Order) {
            if (candidate.Reading.Read > best->Reading.Read)
                best->Shape = shape, best->Reading = candidate.Reading;
            continue;
        }
        const OrderProof forOther = ProofOver(candidate, *best);
        const OrderProof forBest = ProofOver(*best, candidate);
        const bool isUsual = shape.Order == UsualOrder(shape.Format);
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
        std::optional<TimeCandidate> date;
        if (!columns[column].Dates.empty()) date = DateAlone(trial, columns[column], column);
        if (date && date->Kind == TimeKind::Date) {
            std::optional<TimeCandidate> pair = WithNeighbour(trial, columns, column);
            if (pair && Ordered(pair->Reading) >= Ordered(date->Reading)) date = std::move(pair);
        }
        if (date) found.push_back(std::move(*date));
        if (columns[column].Times.empty()) continue;
        if (std::optional<TimeCandidate> time = TimeAlone(trial, columns[column], column))
            found.push_back(std::move(*time));
    }
    return found;
}

}  // namespace kelvarin::guess
