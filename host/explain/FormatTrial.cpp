#include "host/explain/FormatTrial.h"

#include <iterator>

#include "host/HostSession.h"
#include "host/Reading.h"
#include "host/SettingText.h"

namespace kelvarin::explain {

namespace {

constexpr int LinesLookedAt = 500;
constexpr int MostPieces = 60;  // each costs an analysis from the file's beginning

}  // namespace

bool TryFormat(const ModuleLoader& module, const std::u16string& path, const TableFormat& format,
               AnalysisRecord& record) {
    SettingsLayer layer;
    layer.Set(u"AutoFormat", 0);
    layer.Set(u"Separator", format.Separator);
    layer.Set(u"MergeSeparators", format.Merges() ? 1 : 0);
    layer.Set(u"FirstLine", format.FirstLine);
    layer.Set(u"ImportHeader", format.Header ? 1 : 0);
    HostSession session(module, path, RunOptions());
    if (!record.ListenTo(session.Filter()) || !session.Filter().AnalyzeFile()) return false;
    return ReadingOf(session.Filter()).Separator == format.Separator &&
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

}  // namespace kelvarin::explain
