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
