#include "app/SourceCheck.h"

#include <algorithm>

#include "host/StdioFileEx.h"
#include "platform/framework/Text.h"

namespace {

constexpr int LinesLookedAt = 100;
constexpr std::size_t TextPerControl =
    20;  // a text has at least so many characters for each control character

bool IsControl(char16_t c) {
    return c < u' ' && !IsWhiteSpace(c);
}

// The first lines of a file as far as they tell a text from other data.
struct FileLook {
    int Lines = 0;
    int LineOfNul = 0;  // 0: none
    std::size_t Characters = 0;
    std::size_t Controls = 0;

    void Add(const std::u16string& line) {
        ++Lines;
        Characters += line.size();
        Controls += static_cast<std::size_t>(std::count_if(line.begin(), line.end(), IsControl));
        if (LineOfNul == 0 && line.find(u'\0') != std::u16string::npos) LineOfNul = Lines;
    }
    bool IsBinary() const { return LineOfNul != 0 && Controls * TextPerControl > Characters; }
};

std::string LookAtLines(CStdioFileEx& file) {
    std::u16string line;
    FileLook look;
    while (look.Lines < LinesLookedAt && file.ReadString(line)) look.Add(line);
    if (look.Lines == 0) return "the file is empty";
    if (!look.IsBinary()) return {};
    return "looks like a binary file (NUL byte in line " + std::to_string(look.LineOfNul) + ")";
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
        const std::string reason = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
        return reason;
    }
}
