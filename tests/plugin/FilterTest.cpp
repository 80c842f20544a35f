// The filter as an object: what it answers, what lasts, and whose context it leaves.
#include <gtest/gtest.h>

#include <functional>

#include "kit/ColumnText.h"
#include "kit/ImportRun.h"
#include "platform/framework/Module.h"
#include "platform/framework/Text.h"
#include "plugin/CsvImportFactory.h"
#include "resources/ModuleResources.h"

namespace {

TEST(Filter, AnswersTheHostsQuestions) {
    ImportRun run("a\n5\n");
    EXPECT_EQ(run.Filter->GetFileFilter(), u"Textdatei mit Trennzeichen|*.csv;*.txt");
    EXPECT_TRUE(run.Filter->HasOptionDialog());
    EXPECT_FALSE(run.Filter->TryFastImport(u"target", true));
    EXPECT_FALSE(run.Filter->TryFastImport(u"", false));
    EXPECT_EQ(run.Messages(), "");
}

TEST(Filter, DescribesItsSource) {
    ImportRun run("a\n5\n", {}, "100%s %i.csv");
    const std::string text = Utf16ToUtf8(run.Settings().Description);
    const std::string source = " aus " + Utf16ToUtf8(run.Filter->FilePath);
    EXPECT_EQ(text.rfind("Importiert am ", 0), 0U) << text;
    EXPECT_EQ(text.substr(text.size() - source.size()), source);
}

TEST(Filter, IsMadeByTheFactoryAndOpensNothing) {
    const std::unique_ptr<CImportFilter> filter(CreateCsvImportFilter(u"/no/such/file.csv"));
    EXPECT_EQ(filter->FilePath, u"/no/such/file.csv");
    EXPECT_EQ(TakeMessageText(*filter), "");
}

TEST(Filter, MayBeEndedAtAnyTime) {
    ImportRun run("a\n5\n6\n");
    run.Filter->EndImport();
    run.Filter->EndImport();
    EXPECT_EQ(run.Host.DeviceCalls(), "");
    ASSERT_TRUE(run.Filter->BeginImport());
    ASSERT_TRUE(run.Next());
    run.Filter->EndImport();
    run.Filter->EndImport();
    EXPECT_EQ(run.Host.DeviceCalls(), "create \"data.csv\" \"Textdatei mit Trennzeichen\" 0\nfinish\n");
    EXPECT_EQ(run.Host.DescribeSamples(), "a: 1=5\n");
}

TEST(Filter, TakesADeviceBackOnlyWhenTold) {
    ImportRun run("a\n5\n");
    ASSERT_TRUE(run.Filter->BeginImport());
    run.Filter.reset();
    EXPECT_EQ(run.Host.DeviceCalls(), "create \"data.csv\" \"Textdatei mit Trennzeichen\" 0\n");
}

TEST(Filter, TakesOverAllSettingsOfAnother) {
    ImportRun first("a;b\n5;6\n", {"IntervalValue=10"}, "first.csv");
    ASSERT_TRUE(first.Filter->AnalyzeFile());
    first.Settings().GetColumn(0).UserName = u"mine";
    first.Settings().GetColumn(1).ImportColumn = false;

    ImportRun second("c;d\n7;8\n9;9\n", {}, "second.csv");
    second.Filter->CopyOptionsFrom(*first.Filter);
    EXPECT_EQ(second.Settings().Description, first.Settings().Description);
    EXPECT_EQ(DescribeColumns(second.Settings()), "mine:Integer -b:Integer");
    EXPECT_EQ(second.Import(), "mine: 1=7 11=9\n");
    // A copy of its own.
    EXPECT_EQ(DescribeColumns(first.Settings()), "mine:Integer -b:Integer");
    first.Filter->CopyOptionsFrom(*first.Filter);
    EXPECT_EQ(first.Import(), "mine: 1=5\n");
}

TEST(Filter, KeepsTheColumnsOfTheFileAtTheMoment) {
    ImportRun run("a;b\n5;6\n", {"AutoFormat=1"});
    ASSERT_TRUE(run.Filter->AnalyzeFile());
    run.Folder.Write("data.csv", "x,y,z\n1.5,abc,7\n");
    EXPECT_EQ(run.Import(), "x: 1=1.5\ny: 1=2748\nz: 1=7\n");
}

TEST(Filter, GivesTheCallersContextBack) {
    ModuleState caller({});
    const AFX_MAINTAIN_STATE2 context(caller);
    ImportRun good("a\n5\nx\n"), other("b\n6\n"), empty(""), broken("a\n5\n");
    broken.Host.HasDevice = false;
    struct Call {
        const char* Name;
        std::function<void()> Run;
    };
    const Call calls[] = {
        {"the constructor", [] { delete CreateCsvImportFilter(u"x.csv"); }},
        {"GetFileFilter", [&] { good.Filter->GetFileFilter(); }},
        {"HasOptionDialog", [&] { good.Filter->HasOptionDialog(); }},
        {"AnalyzeFile", [&] { EXPECT_TRUE(good.Filter->AnalyzeFile()); }},
        {"AnalyzeFile on nothing", [&] { EXPECT_FALSE(empty.Filter->AnalyzeFile()); }},
        {"CopyOptionsFrom", [&] { good.Filter->CopyOptionsFrom(*other.Filter); }},
        {"BeginImport", [&] { EXPECT_TRUE(good.Filter->BeginImport()); }},
        {"BeginImport on nothing", [&] { EXPECT_FALSE(empty.Filter->BeginImport()); }},
        {"BeginImport without device", [&] { EXPECT_FALSE(broken.Filter->BeginImport()); }},
        {"ImportNextLine", [&] { EXPECT_TRUE(good.Next()); }},
        {"ImportNextLine with a message", [&] { EXPECT_TRUE(good.Next()); }},
        {"ImportNextLine at the end", [&] { EXPECT_FALSE(good.Next()); }},
        {"EndImport", [&] { good.Filter->EndImport(); }},
        {"TryFastImport", [&] { good.Filter->TryFastImport(u"x", false); }},
    };
    for (const Call& call : calls) {
        call.Run();
        EXPECT_EQ(GetCurrentModule(), &caller) << call.Name;
    }
    EXPECT_EQ(good.Host.DeviceContext, &CsvImportModule());
}

}  // namespace
