#include "view/model/PlottedSignal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "host/Words.h"
#include "platform/framework/Text.h"

namespace kelvarin::view {
SignalKind KindOf(std::uint32_t type) {
    if (type == KelvarinBool) return SignalKind::Truth;
    return type == KelvarinDouble || type == KelvarinInt64 ? SignalKind::Number : SignalKind::Text;
}

std::string ShownName(const store::SignalDescription& about) {
    return Utf16ToUtf8(about.Symbol.empty() ? about.Name : about.Symbol);
}

Peaks Trace::All() const {
    Peaks peaks;
    for (const TraceColumn& column : Columns) peaks.Include(column.All);
    for (const TracePoint& point : Points) peaks.Include(PeaksOf(std::span(&point.Value, 1)));
    return peaks;
}

PlottedSignal::PlottedSignal(std::shared_ptr<const void> owner, const store::StoredSignal& signal,
                             std::shared_ptr<const TimeBase> times, std::size_t threads,
                             const PlottedSignal* before)
    : Owner(std::move(owner)),
      SignalName(ShownName(signal.Description())),
      SignalUnit(Utf16ToUtf8(signal.Description().Unit)),
      StoredType(signal.Description().Type),
      Sum(signal.Summary()),
      Base(std::move(times)),
      Reader(Kind() == SignalKind::Text
                 ? nullptr
                 : signal.ReadValues(Base->Index().Count(),
                                     before == nullptr ? nullptr : before->Reader.get())) {
    if (Kind() == SignalKind::Text) {
        const std::uint64_t count = std::min(Base->Index().Count(), signal.SettledCount());
        Texts = std::make_unique<TextSpans>(signal, count, before == nullptr ? nullptr : before->Texts.get());
    } else if (Reader != nullptr) {
        Pyramid = std::make_unique<PeakPyramid>(*Reader, threads,
                                                before == nullptr ? nullptr : before->Pyramid.get());
    }
}

Trace PlottedSignal::TraceOf(const TimeRange& range, int columns) const {
    if (Reader == nullptr || columns < 1) return {};
    const std::uint64_t first = Base->Index().RowsBefore(range.From);
    const std::uint64_t end = Base->Index().RowsBefore(range.To);
    const auto sparse = static_cast<std::uint64_t>(columns) * 2;
    if (end - first <= sparse) return PointsOf(range, first, end);
    return ColumnsOf(Base->RowsOfColumns(range, columns));
}

Trace PlottedSignal::PointsOf(const TimeRange& range, std::uint64_t first, std::uint64_t end) const {
    first -= first == 0 ? 0 : 1;
    end += end == Reader->Count() ? 0 : 1;
    std::vector<double> values(static_cast<std::size_t>(end - first));
    std::vector<std::int64_t> times(values.size());
    Trace trace;
    if (values.empty()) return trace;
    Reader->Read(first, values);
    Base->Index().Read(first, times);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const bool isAfterGap = i != 0 && times[i] - times[i - 1] > Base->GapAbove();
        trace.Points.push_back({range.OffsetOf(times[i]), values[i], isAfterGap});
    }
    return trace;
}

Trace PlottedSignal::ColumnsOf(const std::vector<std::uint64_t>& rows) const {
    const auto valueAt = [this](std::uint64_t row) {
        double value = 0;
        Reader->Read(row, std::span(&value, 1));
        return value;
    };
    Trace trace;
    trace.IsDense = true;
    trace.Columns.reserve(rows.size());
    for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
        const std::uint64_t first = rows[i];
        const std::uint64_t end = rows[i + 1];
        if (first == end) continue;
        TraceColumn column{static_cast<int>(i), valueAt(first), valueAt(end - 1),
                           Pyramid->Between(first, end)};
        // Between neighbouring columns a gap would be narrower than two pixels.
        if (!trace.Columns.empty() && trace.Columns.back().Pixel + 1 < column.Pixel) {
            const store::TimeIndex& times = Base->Index();
            column.IsAfterGap = times.TimeAt(first) - times.TimeAt(first - 1) > Base->GapAbove();
        }
        trace.Columns.push_back(column);
    }
    return trace;
}

std::vector<TextTrace> PlottedSignal::TextsOf(const TimeRange& range, int columns) const {
    std::vector<TextTrace> traces;
    if (!Texts || Texts->Count() == 0 || columns < 1) return traces;
    const store::TimeIndex& times = Base->Index();
    const double pixel = range.Length() / columns;
    std::uint64_t row = times.RowsBefore(range.From);
    row -= row == 0 ? 0 : 1;
    const std::uint64_t lastRow = times.RowsBefore(range.To);
    for (std::size_t span = Texts->SpanOf(row); span < Texts->Count() && row < lastRow;) {
        const TextSpan text = Texts->At(span);
        const std::uint64_t next = std::min(text.End, times.Count() - 1);
        const TextTrace trace{range.OffsetOf(times.TimeAt(text.First)), range.OffsetOf(times.TimeAt(next)),
                              text.Text};
        // Whatever begins within the pixel is one mark.
        const auto ahead = range.From + static_cast<std::int64_t>(trace.Offset + pixel);
        row = std::max(text.End, times.RowsBefore(ahead));
        const std::size_t following = row >= Texts->Rows() ? Texts->Count() : Texts->SpanOf(row);
        const bool isAlone = following <= span + 1;
        if (!isAlone) {
            traces.push_back({trace.Offset, trace.Offset + pixel, nullptr});
        } else if (text.Text != nullptr) {
            traces.push_back(trace);
        }
        span = following;
    }
    return traces;
}

std::optional<SampleAt> PlottedSignal::At(std::int64_t time) const {
    const std::uint64_t rows = std::min(Base->Index().RowsBefore(time + 1), Count());
    if (rows == 0) return std::nullopt;
    return Sample(rows - 1);
}

SampleAt PlottedSignal::Sample(std::uint64_t row) const {
    SampleAt sample;
    sample.Time = Base->Index().TimeAt(row);
    if (Texts) {
        const std::string* const text = Texts->At(Texts->SpanOf(row)).Text;
        if (text != nullptr) sample.Text = "\"" + *text + "\"";
        return sample;
    }
    std::array<char, sizeof(double)> bytes{};
    if (!Reader->ReadOne(row, bytes.data())) return sample;
    const std::uint32_t size = SizeOfKelvarinType(StoredType);
    sample.Text = SampleText(StoredType, bytes.data(), size);
    Reader->Read(row, std::span(&sample.Number.emplace(), 1));
    return sample;
}

std::size_t PlottedSignal::SampleBytes() const {
    return Base->Index().TimeBytes() + (Reader == nullptr ? 0 : Reader->ValueBytes());
}

std::size_t PlottedSignal::PlotBytes() const {
    return Base->Index().IndexBytes() + (Pyramid == nullptr ? 0 : Pyramid->Bytes() + Reader->IndexBytes());
}
}  // namespace kelvarin::view
