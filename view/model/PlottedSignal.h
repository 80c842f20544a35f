// A signal of a file as plots need it: what is to be drawn of any part of the time axis.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/store/StoredDevice.h"
#include "host/store/ValueReader.h"
#include "view/model/PeakPyramid.h"
#include "view/model/TextSpans.h"
#include "view/model/TimeBase.h"

namespace kelvarin::view {
// How a signal is drawn: as a line, as a band where it is true, as a row of labelled spans.
enum class SignalKind { Number, Truth, Text };

// Of a type of EKelvarinType.
SignalKind KindOf(std::uint32_t type);

// The name that people see, in UTF-8.
std::string ShownName(const store::SignalDescription& about);

// A sample, at a distance from the start of the range in nanoseconds.
struct TracePoint {
    double Offset = 0;
    double Value = 0;         // may be infinite or not a number
    bool IsAfterGap = false;  // no line leads here from the point before
};

// The samples in one column of pixels, at least one.
struct TraceColumn {
    int Pixel = 0;
    double First = 0, Last = 0;  // not a number where the sample has no value
    Peaks All;
    bool IsAfterGap = false;
};

// Points where the samples are few, with the one before and the one after the range; else columns.
struct Trace {
    bool IsDense = false;
    std::vector<TracePoint> Points;
    std::vector<TraceColumn> Columns;

    // Of the finite values in it.
    Peaks All() const;
};

// A text and where it is, from `Offset` to `End` in nanoseconds from the start of the range. Several spans
// that share a pixel are one without a text.
struct TextTrace {
    double Offset = 0, End = 0;
    const std::string* Text = nullptr;
};

// The sample at a moment.
struct SampleAt {
    std::int64_t Time = 0;
    std::optional<double> Number;  // none for texts and without a value
    std::string Text;              // the value exactly; empty without one
};

class PlottedSignal {
  public:
    // Reads the samples that `times` has times for, which are settled, on so many threads; nothing is asked
    // of the signal afterwards. `owner` keeps its memory alive. `before` is null or what was made of this
    // signal last, with which this one shares all that it knows: only what has come since is read.
    PlottedSignal(std::shared_ptr<const void> owner, const store::StoredSignal& signal,
                  std::shared_ptr<const TimeBase> times, std::size_t threads = 1,
                  const PlottedSignal* before = nullptr);

    // UTF-8. The unit is empty if there is none.
    const std::string& Name() const { return SignalName; }
    const std::string& Unit() const { return SignalUnit; }
    std::uint32_t Type() const { return StoredType; }
    SignalKind Kind() const { return KindOf(StoredType); }

    std::uint64_t Count() const { return Reader == nullptr ? TextCount() : Reader->Count(); }
    const store::SignalSummary& Summary() const { return Sum; }
    const TimeBase& Times() const { return *Base; }

    // What is drawn in so many columns of pixels; empty for texts. One thread at a time for all signals of a
    // time base.
    Trace TraceOf(const TimeRange& range, int columns) const;

    // The same of texts.
    std::vector<TextTrace> TextsOf(const TimeRange& range, int columns) const;

    // The last sample that is not later; none before the first.
    std::optional<SampleAt> At(std::int64_t time) const;

    // The sample of a number, which must be there.
    SampleAt Sample(std::uint64_t row) const;

    // The values of samples that must be there, not of texts; what is not a number is one without a value.
    // Any number of threads may ask.
    void ReadValues(std::uint64_t first, std::span<double> values) const { Reader->Read(first, values); }

    // Bytes of the samples and their times, and what the plot takes beside.
    std::size_t SampleBytes() const;
    std::size_t PlotBytes() const;

  private:
    std::uint64_t TextCount() const { return Texts ? Texts->Rows() : 0; }
    Trace PointsOf(const TimeRange& range, std::uint64_t first, std::uint64_t end) const;
    Trace ColumnsOf(const std::vector<std::uint64_t>& rows) const;

    const std::shared_ptr<const void> Owner;
    const std::string SignalName, SignalUnit;
    const std::uint32_t StoredType;
    const store::SignalSummary Sum;
    const std::shared_ptr<const TimeBase> Base;
    const std::unique_ptr<store::ValueReader> Reader;  // null for texts
    std::unique_ptr<const PeakPyramid> Pyramid;
    std::unique_ptr<const TextSpans> Texts;
};
}  // namespace kelvarin::view
