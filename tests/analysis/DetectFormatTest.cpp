#include "kit/CheckRows.h"
#include "kit/MemoryFile.h"
#include "kit/TestProfile.h"

namespace {

// "; line 1 with header" is ";1h", "m" behind a format that merges.
std::string FormatOf(int separator, int firstLine, int header, int merge = 0) {
    return ";,\t _"[separator] + std::to_string(firstLine) + (header ? "h" : "") + (merge ? "m" : "");
}
std::string Detected(const CCsvImportSettings& s) {
    return FormatOf(s.DetectedSeparator, s.DetectedFirstLine, s.DetectedHeader);
}
std::string Live(const CCsvImportSettings& s) {
    return FormatOf(s.Separator, s.FirstLine, s.ImportHeader, s.MergeSeparators);
}
std::string Detect(const std::u16string& text) {
    CCsvImportSettings settings = MakeSettings();
    MemoryFile file(text);
    if (!settings.DetectFormat(file)) return "no line";
    EXPECT_EQ(Live(settings), Detected(settings) + (settings.DetectedSeparator == 3 ? "m" : ""));
    return Detected(settings);
}

TEST(DetectFormat, FindsSeparatorFirstLineAndHeader) {
    CheckRows(
        // Equal runs: the order of preference decides.
        "->no line|a,b->;1|1,2->;1|1;2,3\n4;5,6->;1|1,2\t3\n4,5\t6->,1|1\t2 3\n4\t5 6->\t1|"
        // The separator that is regular from the earliest line on wins.
        "a,b\n1,2->,1h|a\tb\n1\t2->\t1h|a  b\n1  2-> 1h|a b\nx          2-> 1h|a,b\n1;2,3\n4;5,6->,1h|"
        "Title: foo\nDate: 2020-01-01\na;b;c\n1;2;3\n4;5;6->;3h|Title\nDate\na;b;c\n1;2;3\n4;5;6->;3h|"
        // The line above the first data line is the header.
        "a;b;c\nx;y;z\n1;2;3->;2h|1;2;3\n4;5;6->;1|5\na;b\n1;2->;2h|"
        // A quarter of the cells, rounded up, makes a data line.
        "t;1;2;3\n4;5;6;7->;1|a;b;c;d\na;b;c;1->;1h|a;b;c;d;1\na;b;c;d;2->;1|a;b;c;d;e\na;b;c;1;2->;1h|"
        "a;b;c;d;e;f;g;8;9\na;b;c;d;e;f;7;8;9->;1h|x;y\n1 kg;a\n1;a->;2h|"
        // Quotes hide separators; white space at the ends separates nothing.
        "it's;1;2\n3;4;5\n6;7;8->;2|\"a,b\",c\n1,2->,1h| a,b \n 1,2 \n->,1h|"
        // Blank lines break no run; in the second pass they are lines like any other.
        "\n->;1|\n \n\t\n->;1|a;b\n\n1;2->;2h|a,b\n \n1,2->,2h|\na,b\n1,2->,2h",
        Detect);
}

TEST(DetectFormat, ReadsAHundredLinesTwiceAtMost) {
    std::u16string singles, pairs, data;
    for (int i = 0; i < 99; ++i) singles += u"a\n", pairs += u"a;b\n", data += u"1;2\n";
    // Without any separator the table starts at the last line, as with a last line that differs.
    EXPECT_EQ(Detect(singles) + Detect(singles + singles) + Detect(data + u"3\n"), ";99;100;100");
    EXPECT_EQ(Detect(data + data) + Detect(data + u"1;2\n1\n1\n"), ";1;1");
    EXPECT_EQ(Detect(pairs + u"1;2\n") + Detect(pairs + u"a;b\n1;2\n"), ";99h;1");
    const std::u16string triple = pairs + pairs + pairs;  // the file only looks at it
    MemoryFile file(triple);
    EXPECT_TRUE(MakeSettings().DetectFormat(file));
    EXPECT_LE(file.Reads, 200);
}

TEST(DetectFormat, FindsTheSameInLongLines) {
    // Few lines are kept for the second pass, longer ones are read again.
    const std::u16string title = u"Title\nDate\n", table = u"a;b;c\n1;2;3\n4;5;6\n";
    for (const std::size_t length : {10U, 200'000U}) {
        SCOPED_TRACE(length);
        const std::u16string note = std::u16string(length, u'x') + u"\n";
        for (const std::u16string& text : {note + title + table, title + note + table}) {
            MemoryFile file(text);
            CCsvImportSettings settings = MakeSettings();
            ASSERT_TRUE(settings.DetectFormat(file));
            EXPECT_EQ(Detected(settings), ";4h");
            EXPECT_EQ(file.Reads, length == 10 ? 7 : 12);
        }
    }
}

TEST(DetectFormat, LeavesTheLiveFormatAloneUnlessAutomatic) {
    CCsvImportSettings settings =
        MakeSettings({"AutoFormat=0", "Separator=1", "FirstLine=7", "ImportHeader=0", "MergeSeparators=1"});
    MemoryFile empty(u""), file(u"a b\nc d\n1 2\n");
    EXPECT_FALSE(settings.DetectFormat(empty));
    EXPECT_EQ(Detected(settings) + Live(settings), ",7,7m");
    ASSERT_TRUE(settings.DetectFormat(file));
    EXPECT_EQ(Detected(settings) + Live(settings), " 2h,7m");
    settings.AutoFormat = 1;
    settings.ApplyAutoFormat();
    EXPECT_EQ(Live(settings), " 2hm");
}

}  // namespace
