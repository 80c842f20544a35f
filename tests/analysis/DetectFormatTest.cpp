#include <gtest/gtest.h>

#include "kit/FailingFile.h"
#include "kit/TestProfile.h"
#include "platform/framework/Text.h"

namespace {

std::u16string Repeated(const std::u16string& text, int times) {
    std::u16string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

// "; line 1 header" of the detected or of the live format; "merged" behind a live separator that is.
std::string FormatOf(int separator, int firstLine, int header) {
    constexpr const char* Names[] = {";", ",", "tab", "space", "other"};
    return std::string(Names[separator]) + " line " + std::to_string(firstLine) + (header ? " header" : "");
}

std::string Detected(const CCsvImportSettings& s) {
    return FormatOf(s.DetectedSeparator, s.DetectedFirstLine, s.DetectedHeader);
}

std::string Live(const CCsvImportSettings& s) {
    return FormatOf(s.Separator, s.FirstLine, s.ImportHeader) + (s.MergeSeparators ? " merged" : "");
}

std::string Detect(const std::u16string& text) {
    CCsvImportSettings settings = MakeSettings();
    MemoryFile file(LinesOf(text));
    if (!settings.DetectFormat(file)) return "no line";
    EXPECT_EQ(Live(settings), Detected(settings) + (settings.DetectedSeparator == 3 ? " merged" : ""));
    return Detected(settings);
}

TEST(DetectFormat, FindsSeparatorFirstLineAndHeader) {
    struct Case {
        std::u16string Text;
        const char* Format;
    };
    const Case cases[] = {
        {u"", "no line"},
        // Equal runs: the order of preference decides.
        {u"a,b", "; line 1"},
        {u"1,2", "; line 1"},
        {u"1;2,3\n4;5,6", "; line 1"},
        {u"1,2\t3\n4,5\t6", ", line 1"},
        {u"1\t2 3\n4\t5 6", "tab line 1"},
        // The separator that is regular from the earliest line on wins.
        {u"a,b\n1,2", ", line 1 header"},
        {u"a\tb\n1\t2", "tab line 1 header"},
        {u"a  b\n1  2", "space line 1 header"},
        {u"a b\nx          2", "space line 1 header"},
        {u"a,b\n1;2,3\n4;5,6", ", line 1 header"},
        {u"Title: foo\nDate: 2020-01-01\na;b;c\n1;2;3\n4;5;6", "; line 3 header"},
        {u"Title\nDate\na;b;c\n1;2;3\n4;5;6", "; line 3 header"},
        // The line above the first data line is the header.
        {u"a;b;c\nx;y;z\n1;2;3", "; line 2 header"},
        {u"1;2;3\n4;5;6", "; line 1"},
        {u"5\na;b\n1;2", "; line 2 header"},
        // A quarter of the cells, rounded up, makes a data line.
        {u"t;1;2;3\n4;5;6;7", "; line 1"},
        {u"a;b;c;d\na;b;c;1", "; line 1 header"},
        {u"a;b;c;d;1\na;b;c;d;2", "; line 1"},
        {u"a;b;c;d;e\na;b;c;1;2", "; line 1 header"},
        {u"a;b;c;d;e;f;g;8;9\na;b;c;d;e;f;7;8;9", "; line 1 header"},
        {u"x;y\n1 kg;a\n1;a", "; line 2 header"},
        // Without any separator, and with a last line that differs, the table starts at the last line.
        {Repeated(u"a\n", 50), "; line 50"},
        {Repeated(u"a\n", 120), "; line 100"},
        {Repeated(u"1;2;3\n", 5) + u"1;2", "; line 6"},
        // Lines beyond 100 have no influence.
        {Repeated(u"1;2\n", 150), "; line 1"},
        {Repeated(u"1;2\n", 100) + u"1\n1\n", "; line 1"},
        {Repeated(u"a;b\n", 100) + u"1;2\n", "; line 1"},
        {Repeated(u"a;b\n", 99) + u"1;2\n", "; line 99 header"},
        // Quotes hide separators.
        {u"it's;1;2\n3;4;5\n6;7;8", "; line 2"},
        {u"\"a,b\",c\n1,2", ", line 1 header"},
        // Blank lines break no run; in the second pass they are lines like any other.
        {u"\n", "; line 1"},
        {u"\n \n\t\n", "; line 1"},
        {u"a;b\n\n1;2", "; line 2 header"},
        {u"a,b\n \n1,2", ", line 2 header"},
        {u"\na,b\n1,2", ", line 2 header"},
        // White space at the ends separates nothing.
        {u" a,b \n 1,2 \n", ", line 1 header"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(Utf16ToUtf8(c.Text.substr(0, 60)));
        EXPECT_EQ(Detect(c.Text), c.Format);
    }
}

TEST(DetectFormat, LeavesTheLiveFormatAloneUnlessAutomatic) {
    CCsvImportSettings settings =
        MakeSettings({"AutoFormat=0", "Separator=1", "FirstLine=7", "ImportHeader=0", "MergeSeparators=1"});
    MemoryFile file(LinesOf(u"a b\nc d\n1 2\n"));
    ASSERT_TRUE(settings.DetectFormat(file));
    EXPECT_EQ(Detected(settings), "space line 2 header");
    EXPECT_EQ(Live(settings), ", line 7 merged");

    settings.AutoFormat = 1;
    settings.ApplyAutoFormat();
    EXPECT_EQ(Live(settings), "space line 2 header merged");
}

TEST(DetectFormat, ChangesNothingWithoutALine) {
    CCsvImportSettings settings = MakeSettings({"Separator=2", "FirstLine=7", "MergeSeparators=1"});
    MemoryFile file({});
    EXPECT_FALSE(settings.DetectFormat(file));
    EXPECT_EQ(Detected(settings), "tab line 7 header");
    EXPECT_EQ(Live(settings), "tab line 7 header merged");
}

TEST(DetectFormat, ReadsAHundredLinesTwiceAtMost) {
    CCsvImportSettings settings = MakeSettings();
    MemoryFile file(LinesOf(Repeated(u"a;b\n", 1000)));
    ASSERT_TRUE(settings.DetectFormat(file));
    EXPECT_LE(file.Reads, 200);
}

TEST(DetectFormat, PassesEveryReadErrorOn) {
    const auto lines = LinesOf(u"a;b\n\nx;y\n1;2\n");
    int errors = 0;
    for (bool finished = false; !finished && errors < 100;) {
        CCsvImportSettings settings = MakeSettings();
        FailingFile file(lines, errors + 1);
        try {
            finished = settings.DetectFormat(file);
        } catch (CFileException* error) {
            error->Delete();
            ++errors;
        }
    }
    // Five reads of the first pass, the one at the end included, and four up to the data line.
    EXPECT_EQ(errors, 9);
}

}  // namespace
