#include "host/SourceCheck.h"

#include <bitset>

#include "contract/StdioFileEx.h"
#include "host/language/Phrase.h"
#include "platform/framework/Text.h"

namespace kelvarin {

namespace {

constexpr int LinesLookedAt = 100;
constexpr std::size_t KindsInData =
    8;  // a text that holds a NUL by accident has few other control characters

// The first lines of a file as far as they tell a text from other data.
struct FileLook {
    int Lines = 0;
    int LineOfNul = 0;  // 0: none
    std::bitset<32> Controls;

    void Add(const std::u16string& line) {
        ++Lines;
        for (const char16_t c : line) {
            if (c < u' ' && !IsWhiteSpace(c)) Controls.set(c);
        }
        if (LineOfNul == 0 && line.find(u'\0') != std::u16string::npos) LineOfNul = Lines;
    }
    bool IsBinary() const { return LineOfNul != 0 && Controls.count() >= KindsInData; }
};

std::string LookAtLines(CStdioFileEx& file) {
    std::u16string line;
    FileLook look;
    while (look.Lines < LinesLookedAt && file.ReadString(line)) look.Add(line);
    if (look.Lines == 0) return Phrase("the file is empty");
    if (!look.IsBinary()) return {};
    return Phrase("looks like a binary file (NUL byte in line {})", look.LineOfNul);
}

}  // namespace

std::string WhyUnreadable(const std::u16string& path) {
    CStdioFileEx file;
    CFileException error(false);
    if (!file.Open(path.c_str(), CFile::modeRead | CFile::shareExclusive, &error)) {
        return Utf16ToUtf8(DescribeFileError(error));
    }
    try {
        return LookAtLines(file);
    } catch (CFileException* failure) {
        std::string reason = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
        return reason;
    }
}

}  // namespace kelvarin
