#include <gtest/gtest.h>

#include "kit/ImportRun.h"
#include "kit/ReadFault.h"

namespace {

const char* const Created = "create \"data.csv\" \"Textdatei mit Trennzeichen\" 0\n";

TEST(BeginImport, ReportsAFileWithoutColumns) {
    struct Case {
        const char* Bytes;
        SettingList Settings;
    };
    const Case cases[] = {
        {"", {}},
        {"\n", {}},
        {"\na;b\n1;2\n", {}},
        {"a;b\n1;2\n", {"FirstLine=3"}},
        {"a;b\n1;2\n", {"FirstLine=9"}},
        // A header alone gives its columns no type.
        {"a;b\n", {}},
        {"a;b", {}},
        {"a;b\n\n1;2\n", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Bytes);
        ImportRun run(c.Bytes, c.Settings);
        EXPECT_FALSE(run.Filter->BeginImport());
        EXPECT_EQ(run.Messages(), NoValidFile);
        EXPECT_EQ(run.Host.DeviceCalls(), "");
        EXPECT_FALSE(run.SourceIsOpen());
    }
}

TEST(BeginImport, ReportsUncheckedColumnsAsNoColumns) {
    ImportRun run("a;b\n1;2\n");
    run.Filter->AnalyzeFile();
    for (const int column : {0, 1}) run.Settings().GetColumn(column).ImportColumn = false;
    EXPECT_FALSE(run.Filter->BeginImport());
    EXPECT_EQ(run.Messages(), NoValidFile);
    EXPECT_EQ(run.Host.DeviceCalls(), "");
}

TEST(BeginImport, ReportsAFileThatCantBeReadOnce) {
    ImportRun run("a;b\n1;2\n");
    for (const std::u16string& path :
         {run.Folder.Path("missing.csv"), run.Folder.Path(""), UnreadableFile()}) {
        run.Filter->FilePath = path;
        EXPECT_EQ(run.Import(), ReadError);
    }

    ImportRun shared("a;b\n1;2\n");
    CStdioFileEx other;
    CFileException error(false);
    ASSERT_TRUE(other.Open(shared.Filter->FilePath.c_str(), CFile::modeRead | CFile::shareExclusive, &error));
    EXPECT_EQ(shared.Import(), ReadError);
    EXPECT_EQ(shared.Host.DeviceCalls(), "");
}

TEST(BeginImport, NeedsADevice) {
    ImportRun run("a;b\n1;2\n");
    run.Host.HasDevice = false;
    EXPECT_FALSE(run.Filter->BeginImport());
    EXPECT_EQ(run.Messages(), NoDevice);
    EXPECT_TRUE(run.SourceIsOpen());
    run.Filter->EndImport();
    EXPECT_FALSE(run.SourceIsOpen());
    EXPECT_EQ(run.Host.DeviceCalls(), Created);
}

TEST(BeginImport, EndsAtASignalThatIsRefused) {
    for (const int refused : {1, 2, 3}) {
        SCOPED_TRACE(refused);
        ImportRun run("a;b;c\n5;6;7\n");
        run.Host.RefusedSignal = refused;
        EXPECT_FALSE(run.Filter->BeginImport());
        EXPECT_EQ(run.Messages(), WriteError);
        EXPECT_EQ(run.Host.SignalCount(), static_cast<std::size_t>(refused - 1));
        EXPECT_TRUE(run.SourceIsOpen());
        EXPECT_EQ(run.Host.DeviceCalls(), Created);
        run.Filter->EndImport();
        EXPECT_FALSE(run.SourceIsOpen());
        EXPECT_EQ(run.Host.DeviceCalls(), std::string(Created) + "finish\n");
    }
}

TEST(BeginImport, NamesTheDeviceAfterTheFile) {
    ImportRun run("a;b\n5;6\n", {}, "Meß 1.2;x.csv.txt");
    EXPECT_TRUE(run.Filter->BeginImport());
    EXPECT_EQ(run.Host.DeviceCalls(), "create \"Meß 1.2;x.csv.txt\" \"Textdatei mit Trennzeichen\" 0\n");
}

// The number of the first data line, by way of the message of a row without time.
TEST(BeginImport, StandsBeforeTheFirstDataLine) {
    struct Case {
        const char* FirstLine;
        const char* Header;
        int Line;
    };
    constexpr Case Cases[] = {
        {"FirstLine=1", "ImportHeader=1", 2},
        {"FirstLine=1", "ImportHeader=0", 1},
        {"FirstLine=3", "ImportHeader=1", 4},
        {"FirstLine=3", "ImportHeader=0", 3},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(std::string(c.FirstLine) + ' ' + c.Header);
        ImportRun run("5;1\n5;2\n5;3\n5;4\n5;5\n",
                      {"TimeSetting=0", "TimestampFormat=-", c.FirstLine, c.Header});
        ASSERT_TRUE(run.Filter->BeginImport());
        ASSERT_TRUE(run.Next());
        EXPECT_EQ(run.Messages(), RowWithoutTime(c.Line));
    }
}

TEST(BeginImport, BeginsAnewAfterAnEnd) {
    ImportRun run("t;a;b\n5;6;7\n", {"TimeSetting=0", "TimestampFormat=[ns]", "Adjust=1", "AdjustMode=0",
                                     "AdjustTime=2020-02-01 00:00:01"});
    EXPECT_EQ(run.Import(), "a: 1000000001=6\nb: 1000000001=7\n");
    EXPECT_EQ(run.Host.DeviceCalls(), std::string(Created) + "finish\n");
    // Another first row, and a column less: neither the old times nor the old signals count.
    run.Folder.Write("data.csv", "t;a;b\n8;9;10\n");
    run.Settings().GetColumn(1).ImportColumn = false;
    EXPECT_EQ(run.Import(), "a: 1000000001=6\nb: 1000000001=7\nb: 1000000001=10\n");
    run.Settings().TimeColumn = 3;
    EXPECT_EQ(run.Import(), "a: 1000000001=6\nb: 1000000001=7\nb: 1000000001=10\nt: 1000000001=8\n");
}

}  // namespace
