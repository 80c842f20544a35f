// A filter's life: analysing, beginning and ending, and whose context it leaves.
#include "kit/CheckRows.h"
#include "kit/ImportRun.h"
#include "plugin/CsvImportFactory.h"
#include "resources/ModuleResources.h"

namespace {

const std::string Created = "create data.csv/Textdatei mit Trennzeichen/0\n";
const std::string NoValidFile =
    "!-1: Die Quelldatei ist keine gültige CSV-Datei entsprechend den eingestellten Formatvorgaben.\n";

TEST(Filter, AnswersTheHostAndAnalysesTheFileAtTheMoment) {
    ImportRun run("Title\na,b\n5,x\n", {"AutoFormat=1"}, "100%s %i.csv");
    EXPECT_EQ(run.Filter->GetFileFilter(), u"Textdatei mit Trennzeichen|*.csv;*.txt");
    EXPECT_TRUE(run.Filter->HasOptionDialog() && !run.Filter->TryFastImport(u"target", true));
    const std::u16string text = run.Settings().Description;
    EXPECT_TRUE(text.starts_with(u"Importiert am ") && text.ends_with(u" aus " + run.Filter->FilePath));
    EXPECT_TRUE(run.Filter->AnalyzeFile());
    EXPECT_EQ(run.Column(1).DetectedName, u"b");
    run.Folder.Write("100%s %i.csv", "x,y\n1.5,abc\n");
    EXPECT_EQ(run.Import(), "x: 1=1.5\ny: 1=2748\n");
    EXPECT_EQ(run.Host.Calls, "create 100%s %i.csv/Textdatei mit Trennzeichen/0\nfinish\n");
}

// Whether there is a line to analyse; a run needs a column with a type besides.
TEST(Filter, ReportsAFileWithoutColumns) {
    const auto analyze = [](const std::string& bytes) {
        ImportRun run(bytes);
        run.Column(5).ImportColumn = run.Column(1).ImportColumn = false;
        const bool passed = run.Filter->AnalyzeFile();
        EXPECT_EQ(run.Messages(), "");
        EXPECT_EQ(run.Import() + run.Host.Calls, NoValidFile);
        EXPECT_FALSE(BreakReading(run.Folder.NativePath("data.csv"))) << "still open";
        return passed ? "yes" : "no";
    };
    CheckRows("->no|\uFEFF->no|\n->yes|\na;b\n1;2\n->yes|a;b\n->yes|a;b->yes|a;b\n\n1;2\n->yes", analyze);
    ImportRun unchecked("a\n1\n");
    EXPECT_TRUE(unchecked.Filter->AnalyzeFile());
    unchecked.Column(0).ImportColumn = false;
    EXPECT_EQ(unchecked.Import() + unchecked.Host.Calls, NoValidFile);
}

TEST(Filter, ReportsAFileThatCantBeReadOnce) {
    ImportRun run("a\n1\n");
    CStdioFileEx other;
    CFileException error(false);
    const std::u16string good = run.Filter->FilePath;
    ASSERT_TRUE(other.Open(good.c_str(), CFile::modeRead | CFile::shareExclusive, &error));
    for (const auto& path : {run.Folder.Path("missing"), run.Folder.Path(""), UnreadableFile(), good}) {
        run.Filter->FilePath = path;
        EXPECT_FALSE(run.Filter->AnalyzeFile());
        EXPECT_EQ(run.Messages() + run.Import() + run.Host.Calls, ReadError);
    }
    other.Close();
    EXPECT_EQ(run.Import(), "a: 1=255\n");
}

TEST(Filter, NeedsADeviceAndItsSignals) {
    const auto outcome = [](bool hasDevice, std::size_t refusedSignal) {
        ImportRun run("a;b;c\n5;6;7\n");
        run.Host.HasDevice = hasDevice;
        run.Host.RefusedSignal = refusedSignal;
        EXPECT_FALSE(run.Filter->BeginImport());
        EXPECT_EQ(run.Host.Calls, Created);
        run.Filter->EndImport();
        EXPECT_FALSE(BreakReading(run.Folder.NativePath("data.csv"))) << "still open";
        return std::to_string(run.Host.Signals.size()) + run.Messages() + run.Host.Calls;
    };
    const std::string writeError = "!-1: Beim Schreiben in den Datenspeicher ist ein Fehler aufgetreten.\n";
    EXPECT_EQ(outcome(false, 0), "0!-1: Für die Quelldatei konnte kein Gerät angelegt werden.\n" + Created);
    EXPECT_EQ(outcome(true, 1), "0" + writeError + Created + "finish\n");
    EXPECT_EQ(outcome(true, 3), "2" + writeError + Created + "finish\n");
}

TEST(Filter, MayBeEndedAtAnyTimeAndBegunAgain) {
    ImportRun run("t;a;b\n5;6;7\n", {"TimeSetting=0", "TimestampFormat=[ns]", "Adjust=1", "AdjustMode=0",
                                     "AdjustTime=2020-02-01 00:00:01"});
    run.Filter->EndImport();
    std::string samples = "a: 1000000001=6\nb: 1000000001=7\n";
    EXPECT_EQ(run.Import(), samples);
    run.Filter->EndImport();
    EXPECT_EQ(run.Host.Calls, Created + "finish\n");
    // Another first row, and a column less: neither the old times nor the old signals count.
    run.Folder.Write("data.csv", "t;a;b\n8;9;10\n");
    run.Column(1).ImportColumn = false;
    EXPECT_EQ(run.Import(), samples += "b: 1000000001=10\n");
    ASSERT_TRUE(run.Filter->BeginImport());
    run.Filter.reset();
    EXPECT_EQ(run.Host.Calls, Created + "finish\n" + Created + "finish\n" + Created);
}

TEST(Filter, TakesOverSettingsAndGivesTheCallersContextBack) {
    ModuleState caller({});
    const AFX_MAINTAIN_STATE2 context(caller);
    const auto check = [&](auto&&...) { EXPECT_EQ(GetCurrentModule(), &caller); };
    ImportRun run("a\n5\nx\n"), empty("", {"IntervalValue=10"});
    check(std::unique_ptr<CImportFilter>(CreateCsvImportFilter(u"/no/file.csv")));
    check(run.Filter->GetFileFilter());
    check(run.Filter->HasOptionDialog());
    check(run.Filter->AnalyzeFile());
    check(empty.Filter->AnalyzeFile());
    empty.Column(0).UserName = u"mine";
    check((run.Filter->CopyOptionsFrom(*empty.Filter), 0));
    check((run.Filter->CopyOptionsFrom(*run.Filter), 0));
    EXPECT_EQ(run.Settings().Description, empty.Settings().Description);
    check(empty.Filter->BeginImport());
    check(run.Filter->BeginImport());
    for (int row = 0; row < 3; ++row) check(run.Next());
    check((run.Filter->EndImport(), 0));
    EXPECT_EQ(run.Host.DeviceContext, &CsvImportModule());
    EXPECT_EQ(run.Host.DescribeSamples(), "mine: 1=\"5\" 11=\"x\"\n");
}

}  // namespace
