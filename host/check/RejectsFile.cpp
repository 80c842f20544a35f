#include "host/check/RejectsFile.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "contract/StdioFileEx.h"
#include "platform/framework/ReplacingFile.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {
namespace {
constexpr std::size_t BlockSize = 65536;

void OpenOrRaise(CFile& file, const std::u16string& path) {
    auto error = std::make_unique<CFileException>();
    if (!file.Open(path.c_str(), CFile::modeRead, error.get())) throw error.release();
}

std::uint64_t LengthOfByteOrderMark(CFile& file) {
    char begin[3] = {};
    file.Read(begin, sizeof begin);
    const std::string_view bytes(begin, sizeof begin);
    if (bytes == "\xEF\xBB\xBF") return 3;
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ? 2 : 0;
}

// Reads the lines as the module does, to learn where each begins and ends.
void CopyLines(const std::u16string& from, const std::u16string& to, std::uint64_t firstDataLine,
               const LineSet& chosen) {
    CFile source;
    CStdioFileEx lines;
    OpenOrRaise(source, from);
    OpenOrRaise(lines, from);
    ReplacingFile target(to);
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
    std::uint64_t begin = LengthOfByteOrderMark(source);
    copy(0, begin);
    std::u16string text;
    const std::uint64_t end = std::max(firstDataLine, chosen.End());
    for (std::uint64_t line = 1; line < end && lines.ReadString(text); ++line) {
        const std::uint64_t next = lines.GetPosition();
        if (line < firstDataLine || chosen.Has(line)) copy(begin, next);
        begin = next;
    }
    target.Write(held.data(), held.size());
    target.Finish();
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
}  // namespace kelvarin::check
