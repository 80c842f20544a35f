#include "host/RunEnd.h"

#include <algorithm>
#include <fstream>
#include <span>

#include "contract/TimeReader.h"
#include "host/LocalClock.h"
#include "host/Reading.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Path.h"

namespace kelvarin {
namespace {
// Moments that nobody has set are those of now; of the first day only the local date counts.
SettingList SettingsThatCount(const CCsvImportSettings& settings) {
    constexpr std::int64_t Second = 1'000'000'000;
    constexpr std::int64_t Day = 86'400 * Second;
    std::int64_t moment = WrappingMultiply(settings.StartDate, Second);
    ToLocalClock(std::span(&moment, 1));
    SettingList list = SettingsAsText(settings);
    for (auto& [key, value] : list) {
        if (key == "StartDate") value = settings.DateSetting == DateFixed ? std::to_string(moment / Day) : "";
        if (key == "AdjustTime" && settings.Adjust == 0) value.clear();
    }
    return list;
}
}  // namespace

std::optional<RunBegin> BeginOf(const CImportFilter& filter, const store::StoredDevice& device,
                                const plan::RunGuide* guide, const MessageList& messages) {
    const IRangeReading* const reading = filter.Find<IRangeReading>();
    const CCsvImportSettings* const settings = SettingsOf(filter);
    if (reading == nullptr || settings == nullptr) return std::nullopt;
    RunBegin begin;
    begin.Settings = SettingsThatCount(*settings);
    if (ITimeReader* const times = filter.Find<ITimeReader>()) begin.FormatLetters = times->FormatLetters();
    begin.State = reading->GetState();
    for (const ColumnSummary& column : SummarizeColumns(filter))
        begin.Columns.emplace_back(static_cast<int>(column.Type), column.Name);
    for (const auto& signal : device.Signals) begin.Signals.push_back(signal->Description());
    for (const MessageGroup& group : messages.Groups()) begin.Said.push_back(group.FirstText);
    if (guide == nullptr) return begin;
    begin.Guide = guide->Traits();
    return begin.Guide ? std::optional(std::move(begin)) : std::nullopt;
}

KnownBytes BytesBefore(const std::u16string& path, std::uint64_t end) {
    constexpr std::uint64_t Most = 4096;
    const std::uint64_t size = std::min(end, Most);
    KnownBytes bytes;
    std::ifstream file(PathForStream(path), std::ios::binary);
    bytes.First.resize(static_cast<std::size_t>(size));
    bytes.Last.resize(static_cast<std::size_t>(size));
    file.read(bytes.First.data(), static_cast<std::streamsize>(size));
    file.seekg(static_cast<std::streamoff>(end - size));
    file.read(bytes.Last.data(), static_cast<std::streamsize>(size));
    return file ? bytes : KnownBytes();
}

std::uint64_t LastLineStart(IRangeReading& reading, std::uint64_t from, std::uint64_t size) {
    const auto startFrom = [&](std::uint64_t place) {
        std::optional<std::uint64_t> start;
        return reading.FindLineStart(place, start) ? start : std::nullopt;
    };
    // Lines are short: looked for from the end in steps that grow, then by halves.
    std::uint64_t found = from;
    std::uint64_t beyond = size + 1;
    for (std::uint64_t step = 64; beyond > from + 1; step *= 4) {
        const std::uint64_t place = beyond - from > step ? beyond - step : from + 1;
        if (const std::optional<std::uint64_t> start = startFrom(place)) {
            found = *start;
            break;
        }
        beyond = place;
    }
    while (found + 1 < beyond) {
        const std::uint64_t place = found + (beyond - found) / 2;
        const std::optional<std::uint64_t> start = startFrom(place);
        if (start) {
            found = *start;
        } else {
            beyond = place;
        }
    }
    return found;
}
}  // namespace kelvarin
