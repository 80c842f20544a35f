#include "app/explain/FormatTrial.h"

#include <iterator>

#include "app/HostSession.h"
#include "app/SettingsJson.h"
#include "platform/support/ProfileOverlay.h"

namespace {

constexpr int LinesLookedAt = 500;
constexpr int MostPieces = 60;  // each costs an analysis from the file's beginning

// Lays a format over the process's profile for as long as it lives.
class FormatInForce {
  public:
    explicit FormatInForce(const TableFormat& format) : Before(GetProcessProfile()) {
        auto layer = std::make_shared<ProfileOverlay>(Before);
        const auto set = [&](const char16_t* key, int value) {
            layer->Set(SettingsSectionName(), key, value);
        };
        set(u"AutoFormat", 0);
        set(u"Separator", format.Separator);
        set(u"MergeSeparators", format.Merges() ? 1 : 0);
        set(u"FirstLine", format.FirstLine);
        set(u"ImportHeader", format.Header ? 1 : 0);
        SetProcessProfile(layer);
    }
    FormatInForce(const FormatInForce&) = delete;
    FormatInForce& operator=(const FormatInForce&) = delete;
    ~FormatInForce() { SetProcessProfile(Before); }

  private:
    std::shared_ptr<ProfileStore> Before;
};

}  // namespace

bool TryFormat(const ModuleLoader& module, const std::u16string& path, const TableFormat& format,
               const AnalysisRecord& record) {
    const FormatInForce settings(format);
    HostSession session(module.Factory(), path, RunOptions());
    if (!session.Filter().AnalyzeFile()) return false;
    return SummarizeFormat(SettingsOf(session.Filter())).Separator == format.Separator &&
           record.FirstLine == format.FirstLine && record.Header == format.Header;
}

std::vector<SeenRow> RowsSplitBy(const ModuleLoader& module, const std::u16string& path, int separator) {
    std::vector<SeenRow> rows;
    AnalysisRecord record;
    TableFormat format{separator, 1, false};
    // An analysis ends at an empty line; the next one begins behind it.
    for (int piece = 0; piece < MostPieces && format.FirstLine <= LinesLookedAt; ++piece) {
        if (!TryFormat(module, path, format, record)) break;
        rows.insert(rows.end(), std::make_move_iterator(record.Rows.begin()),
                    std::make_move_iterator(record.Rows.end()));
        if (record.End != TableEnd::EmptyLine) break;
        format.FirstLine = record.EndLine + 1;
    }
    return rows;
}
