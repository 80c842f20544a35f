// Lines of a text file: from bytes to text and positions, across the blocks of the reader.
#include <gtest/gtest.h>

#include "contract/StdioFileEx.h"
#include "kit/Workdir.h"
#include "platform/framework/Text.h"

using namespace std::string_literals;

namespace {

// The lines that are left, each with the position behind it: "a@2 b@4". A carriage return shows as "R".
std::string Rest(CStdioFileEx& file) {
    std::string text;
    for (std::u16string line; file.ReadString(line);) {
        text += (text.empty() ? "" : " ") + Utf16ToUtf8(ReplaceAll(line, u"\r", u"R")) + "@" +
                std::to_string(file.GetPosition());
    }
    return text;
}

void CheckLines(const std::string& bytes, const std::string& lines) {
    static const Workdir folder;
    CStdioFileEx file;
    CFileException error(false);
    ASSERT_TRUE(file.Open(folder.Write("data", bytes).c_str(), CFile::modeRead, &error));
    EXPECT_TRUE(Rest(file) == lines) << bytes.substr(0, 50);
    file.SeekToBegin(true);
    EXPECT_TRUE(bytes.size() > 100 || Rest(file) == lines) << "from the beginning again";
}

}  // namespace

TEST(ReadLines, LineEnds) {
    CheckLines("\n\na", "@1 @2 a@3");
    CheckLines("a\nb\r\n\r\nc\n", "a@2 b@5 @7 c@9");
    CheckLines("\n\ra\r\r\nb\r", "@1 RaR@6 bR@8");
    CheckLines("\r\ra\rb", "@1 @2 a@4 b@5");
    CheckLines("a\0b\n\0"s, "a\0b@4 \0@5"s);
}

TEST(ReadLines, Encodings) {
    CheckLines("\xC3\xBC\n\xFC\n\x80\x9F\x81", "ü@3 ü@5 €Ÿ\u0081@8");
    CheckLines("\xE2\x82\n\xAC\n\xED\xA0\x80", "â‚@3 ¬@5 í\u00A0€@8");
    CheckLines("\xEF\xBB\xBF\xFC\n\xC3\xBC\n\xEF\xBB\xBF😀", "ü@5 ü@8 \uFEFF😀@15");
    CheckLines("\xEF\xBB", "ï»@2");
    CheckLines("\xFF\xFE\x61\0\n\0b\0"s, "a@6 b@8");
    CheckLines("\xFE\xFF\0a\0\r\0\n\x20\xAC"s, "a@8 €@10");
    CheckLines("\xFF\xFE\n\r\r\n\n\x01"s, "\u0D0A\u0A0D\u010A@8");
}

TEST(ReadLines, WindowOfTheLineEnds) {
    const std::string filler(65533, 'b');
    CheckLines("a\r" + filler + "\nc\rd", "aR" + filler + "@65536 cRd@65539");
    CheckLines("a\r" + filler + "b\nc\rd\r\ne", "a@2 " + filler + "b@65537 c@65539 d@65542 e@65543");
}

// UTF-8 and both orders of UTF-16, each with three line ends.
struct LineForm {
    explicit LineForm(int index)
        : Mark(index < 3   ? ""
               : index < 6 ? "\xFF\xFE"
                           : "\xFE\xFF"),
          End(Bytes(index % 3 == 0   ? u"\n"
                    : index % 3 == 1 ? u"\r\n"
                                     : u"\r")) {}

    std::string Bytes(const std::u16string& text) const {
        if (Mark.empty()) return Utf16ToUtf8(text);
        std::string bytes;
        for (const char16_t c : text) {
            const char low = static_cast<char>(c & 0xFF), high = static_cast<char>(c >> 8);
            bytes += Mark == "\xFF\xFE" ? low : high;
            bytes += Mark == "\xFF\xFE" ? high : low;
        }
        return bytes;
    }

    const std::string Mark, End;
};

TEST(ReadLines, BlocksCutNothing) {
    constexpr std::size_t Block = 256 * 1024;
    for (int index = 0; index < 9; ++index) {
        const LineForm form(index);
        const std::size_t unit = form.Mark.empty() ? 1 : 2;
        const std::string filler = form.Bytes(std::u16string(Block / unit, u'x'));
        for (std::size_t length = Block - 30; length <= Block; length += unit) {
            std::string bytes = form.Mark, lines;
            const auto add = [&](const std::string& text, const std::string& encoded) {
                bytes += encoded + form.End;
                lines += (lines.empty() ? "" : " ") + text + "@" + std::to_string(bytes.size());
            };
            add("a", form.Bytes(u"a"));
            add(std::string(length / unit, 'x'), filler.substr(0, length));
            for (const auto& line : {u""s, u"ü€😀"s, u"z"s}) add(Utf16ToUtf8(line), form.Bytes(line));
            CheckLines(bytes, lines);
        }
    }
}

// Bytes from one position to another, as they are held for one thread.
TEST(ReadLines, OfRanges) {
    const Workdir folder;
    const struct {
        std::string Bytes;
        std::uint64_t Begin;
        std::optional<std::uint64_t> End;
        const char* Lines;
        bool AreWhole;
    } cases[] = {
        {"a\nb\nc\n", 2, 4, "b@4", true},
        {"a\nb\nc\n", 0, 4, "a@2 b@4", true},
        {"a\nbb\nc\n", 2, 4, "bb@4", false},
        {"a\nbb\nc", 2, std::nullopt, "bb@5 c@6", true},
        {"a\r\nb\r\nc", 3, 6, "b@6", true},
        {"a\rb\rc", 2, 4, "b@4", true},
        {"a\rb\nc\n", 0, 2, "aR@2", false},
        {"a\nb\n", 2, 40, "b@4", true},
        {"\xFF\xFE"
         "a\0\n\0b\0\n\0"s,
         6, 10, "b@10", true},
        {"\xFF\xFE"
         "a\0\n\0b\n\n\0"s,
         6, 8, "\u0A62@8", false},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Bytes);
        CStdioFileEx whole;
        CFileException error(false);
        ASSERT_TRUE(whole.Open(folder.Write("data", test.Bytes).c_str(), CFile::modeRead, &error));
        std::u16string line;
        ASSERT_TRUE(whole.ReadString(line));
        CStdioFileEx range;
        range.ShareFile(whole);
        range.HoldRange(test.Begin, test.End);
        EXPECT_EQ(range.HoldsWholeLines(), test.AreWhole);
        EXPECT_EQ(Rest(range), test.Lines);
        range.RewindRange();
        EXPECT_EQ(Rest(range), test.Lines) << "once more";
    }
}
