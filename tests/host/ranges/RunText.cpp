#include "host/ranges/RunText.h"

#include <gtest/gtest.h>

#include <sstream>

#include "contract/SettingsView.h"
#include "host/Reading.h"
#include "platform/framework/Text.h"

using namespace kelvarin;

namespace {

void Describe(const store::StoredSignal& signal, std::ostream& out) {
    const store::SignalDescription about = signal.Description();
    const store::SignalSummary sum = signal.Summary();
    out << Utf16ToUtf8(about.Name) << '/' << Utf16ToUtf8(about.Symbol) << '[' << Utf16ToUtf8(about.Unit)
        << "] type " << about.Type << " column " << about.Column << " metadata " << about.MetaData.size()
        << '\n'
        << sum.Count << " samples, " << sum.WithoutValue << " without, " << sum.FirstTime << " to "
        << sum.LastTime << ", first " << testing::PrintToString(sum.First) << ", last "
        << testing::PrintToString(sum.Last) << ", " << sum.Plot.Draw(64) << sum.Plot.Range().Lowest << ' '
        << sum.Plot.Range().Highest << '\n';
    signal.VisitSamples(KeepAll, [&](std::int64_t time, const void* data, std::uint32_t size) {
        out << time << '=';
        for (std::uint32_t i = 0; i < size && data != nullptr; ++i)
            out << int{static_cast<const unsigned char*>(data)[i]} << '.';
        out << (data == nullptr ? "none " : " ");
    });
    out << '\n';
}

}  // namespace

std::ostream& HeardText::Begin(const char* what, const RowPlace& place) {
    return Out << '\n' << what << ' ' << place.Line << '/' << place.MessageLine << ' ';
}

void HeardText::OnRowStored(const RowPlace& place, std::int64_t time) {
    Begin("stored", place) << time;
}

void HeardText::OnRowDropped(const DroppedRow& row) {
    Begin("dropped", row.Place) << static_cast<int>(row.Reason) << ' ' << Utf16ToUtf8(row.TimeText) << ' '
                                << testing::PrintToString(row.Time);
    for (const char16_t* const cell : row.Cells) Out << '|' << Utf16ToUtf8(cell);
}

void HeardText::OnCellRefused(const RefusedCell& cell) {
    Begin("refused", cell.Place) << cell.Column << ' ' << cell.Type << ' ' << Utf16ToUtf8(cell.Text);
}

void HeardText::OnTimeBefore1990(const RowPlace& place, std::int64_t time) {
    Begin("before 1990", place) << time;
}

void HeardText::OnBlankLine(const RowPlace& place) {
    Begin("blank", place);
}

class SunkText::Signal final : public store::SignalSink {
  public:
    explicit Signal(std::size_t size) : Size(size) {}

    void TakeValues(const void* values, std::size_t count, const std::uint8_t* valid) override {
        const auto* const bytes = static_cast<const unsigned char*>(values);
        for (std::size_t i = 0; i < count; ++i) {
            if (valid != nullptr && valid[i] == 0) {
                Out << "none ";
                continue;
            }
            for (std::size_t j = 0; j < Size; ++j) Out << int{bytes[i * Size + j]} << '.';
            Out << ' ';
        }
    }
    void TakeText(const char16_t* text, std::size_t length) override {
        Out << (text == nullptr ? "none" : '"' + Utf16ToUtf8({text, length}) + '"') << ' ';
    }

    std::ostringstream Out;

  private:
    const std::size_t Size;
};

SunkText::SunkText() = default;

SunkText::~SunkText() = default;

store::SignalSink* SunkText::AddSignal(const store::SignalDescription& about) {
    Signals.push_back(std::make_unique<Signal>(about.Size));
    return Signals.back().get();
}

std::string SunkText::Text() const {
    std::string text = Times.str();
    for (const auto& signal : Signals) text += '\n' + signal->Out.str();
    return text;
}

std::string DescribeRun(HostSession& session, const RunResult& result) {
    std::ostringstream out;
    out << "begun " << result.Begun << ", failed " << result.Failed << ' ' << result.Failure << ", lines "
        << result.Lines << ", progress " << testing::PrintToString(result.Progress) << '\n';
    for (const MessageGroup& group : session.Messages().Groups())
        out << Utf16ToUtf8(group.FirstText) << " x " << group.Count << " in "
            << testing::PrintToString(group.Lines) << (group.Failure ? " !" : "") << '\n';
    for (const ImportMessage& message : session.Messages().Kept())
        out << message.Column << (message.Failure ? '!' : ':') << Utf16ToUtf8(message.Text) << '\n';
    for (const ColumnSummary& column : SummarizeColumns(session.Filter()))
        out << Utf16ToUtf8(column.Name) << " [" << Utf16ToUtf8(column.Unit) << "] ";
    out << '\n';
    out << Utf16ToUtf8(session.Filter().Find<ISettingsView>()->GetFileFailure()) << '\n';
    if (session.Device() == nullptr) return out.str();
    for (const auto& signal : session.Device()->Signals) Describe(*signal, out);
    return out.str();
}
