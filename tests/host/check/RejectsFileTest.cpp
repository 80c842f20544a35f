// The file of rejected rows: which bytes come over.
#include "host/check/RejectsFile.h"

#include <gtest/gtest.h>

#include "kit/Workdir.h"

namespace {

using namespace kelvarin;

struct Case {
    const char* Name;
    std::string File;
    std::uint64_t FirstDataLine;
    std::vector<std::uint64_t> Lines;
    std::string Copy;
};

TEST(RejectsFile, HoldsWhatIsAboveTheDataAndTheChosenLines) {
    using namespace std::string_literals;
    const Case cases[] = {
        {"no line", "a;b\n1;2\n", 2, {}, "a;b\n"},
        {"one, and the last without an end", "a;b\n1;2\n3;4\n5;6", 2, {2, 4}, "a;b\n1;2\n5;6"},
        {"a preamble with blank lines", "x\n\na;b\n1;2\n3;4\n", 4, {5}, "x\n\na;b\n3;4\n"},
        {"no header", "1;2\n3;4\n", 1, {2}, "3;4\n"},
        {"ends of two bytes", "a\r\n1\r\n2\r\n", 2, {3}, "a\r\n2\r\n"},
        {"ends of the other byte", "a\r1\r2\r", 2, {2}, "a\r1\r"},
        {"a mark of UTF-8 above rows without a header",
         "\xEF\xBB\xBF"
         "1\n2\n",
         1,
         {2},
         "\xEF\xBB\xBF"
         "2\n"},
        {"UTF-16",
         "\xFF\xFE"
         "1\0\n\0"
         "2\0\n\0"
         "3\0\n\0"s,
         1,
         {1, 3},
         "\xFF\xFE"
         "1\0\n\0"
         "3\0\n\0"s},
        {"bytes of no encoding", "\x80\n\xFF\n\xFE\n", 2, {3}, "\x80\n\xFE\n"},
        {"a line that is not there", "a\n1\n", 2, {9}, "a\n"},
        {"a line longer than a block",
         "a\n" + std::string(200'000, 'x') + "\n1\n",
         2,
         {2},
         "a\n" + std::string(200'000, 'x') + "\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        const Workdir folder;
        const std::u16string from = folder.Write("data.csv", c.File);
        check::LineSet lines;
        for (const std::uint64_t line : c.Lines) lines.Add(line);
        EXPECT_EQ(check::WriteRejects(from, folder.Path("copy.csv"), c.FirstDataLine, lines), "");
        EXPECT_EQ(folder.Read("copy.csv"), c.Copy);
    }
}

TEST(RejectsFile, SaysWhyItCouldNotBeWritten) {
    const Workdir folder;
    const std::u16string from = folder.Write("data.csv", "a\n1\n");
    EXPECT_NE(check::WriteRejects(from, folder.Path("no/copy.csv"), 2, {}), "");
    EXPECT_NE(check::WriteRejects(folder.Path("missing.csv"), folder.Path("copy.csv"), 2, {}), "");
}

TEST(LineSet, CountsEachLineOnce) {
    check::LineSet lines;
    for (const std::uint64_t line : {5u, 2u, 5u}) lines.Add(line);
    EXPECT_EQ(lines.Count(), 2u);
    EXPECT_EQ(lines.End(), 6u);
    EXPECT_TRUE(lines.Has(2) && lines.Has(5));
    EXPECT_FALSE(lines.Has(3) || lines.Has(1000));
}

}  // namespace
