#include "host/check/RejectsFile.h"

#include <algorithm>
#include <filesystem>
#include <memory>

#include "contract/StdioFileEx.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

constexpr std::size_t BlockSize = 65536;

void OpenOrRaise(CFile& file, const std::u16string& path, unsigned flags) {
    auto error = std::make_unique<CFileException>();
    if (!file.Open(path.c_str(), flags, error.get())) throw error.release();
}

// Reads the lines as the module does, to learn where each begins and ends.
void CopyLines(const std::u16string& from, const std::u16string& to, std::uint64_t firstDataLine,
               const LineSet& chosen) {
    CFile source, target;
    CStdioFileEx lines;
    OpenOrRaise(source, from, CFile::modeRead);
    OpenOrRaise(lines, from, CFile::modeRead);
    OpenOrRaise(target, to, CFile::modeWrite | CFile::modeCreate);
    std::vector<char> held;  // rows are many and short, writes few
    const auto copy = [&](std::uint64_t begin, std::uint64_t end) {
        const std::size_t old = held.size();
        held.resize(old + static_cast<std::size_t>(end - begin));
        source.Seek(begin);
        held.resize(old + source.Read(held.data() + old, held.size() - old));
        if (held.size() < BlockSize) return;
        target.Write(held.data(), held.size());
        held.clear();
    };
    std::uint64_t begin = lines.GetPosition();
    copy(0, begin);  // the byte order mark
    std::u16string text;
    const std::uint64_t end = std::max(firstDataLine, chosen.End());
    for (std::uint64_t line = 1; line < end && lines.ReadString(text); ++line) {
        const std::uint64_t next = lines.GetPosition();
        if (line < firstDataLine || chosen.Has(line)) copy(begin, next);
        begin = next;
    }
    target.Write(held.data(), held.size());
    target.Close();
}

}  // namespace

std::string WriteRejects(const std::u16string& from, const std::u16string& to, std::uint64_t firstDataLine,
                         const LineSet& lines) {
    try {
        CopyLines(from, to, firstDataLine, lines);
    } catch (CFileException* error) {
        std::string reason = Utf16ToUtf8(DescribeFileError(*error));
        error->Delete();
        return reason.empty() ? "can't be written" : reason;
    }
    return {};
}

bool IsSameFile(const std::u16string& a, const std::u16string& b) {
    std::error_code ignored;
    return std::filesystem::equivalent(PathForStream(a), PathForStream(b), ignored);
}

}  // namespace kelvarin::check
