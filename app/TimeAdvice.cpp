#include "app/TimeAdvice.h"

#include <algorithm>
#include <memory>

#include "app/HostSession.h"
#include "app/SettingsJson.h"
#include "platform/framework/Text.h"
#include "platform/support/ProfileOverlay.h"

namespace {

// Strings of the module with its standard formats.
constexpr unsigned TimeFormatsId = 1000;
constexpr unsigned ElapsedTimeFormatsId = 1001;
constexpr unsigned DateFormatsId = 1002;

constexpr std::size_t MostColumns = 64;  // a wider file is not tried: every try analyses it anew
constexpr int ColumnsTried = 4;          // time columns stand on the left
// A date and a time seldom fit by chance; any rising number fits as an elapsed time, so more rows must.
constexpr std::uint64_t DateRowsTried = 1;
constexpr std::uint64_t ElapsedRowsTried = 3;
constexpr std::size_t MostProposals = 3;

// Settings that might give every row its time.
struct Proposal {
    int DateSetting;
    int DateColumn;
    int TimeColumn;
    std::u16string Format;
};

std::u16string Trimmed(const std::u16string& text) {
    return std::u16string(TrimWhiteSpace(text));
}

// Lays a proposal over the process's profile for as long as it lives.
class TriedSettings {
  public:
    explicit TriedSettings(const Proposal& proposal) : Before(GetProcessProfile()) {
        auto layer = std::make_shared<ProfileOverlay>(Before);
        const std::u16string section = SettingsSectionName();
        layer->Set(section, u"DateSetting", proposal.DateSetting);
        layer->Set(section, u"DateColumn", proposal.DateColumn);
        layer->Set(section, u"TimeSetting", 0);
        layer->Set(section, u"TimeColumn", proposal.TimeColumn);
        layer->Set(section, u"TimestampFormat", proposal.Format);
        SetProcessProfile(layer);
    }
    TriedSettings(const TriedSettings&) = delete;
    TriedSettings& operator=(const TriedSettings&) = delete;
    ~TriedSettings() { SetProcessProfile(Before); }

  private:
    std::shared_ptr<ProfileStore> Before;
};

// True if the first rows of the file get timestamps.
bool Fits(ImportFilterFactory factory, const std::u16string& path, const Proposal& proposal) {
    const TriedSettings settings(proposal);
    RunOptions options;
    options.MostLines = proposal.DateSetting == 0 ? DateRowsTried : ElapsedRowsTried;
    HostSession session(factory, path, options);
    const RunResult result = session.Run([] { return std::uint64_t{0}; });
    const StoredDevice* const device = session.Device();
    if (result.Lines == 0 || device == nullptr || device->Signals.empty()) return false;
    return device->Signals.front()->Summary().Count == result.Lines;
}

std::u16string JointOf(const FormatSummary& format, bool sameColumn) {
    constexpr char16_t Separators[] = {u';', u',', u'\t', u' '};
    if (sameColumn) return u" ";
    if (format.Separator >= 0 && format.Separator < 4) return {Separators[format.Separator], u' '};
    return format.OtherSeparator.substr(0, 1) + u" ";
}

// Date and time in one column or in neighbours, then a time of day or an elapsed time in one column.
std::vector<Proposal> AllProposals(const ModuleLoader& module, const FormatSummary& format, int columns) {
    std::vector<Proposal> proposals;
    const std::vector<std::u16string> times = module.ResourceItems(TimeFormatsId);
    const int tried = std::min(columns, ColumnsTried);
    for (int column = 1; column <= tried; ++column) {
        for (int timeColumn = column; timeColumn <= std::min(column + 1, columns); ++timeColumn) {
            const std::u16string joint = JointOf(format, timeColumn == column);
            for (const std::u16string& date : module.ResourceItems(DateFormatsId)) {
                for (const std::u16string& time : times) {
                    proposals.push_back({0, column, timeColumn, Trimmed(date) + joint + Trimmed(time)});
                }
            }
        }
    }
    for (int column = 1; column <= tried; ++column) {
        for (const unsigned id : {TimeFormatsId, ElapsedTimeFormatsId}) {
            for (const std::u16string& time : module.ResourceItems(id)) {
                proposals.push_back({2, 1, column, Trimmed(time)});
            }
        }
    }
    return proposals;
}

std::string OptionsOf(const Proposal& proposal) {
    std::string options;
    const auto set = [&](const char* key, int value) {
        options += std::string("--set ") + key + "=" + std::to_string(value) + " ";
    };
    set("DateSetting", proposal.DateSetting);
    if (proposal.DateSetting == 0) set("DateColumn", proposal.DateColumn);
    set("TimeColumn", proposal.TimeColumn);
    return options + "--set 'TimestampFormat=" + Utf16ToUtf8(proposal.Format) + "'";
}

}  // namespace

std::string AdviseTimestamp(const ModuleLoader& module, const std::u16string& path,
                            const CImportFilter& filter) {
    const FormatSummary format = SummarizeFormat(SettingsOf(filter));
    const std::size_t columns = SummarizeColumns(SettingsOf(filter)).size();
    const std::string why =
        format.TimestampFormat.empty()
            ? "no row has a timestamp, since no timestamp format is set"
            : "no row fits the timestamp format '" + Utf16ToUtf8(format.TimestampFormat) + "'";
    std::string options;
    std::size_t found = 0;
    bool hasDate = false;
    if (columns <= MostColumns) {
        for (const Proposal& proposal : AllProposals(module, format, static_cast<int>(columns))) {
            // A format that reads a date leaves no doubt; the elapsed times behind it would only confuse.
            if (found == MostProposals || (hasDate && proposal.DateSetting != 0)) break;
            if (!Fits(module.Factory(), path, proposal)) continue;
            hasDate |= proposal.DateSetting == 0;
            options += (found++ == 0 ? "" : "  or  ") + OptionsOf(proposal);
        }
    }
    if (found != 0) return why + "; fitting the first rows: " + options;
    return why +
           " and none of the standard formats fits; for a fixed interval of 1 s: --set DateSetting=2 "
           "--set TimeSetting=1 --set IntervalValue=1 --set IntervalUnit=2";
}
