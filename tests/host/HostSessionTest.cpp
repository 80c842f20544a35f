// What a session makes of a filter's run.
#include "host/HostSession.h"

#include <gtest/gtest.h>

#include "host/Reading.h"
#include "host/SettingText.h"
#include "kit/Workdir.h"
#include "platform/framework/Text.h"
#include "plugin/CsvImportFilter.h"

namespace {

using namespace kelvarin;

struct LeftOutCase {
    std::vector<int> LeftOut;  // columns that the user doesn't want, from 0
    std::string Signals;       // name@column of each
};

TEST(HostSession, NamesTheSourceColumnOfEachSignalWhateverIsLeftOut) {
    const LeftOutCase cases[] = {
        {{}, "n@0 v@1 s@2 w@4 "}, {{1}, "n@0 s@2 w@4 "}, {{0, 2}, "v@1 w@4 "},
        {{0, 1, 2}, "w@4 "},      {{4}, "n@0 v@1 s@2 "},
    };
    CImportDllInfo info{nullptr, nullptr,
                        [](const char16_t* path) -> CImportFilter* { return new CCsvImportFilter(path); }};
    const ModuleLoader module{info};
    SettingsLayer layer;
    for (const auto& [key, value] : kelvarin::SettingList{{"AutoFormat", "0"},
                                                          {"Separator", "0"},
                                                          {"DateSetting", "2"},
                                                          {"TimeColumn", "4"},
                                                          {"TimestampFormat", "[s]"}})
        layer.Set(key, value);
    Workdir folder;
    const std::u16string path = folder.Write("data.csv", "n;v;s;t;w\n1;2,5;a;1;7\n2;3,5;b;2;8\n");
    for (const LeftOutCase& c : cases) {
        SCOPED_TRACE(c.Signals);
        RunOptions options;
        options.KeepSamples = KeepAll;
        HostSession session(module, path, options);
        ASSERT_TRUE(session.Filter().AnalyzeFile());
        auto& settings = const_cast<CCsvImportSettings&>(*SettingsOf(session.Filter()));
        for (const int column : c.LeftOut) settings.GetColumn(column).ImportColumn = false;
        EXPECT_EQ(session.Run().Lines, 2);
        std::string signals;
        for (const auto& signal : session.Device()->Signals) {
            const store::SignalDescription& description = signal->Description();
            signals += Utf16ToUtf8(description.Symbol) + "@" + std::to_string(description.Column) + " ";
            EXPECT_EQ(signal->Summary().Count, 2) << Utf16ToUtf8(description.Name);
        }
        EXPECT_EQ(signals, c.Signals);
    }
}

}  // namespace
