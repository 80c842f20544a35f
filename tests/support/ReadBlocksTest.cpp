// Lines of a file that is longer than one block of its reader, or that changes under it.
#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "host/StdioFileEx.h"
#include "kit/ReadFault.h"
#include "kit/Workdir.h"
#include "platform/framework/Text.h"

namespace {

constexpr std::size_t Block = 256 * 1024;

// How the lines become bytes: mark, encoding, line end.
struct Form {
    const char* Name;
    int UnitSize;  // 1 for UTF-8
    bool BigEndian;
    const char16_t* LineEnd;
};
constexpr Form Forms[] = {
    {"LF", 1, false, u"\n"},
    {"CRLF", 1, false, u"\r\n"},
    {"CR", 1, false, u"\r"},
    {"UTF-16LE with LF", 2, false, u"\n"},
    {"UTF-16LE with CRLF", 2, false, u"\r\n"},
    {"UTF-16BE with CRLF", 2, true, u"\r\n"},
    {"UTF-16LE with CR", 2, false, u"\r"},
};

std::string Encode(const Form& form, const std::u16string& text) {
    if (form.UnitSize == 1) return Utf16ToUtf8(text);
    std::string bytes;
    for (const char16_t unit : text) {
        const char halves[2] = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
        bytes += halves[form.BigEndian ? 1 : 0];
        bytes += halves[form.BigEndian ? 0 : 1];
    }
    return bytes;
}

void Open(CStdioFileEx& file, const std::u16string& path) {
    CFileException error(false);
    ASSERT_TRUE(file.Open(path.c_str(), CFile::modeRead, &error));
}

// Writes the lines, the last one without an end, and demands them back with their positions.
void CheckLines(const Workdir& folder, const Form& form, const std::vector<std::u16string>& lines) {
    std::string bytes = form.UnitSize == 2 ? Encode(form, u"\uFEFF") : "";
    std::vector<std::uint64_t> positions;
    for (const std::u16string& line : lines) {
        if (!positions.empty()) bytes += Encode(form, form.LineEnd);
        if (!positions.empty()) positions.back() = bytes.size();
        bytes += Encode(form, line);
        positions.push_back(bytes.size());
    }
    CStdioFileEx file;
    Open(file, folder.Write("data", bytes));
    std::u16string line;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        ASSERT_TRUE(file.ReadString(line)) << "line " << i;
        ASSERT_TRUE(line == lines[i]) << "line " << i << " has " << line.size() << " units";
        ASSERT_EQ(file.GetPosition(), positions[i]) << "line " << i;
    }
    ASSERT_FALSE(file.ReadString(line));
}

// 200 numbered lines of 3000 bytes each, 600,000 in all.
std::string NumberedLines() {
    std::string bytes;
    for (int i = 100; i < 300; ++i) bytes += std::to_string(i) + std::string(2996, 'x') + "\n";
    return bytes;
}

// Counts the lines up to the end. Every one must be a line of NumberedLines or the beginning of one.
int CountNumberedLines(CStdioFileEx& file, int first) {
    int count = 0;
    for (std::u16string line; file.ReadString(line); ++count) {
        const std::u16string whole = Utf8ToUtf16(std::to_string(first + count)) + std::u16string(2996, u'x');
        EXPECT_EQ(whole.compare(0, line.size(), line), 0) << "line " << count;
    }
    return count;
}

}  // namespace

TEST(ReadBlocks, ABorderCutsNothing) {
    const Workdir folder;
    for (const Form& form : Forms) {
        for (std::size_t before = Block - 24; before <= Block + 2; ++before) {
            const std::size_t filler = before / static_cast<std::size_t>(form.UnitSize) - 8;
            SCOPED_TRACE(form.Name + (" with the border near " + std::to_string(before)));
            CheckLines(
                folder, form,
                {u"7 units", std::u16string(filler, u'x'), u"", u"ü", u"€", u"\U0001F600", u"", u"end"});
            if (HasFatalFailure()) return;
        }
    }
}

// Where a lone carriage return ends a line, the one at the border may still have a line feed behind it.
TEST(ReadBlocks, ABorderKeepsReturnAndLineFeedTogether) {
    const Workdir folder;
    for (std::size_t returnAt = Block - 3; returnAt <= Block + 1; ++returnAt) {
        CStdioFileEx file;
        Open(file, folder.Write("data", "a\r" + std::string(returnAt - 2, 'x') + "\r\nend"));
        std::u16string line;
        for (int i = 0; i < 3; ++i) ASSERT_TRUE(file.ReadString(line));
        EXPECT_EQ(line, u"end") << "return at " << returnAt;
        EXPECT_FALSE(file.ReadString(line));
    }
}

TEST(ReadBlocks, ALineMayBeLongerThanABlock) {
    const Workdir folder;
    for (const Form& form : Forms) {
        SCOPED_TRACE(form.Name);
        // The carriage-return form needs one within the window that settles it.
        CheckLines(folder, form,
                   {u"a", std::u16string(300 * 1024, u'b'), u"", std::u16string(900 * 1024, u'µ'), u"c",
                    std::u16string(Block, u'd')});
    }
    CheckLines(folder, Forms[0], {std::u16string(2 * Block, u'x')});
    std::vector<std::u16string> lines(3 * Block);
    lines.back() = u"end";
    CheckLines(folder, Forms[0], lines);
}

TEST(ReadBlocks, AFileCutShortIsShorter) {
    const Workdir folder;
    CStdioFileEx file;
    Open(file, folder.Write("data", NumberedLines()));
    std::u16string line;
    ASSERT_TRUE(file.ReadString(line));
    std::filesystem::resize_file(folder.NativePath("data"), 10);
    EXPECT_LT(CountNumberedLines(file, 101), 199);
    EXPECT_FALSE(file.ReadString(line));
    file.SeekToBegin(true);
    EXPECT_EQ(CountNumberedLines(file, 100), 1);
}

TEST(ReadBlocks, AReadErrorIsRaisedBehindTheLinesHeld) {
    const Workdir folder;
    CStdioFileEx file;
    Open(file, folder.Write("data", NumberedLines()));
    std::u16string line;
    ASSERT_TRUE(file.ReadString(line));
    ASSERT_TRUE(BreakReading(folder.NativePath("data")));
    int count = 1;
    try {
        while (file.ReadString(line)) ++count;
        FAIL() << "the error was taken for the end of the file";
    } catch (CFileException* error) {
        EXPECT_EQ(error->FileName, folder.Path("data"));
        error->Delete();
    }
    EXPECT_GT(count, 1);
    EXPECT_LT(count, 200);
    EXPECT_EQ(file.GetPosition(), static_cast<std::uint64_t>(count) * 3000);
}
