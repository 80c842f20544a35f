// Any bytes as a source file, under any settings: analysis and import twice over give the same, also if a
// read gives little; times rise; and the preview shows what the import stores.
#include <fuzzer/FuzzedDataProvider.h>

#include "analysis/PreviewTableCallbacks.h"
#include "fuzz/kit/Check.h"
#include "kit/FakeHost.h"
#include "kit/FileFaults.h"
#include "plugin/CsvImportFilter.h"

namespace {

// The cells of the preview, a list per row.
class Preview : public IPreviewTableCallbacks {
  public:
    bool AddColumn(std::int32_t column, const char16_t*) override {
        Check(Rows.empty() && column == Columns++, "columns come first and in order");
        return true;
    }
    bool SetCell(std::int32_t row, std::int32_t column, const char16_t* text) override {
        Rows.resize(static_cast<std::size_t>(row) + 1);
        Check(static_cast<std::size_t>(column) == Rows.back().size(), "cells come in order");
        Rows.back().emplace_back(Utf16ToUtf8(text));
        return true;
    }
    int Columns = 0;
    std::vector<std::vector<std::string>> Rows;
};

void ChooseSettings(CCsvImportSettings& settings, FuzzedDataProvider& input) {
    constexpr const char16_t* Formats[] = {
        u"",     u"TT.MM.JJJJ hh:mm:ss,000", u"JJJJ-MM-TT hh:mm:ss", u"[s],000", u"hh:mm:ss",
        u"[ns]", u"MM/TT/JJ hh:mm",          u"TT.MM.JJ;hh:mm"};
    constexpr const char16_t* Separators[] = {u"", u"|", u"\"", u"µ"};
    settings.AutoFormat = input.ConsumeBool();
    settings.Separator = input.ConsumeIntegralInRange(0, 5);
    settings.MergeSeparators = input.ConsumeBool();
    settings.FirstLine = input.ConsumeIntegralInRange(-1, 6);
    settings.ImportHeader = input.ConsumeBool();
    settings.DateSetting = input.ConsumeIntegralInRange(0, 2);
    settings.DateColumn = input.ConsumeIntegralInRange(-1, 4);
    settings.TimeSetting = input.ConsumeBool();
    settings.TimeColumn = input.ConsumeIntegralInRange(-1, 4);
    settings.Adjust = input.ConsumeBool();
    settings.AdjustMode = input.ConsumeIntegralInRange(0, 2);
    settings.IntervalUnit = input.ConsumeIntegralInRange(0, 5);
    settings.TimestampFormat = Formats[input.ConsumeIntegralInRange(0, 7)];
    settings.OtherSeparator = Separators[input.ConsumeIntegralInRange(0, 3)];
    settings.AdjustTime = settings.StartDate = 1'700'000'000;
}

struct Run {
    Run(const std::u16string& path, const CCsvImportSettings& chosen) : Filter(path.c_str()) {
        Filter.DeviceHost = &Host;
        Filter.TimeContext = &Host;
        const std::u16string description = Settings().Description;
        Settings() = chosen;
        Settings().Description = description;
    }
    CCsvImportSettings& Settings() { return const_cast<CCsvImportSettings&>(Filter.GetSettings()); }

    // All that the host gets, as text.
    std::string Import() {
        std::uint32_t progress = 0;
        if (Filter.BeginImport()) {
            while (Filter.ImportNextLine(&progress)) Check(progress <= 100, "a percentage");
        }
        Filter.EndImport();
        std::string text = Host.Calls + Host.DescribeSignals() + Host.DescribeSamples();
        for (const auto& message : Filter.TakeMessages()) text += Utf16ToUtf8(message.Text) + '\n';
        for (const auto& signal : Host.Signals) Check(signal->TimesRise, "times rise strictly");
        Check(Host.Calls.empty() || Host.Calls.ends_with("finish\n"), "the device is handed back");
        Host.Signals.clear();
        Host.Calls.clear();
        return text;
    }

    FakeHost Host;
    CCsvImportFilter Filter;
};

// Imports every column as text under times of their own, and compares with what the preview showed.
void CheckPreview(Run& run) {
    CCsvImportSettings& settings = run.Settings();
    settings.AutoFormat = 0;
    settings.DateSetting = DateNone;
    settings.TimeSetting = TimeInterval;
    settings.Adjust = 0;
    settings.IntervalUnit = 2;
    settings.IntervalValue = 1.0;
    Preview preview;
    CStdioFileEx file;
    CFileException error(false);
    Check(file.Open(run.Filter.FilePath.c_str(), CFile::modeRead, &error), "the file opens");
    settings.AnalyzeColumns(file, &preview, nullptr);
    file.Close();
    std::vector<std::string> expected(static_cast<std::size_t>(settings.ColumnCount));
    for (std::size_t row = 0; row < preview.Rows.size(); ++row) {
        const auto& cells = preview.Rows[row];
        // A row that is blank but not empty is one for the preview and none for the run.
        if (cells.size() == 1 && TrimWhiteSpace(Utf8ToUtf16(cells[0])).empty()) break;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            expected[i] += i < cells.size() ? "\"" + cells[i] + "\"" : "none(0)";
            expected[i] += ' ';
        }
    }
    for (int i = 0; i < settings.ColumnCount; ++i) {
        settings.GetColumn(i).ImportColumn = true;
        settings.GetColumn(i).UserType = CsvTypeString;
    }
    std::uint32_t progress = 0;
    if (run.Filter.BeginImport()) {
        while (run.Filter.ImportNextLine(&progress)) continue;
        Check(run.Host.Signals.size() == expected.size(), "a signal per column of the preview");
        for (std::size_t i = 0; i < expected.size(); ++i) {
            std::string stored;
            for (const std::string& value : run.Host.Signals[i]->Values) stored += value + ' ';
            Check(stored.starts_with(expected[i]), "the preview shows what the import stores");
        }
    }
    run.Filter.EndImport();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzHome home;
    FuzzedDataProvider input(data, size);
    CCsvImportSettings settings;
    ChooseSettings(settings, input);
    const std::size_t mostBytes = input.ConsumeIntegralInRange<std::size_t>(1, 99);
    const std::u16string path = home.Write(input.ConsumeRemainingBytesAsString());
    Run run(path, settings), again(path, settings);
    const bool passed = run.Filter.AnalyzeFile();
    Check(passed == again.Filter.AnalyzeFile() && !run.Filter.HasMessages(), "an analysis says nothing");
    const std::string imported = run.Import();
    FileFaults disk;
    disk.MostBytes = mostBytes;
    Check(imported == again.Import(), "another filter finds the same");
    CheckPreview(again);
    Check(disk.Descriptors.empty(), "every file is closed");
    return 0;
}
