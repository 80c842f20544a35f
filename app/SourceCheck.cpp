#include "app/SourceCheck.h"

#include "host/StdioFileEx.h"
#include "platform/framework/Text.h"

namespace {

constexpr int LinesLookedAt = 100;

std::string LookAtLines(CStdioFileEx& file) {
    std::u16string line;
    int number = 0;
    while (number < LinesLookedAt && file.ReadString(line)) {
        ++number;
        if (line.find(u'\0') != std::u16string::npos) {
            return "looks like a binary file (NUL byte in line " + std::to_string(number) + ")";
        }
    }
    return number == 0 ? "the file is empty" : "";
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
