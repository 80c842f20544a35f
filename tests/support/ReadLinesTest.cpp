// Lines of a text file: from bytes to text and positions.
#include <gtest/gtest.h>

#include <cstdio>

#include "host/StdioFileEx.h"
#include "kit/Workdir.h"

using namespace std::string_literals;

namespace {

// A line as ASCII, every other unit as its number: "a<d><20ac>".
std::string Describe(const std::u16string& line) {
    std::string text;
    for (const char16_t unit : line) {
        char number[8];
        std::snprintf(number, sizeof number, "<%x>", static_cast<unsigned>(unit));
        text += unit > 0x20 && unit < 0x7F ? std::string(1, static_cast<char>(unit)) : number;
    }
    return text;
}

// The lines that are left, each with the position behind it: "a@2 b@4".
std::string DescribeLines(CStdioFileEx& file) {
    std::string text;
    for (std::u16string line; file.ReadString(line);) {
        text += (text.empty() ? "" : " ") + Describe(line) + "@" + std::to_string(file.GetPosition());
    }
    return text;
}

void Open(CStdioFileEx& file, const std::u16string& path) {
    CFileException error(false);
    ASSERT_TRUE(file.Open(path.c_str(), CFile::modeRead | CFile::shareExclusive, &error));
}

struct Case {
    std::string Bytes, Lines;
};

// Reads every case from a file of its own, twice over.
template <std::size_t Count>
void Check(const Case (&cases)[Count]) {
    const Workdir folder;
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.Bytes));
        const std::u16string path = folder.Write("data", c.Bytes);
        for (const EFileEncoding encoding : {FileEncodingImport, FileEncodingPreview}) {
            CStdioFileEx file;
            file.SetEncoding(encoding);
            Open(file, path);
            EXPECT_EQ(DescribeLines(file), c.Lines);
            std::u16string line;
            EXPECT_FALSE(file.ReadString(line)) << "the end must stay the end";
            file.SeekToBegin(true);
            EXPECT_EQ(file.GetPosition(), 0u);
            EXPECT_EQ(DescribeLines(file), c.Lines) << "after SeekToBegin";
        }
    }
}

// What the contract says, for bytes without a mark and shorter than the window of the line ends.
std::string ReferenceLines(const std::string& bytes) {
    const bool returnEnds = bytes.find('\n') == std::string::npos;
    std::string text, line;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const bool ends = bytes[i] == '\n' || (bytes[i] == '\r' && returnEnds);
        if (!ends) line += bytes[i];
        if (!ends && i + 1 < bytes.size()) continue;
        if (bytes[i] == '\n' && !line.empty() && line.back() == '\r') line.pop_back();
        const std::u16string wide(line.begin(), line.end());
        text += (text.empty() ? "" : " ") + Describe(wide) + "@" + std::to_string(i + 1);
        line.clear();
    }
    return text;
}

}  // namespace

TEST(ReadLines, LineEnds) {
    Check({
        {"", ""},
        {"a\nb\n", "a@2 b@4"},
        {"a\nb", "a@2 b@3"},
        {"\n\na", "@1 @2 a@3"},
        {"a\r\nb\r\n", "a@3 b@6"},
        {"a\nb\r\n\r\nc", "a@2 b@5 @7 c@8"},
        // a carriage return that belongs to no line end is text
        {"a\r\r\nb", "a<d>@4 b@5"},
        {"a\r\nb\r", "a@3 b<d>@5"},
        {"a\rb\nc\rd", "a<d>b@4 c<d>d@7"},
        {"\n\ra", "@1 <d>a@3"},
        // no line feed at all
        {"a\rb\r", "a@2 b@4"},
        {"a\rb", "a@2 b@3"},
        {"\r\r", "@1 @2"},
        // a NUL is text as well
        {"a\0b\n\0"s, "a<0>b@4 <0>@5"},
        {"\0\r\0\r"s, "<0>@2 <0>@4"},
    });
}

TEST(ReadLines, EveryShortMixOfLineEnds) {
    const Workdir folder;
    for (int length = 0, count = 1; length <= 6; ++length, count *= 3) {
        for (int number = 0; number < count; ++number) {
            std::string bytes;
            for (int rest = number, i = 0; i < length; ++i, rest /= 3) bytes += "a\r\n"[rest % 3];
            CStdioFileEx file;
            Open(file, folder.Write("data", bytes));
            ASSERT_EQ(DescribeLines(file), ReferenceLines(bytes)) << testing::PrintToString(bytes);
        }
    }
}

TEST(ReadLines, EncodingOfEachLine) {
    Check({
        {"\xC3\xBC\n\xFC\n", "<fc>@3 <fc>@5"},
        {"\xE2\x82\xAC\xF0\x9F\x98\x80", "<20ac><d83d><de00>@7"},
        {"\x80\x81\x8D\x8F\x90\x9D\x9F\xA0\xFF", "<20ac><81><8d><8f><90><9d><178><a0><ff>@9"},
        {"\xE2\x82\n\xAC", "<e2><201a>@3 <ac>@4"},
        {"\xC0\x80\n\xED\xA0\x80", "<c0><20ac>@3 <ed><a0><20ac>@6"},
        // the mark of UTF-8
        {"\xEF\xBB\xBF\x61\n\xC3\xBC", "a@5 <fc>@7"},
        {"\xEF\xBB\xBF", ""},
        {"\xEF\xBB\xBF\n", "@4"},
        {"\xEF\xBB\xBF\xFC\n\xC3\xBC", "<fc>@5 <fc>@7"},
        {"\xEF\xBB", "<ef><bb>@2"},
        {"a\n\xEF\xBB\xBF\x62", "a@2 <feff>b@6"},
    });
}

TEST(ReadLines, Utf16) {
    Check({
        {"\xFF\xFE"s, ""},
        {"\xFF\xFE\x61\0\n\0b\0"s, "a@6 b@8"},
        {"\xFE\xFF\0a\0\n\0b"s, "a@6 b@8"},
        {"\xFF\xFE\x61\0\r\0\n\0\xAC\x20\n\0"s, "a@8 <20ac>@12"},
        {"\xFE\xFF\0a\0\r\0b"s, "a@6 b@8"},
        {"\xFF\xFE\x61\0\r\0\r\0\n\0b\0"s, "a<d>@10 b@12"},
        // units whose halves look like line ends
        {"\xFF\xFE\n\r\r\n\n\x01"s, "<d0a><a0d><10a>@8"},
        {"\xFE\xFF\n\0\x0D\x0A\0\n"s, "<a00><d0a>@8"},
        // lone surrogates pass, the mark within the text too
        {"\xFF\xFE\x3D\xD8\n\0\0\xDE\xFF\xFE"s, "<d83d>@6 <de00><feff>@10"},
        // an odd last byte is none
        {"\xFF\xFEx"s, ""},
        {"\xFF\xFE\x61\0x"s, "a@4"},
        {"\xFE\xFF\0a\0\nx"s, "a@6"},
        {"\xFF\xFE\x61\0\n"s, "a@4"},
        // half a mark
        {"\xFF", "<ff>@1"},
    });
}

// Whether a lone carriage return ends a line is settled by the first 64 KiB. If it does, a line feed still
// ends one too, alone or behind it.
TEST(ReadLines, WindowOfTheLineEnds) {
    constexpr std::size_t Window = 65536;
    const Workdir folder;
    for (const std::size_t feed : {Window - 1, Window}) {
        const std::string filler(feed - 2, 'b');
        const auto at = [&](std::size_t behindFeed) { return "@" + std::to_string(feed + behindFeed) + " "; };
        CStdioFileEx file;
        Open(file, folder.Write("data", "a\r" + filler + "\n\nc\rd\r\ne"));
        EXPECT_EQ(DescribeLines(file) + " ",
                  feed < Window ? "a<d>" + filler + at(1) + at(2) + "c<d>d" + at(7) + "e" + at(8)
                                : "a@2 " + filler + at(1) + at(2) + "c" + at(4) + "d" + at(7) + "e" + at(8));
    }
}

TEST(ReadLines, StartsAgainFromAnyPlace) {
    const Workdir folder;
    const std::u16string path = folder.Write("data", "\xEF\xBB\xBF\x61\nb\nc\n");
    CStdioFileEx file;
    Open(file, path);
    for (int read = 0; read <= 3; ++read) {
        std::u16string line = u"left over";
        for (int i = 0; i < read; ++i) EXPECT_TRUE(file.ReadString(line));
        file.SeekToBegin(true);
        EXPECT_TRUE(file.ReadString(line));
        EXPECT_EQ(line, u"a") << "after " << read << " lines";
        file.SeekToBegin(true);
    }
    Open(file, folder.Write("other", "x\r"));
    EXPECT_EQ(file.GetPosition(), 0u);
    EXPECT_EQ(DescribeLines(file), "x@2") << "another file through the same object";
}
