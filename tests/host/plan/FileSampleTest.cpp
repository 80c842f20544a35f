// Lines from all over files, short and long.
#include "host/plan/FileSample.h"

#include <gtest/gtest.h>

#include <string>

#include "contract/StdioFileEx.h"
#include "kit/Workdir.h"
#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

std::string NumberedLines(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i) text += std::to_string(i) + ";value\n";
    return text;
}

TEST(FileSample, AShortFileIsReadWhole) {
    struct SampleCase {
        const char* Text;
        std::size_t Lines;
    };
    const SampleCase cases[] = {{"", 0},           {"a", 1},      {"a\n", 1},   {"a\n\nb\n", 3},
                                {"a\r\nb\r\n", 2}, {"a\rb\r", 2}, {"\n\n\n", 3}};
    const Workdir folder;
    for (const SampleCase& c : cases) {
        const FileSample sample = SampleFile(folder.Write("a.csv", c.Text));
        EXPECT_EQ(sample.Lines.size(), c.Lines) << c.Text;
        EXPECT_TRUE(sample.IsWhole) << c.Text;
        for (std::size_t i = 0; i < sample.Lines.size(); ++i)
            EXPECT_EQ(sample.Lines[i].Number, i + 1) << c.Text;
    }
}

// Numbers and texts of the lines, "2 a b|3 c".
std::string LinesInWords(const FileSample& sample) {
    std::string words;
    for (const SampleLine& line : sample.Lines)
        words += std::to_string(line.Number) + ' ' + Utf16ToUtf8(line.Text) + '|';
    return words;
}

TEST(FileSample, NamesWithLineEndsInQuotesAreOneLine) {
    struct JoinCase {
        const char* Text;
        const char* Lines;
    };
    const JoinCase cases[] = {
        {"\"Date\n& time\",\"T\n(°C)\"\n1,2\n", "3 \"Date & time\",\"T (°C)\"|4 1,2|"},
        {"#\na;\"T\n(°C)\";b\n1;2;3\n", "1 #|3 a;\"T (°C)\";b|4 1;2;3|"},
        // Inches, and quotes that nothing closes.
        {"pipe 5\"\na,b\n1,2\n", "1 pipe 5\"|2 a,b|3 1,2|"},
        {"a,\"b\n1,2\n", "1 a,\"b|2 1,2|"},
        // Rows.
        {"a,\"b\n1,2\n3\",4\n5,\"6\n7\",8\n", "1 a,\"b|2 1,2|3 3\",4|4 5,\"6|5 7\",8|"},
    };
    const Workdir folder;
    for (const JoinCase& c : cases)
        EXPECT_EQ(LinesInWords(SampleFile(folder.Write("a.csv", c.Text))), c.Lines) << c.Text;
}

TEST(FileSample, AsManyLinesAsTheHeadTakesAreAWholeFile) {
    const Workdir folder;
    EXPECT_TRUE(SampleFile(folder.Write("a.csv", NumberedLines(2000))).IsWhole);
    EXPECT_TRUE(SampleFile(folder.Write("b.csv", NumberedLines(3000))).IsWhole) << "the rest is short";
    EXPECT_FALSE(SampleFile(folder.Write("b.csv", NumberedLines(4000))).IsWhole);
}

// Lines from places all over a file, and the last; none twice, all in order, none cut.
int GapsIn(const FileSample& sample, int count) {
    int last = 0;
    int gaps = 0;
    for (const SampleLine& line : sample.Lines) {
        const int number = std::stoi(Utf16ToUtf8(line.Text));
        EXPECT_EQ(Utf16ToUtf8(line.Text), std::to_string(number) + ";value");
        EXPECT_GT(number, last);
        EXPECT_EQ(line.IsAfterGap, number > last + 1) << number;
        gaps += line.IsAfterGap;
        last = number;
    }
    EXPECT_EQ(last, count);
    return gaps;
}

TEST(FileSample, OfALongFileLinesFromAllOverAreRead) {
    constexpr int Count = 300'000;
    const Workdir folder;
    const FileSample sample = SampleFile(folder.Write("a.csv", NumberedLines(Count)));
    EXPECT_FALSE(sample.IsWhole);
    EXPECT_LT(sample.Lines.size(), 6000U);
    EXPECT_GT(GapsIn(sample, Count), 30);
    EXPECT_EQ(sample.Lines[sample.Head - 1].Number, sample.Head);
}

// Where the rest is not much longer than what is read of it, the places lie close together.
TEST(FileSample, OfAFileOfAFewThousandLinesNoneIsReadTwice) {
    const Workdir folder;
    for (int count = 3000; count < 9000; count += 250)
        GapsIn(SampleFile(folder.Write("a.csv", NumberedLines(count))), count);
}

TEST(FileSample, OfALongFileInUtf16TheHeadIsRead) {
    std::string text = "\xFF\xFE";
    for (const char c : NumberedLines(5000)) text += {c, '\0'};
    const Workdir folder;
    const FileSample sample = SampleFile(folder.Write("a.csv", text));
    EXPECT_FALSE(sample.IsWhole);
    ASSERT_FALSE(sample.Lines.empty());
    EXPECT_EQ(sample.Lines.size(), sample.Head);
    EXPECT_EQ(sample.Lines[4].Text, u"5;value");
}

TEST(FileSample, ALineWithoutAnEndIsCut) {
    const Workdir folder;
    const FileSample sample = SampleFile(folder.Write("a.csv", std::string(1'000'000, 'x')));
    ASSERT_EQ(sample.Lines.size(), 1U);
    EXPECT_EQ(sample.Lines[0].Text.size(), 64U * 1024);
}

TEST(FileSample, AMissingFileIsRefused) {
    const Workdir folder;
    EXPECT_THROW(
        try { SampleFile(folder.Path("none.csv")); } catch (CFileException* error) {
            error->Delete();
            throw std::runtime_error("refused");
        },
        std::runtime_error);
}

}  // namespace
