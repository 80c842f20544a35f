#include <gtest/gtest.h>

#include "kit/ColumnText.h"
#include "kit/ImportRun.h"
#include "kit/ReadFault.h"

namespace {

TEST(AnalyzeFile, SettlesFormatAndColumns) {
    ImportRun run("Title\na,b\n5,x\n", {"AutoFormat=1"});
    EXPECT_TRUE(run.Filter->AnalyzeFile());
    EXPECT_EQ(DescribeColumns(run.Settings()), "a:Integer b:Char");
    EXPECT_FALSE(run.SourceIsOpen());
}

TEST(AnalyzeFile, NeedsALineButNoColumn) {
    struct Case {
        const char* Bytes;
        SettingList Settings;
        bool Passes;
    };
    const Case cases[] = {
        {"", {}, false},       {"\xEF\xBB\xBF", {}, false},
        {"\n", {}, true},      {"\n", {"AutoFormat=1"}, true},
        {"\na;b\n", {}, true}, {"a;b\n", {"FirstLine=9"}, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Bytes);
        ImportRun run(c.Bytes, c.Settings);
        EXPECT_EQ(run.Filter->AnalyzeFile(), c.Passes);
        EXPECT_EQ(run.Messages(), "");
    }
}

TEST(AnalyzeFile, FailsSilentlyOnAFileThatCantBeRead) {
    ImportRun run("a;b\n1;2\n");
    const std::u16string good = run.Filter->FilePath;
    run.Filter->FilePath = run.Folder.Path("missing.csv");
    EXPECT_FALSE(run.Filter->AnalyzeFile());
    run.Filter->FilePath = run.Folder.Path("");
    EXPECT_FALSE(run.Filter->AnalyzeFile());
    run.Filter->FilePath = UnreadableFile();
    EXPECT_FALSE(run.Filter->AnalyzeFile());
    EXPECT_FALSE(run.SourceIsOpen());
    run.Filter->FilePath = good;
    CStdioFileEx other;
    CFileException error(false);
    ASSERT_TRUE(other.Open(good.c_str(), CFile::modeRead | CFile::shareExclusive, &error));
    EXPECT_FALSE(run.Filter->AnalyzeFile());
    EXPECT_EQ(run.Messages(), "");
    // Nothing of the failures stays.
    other.Close();
    EXPECT_TRUE(run.Filter->AnalyzeFile());
}

}  // namespace
