#include "host/ImportFailure.h"

#include "host/Reading.h"
#include "host/SourceFiles.h"
#include "host/check/CheckRun.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin {
namespace {
// The file can be read, so it is the place of the table that is wrong.
ImportFailure MissingTable(const Reading& format) {
    const int line = format.HeaderLine != 0 ? format.HeaderLine : format.FirstDataLine;
    return {Phrase("no table was found at line {}", line), true, static_cast<std::uint64_t>(line)};
}
// Of the last failure that names one.
std::uint64_t LineOfFailure(const MessageList& messages) {
    std::uint64_t line = 0;
    for (const MessageGroup& group : messages.Groups()) {
        if (group.Failure) line = group.Lines.back();
    }
    return line;
}
}  // namespace

std::uint64_t CountSamples(const store::StoredDevice* device) {
    std::uint64_t count = 0;
    if (device == nullptr) return count;
    for (const auto& signal : device->Signals) count += signal->Summary().Count;
    return count;
}

bool LostEveryRow(const RunResult& result, const store::StoredDevice* device) {
    if (!result.Begun || result.Lines == 0 || device == nullptr) return false;
    return device->Signals.empty() || device->Signals.front()->Summary().Count == 0;
}

ImportFailure WhyImportFailed(const std::u16string& path, const RunResult& result,
                              const HostSession& session) {
    if (result.OutOfMemory) return {result.Failure};
    if (!result.Failed && !LostEveryRow(result, session.Device())) return {};
    const std::string reason = WhyUnreadable(session.Filter(), path);
    if (!result.Failed || !reason.empty()) return {reason, false, LineOfFailure(session.Messages())};
    if (SettingsOf(session.Filter()) == nullptr) return {result.Failure};
    return MissingTable(ReadingOf(session.Filter()));
}

ImportFailure WhyCheckFailed(const check::CheckResult& result) {
    if (!result.Failed) return {};
    const std::string failure = Utf16ToUtf8(result.Failure);
    if (result.SourceChanged || result.OutOfMemory) return {failure};
    if (!result.WhyUnreadable.empty()) return {result.WhyUnreadable};
    if (result.Begun) return {failure};
    return MissingTable(result.Format);
}

std::string WhyNothingIsStored(const RunResult& result, const store::StoredDevice* device) {
    if (result.Lines == 0) return Phrase("the table has no rows");
    if (device == nullptr || device->Signals.empty()) return Phrase("no column beside the times is imported");
    return Phrase("no row has a time");
}
}  // namespace kelvarin
