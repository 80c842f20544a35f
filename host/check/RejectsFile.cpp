#include "host/check/RejectsFile.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "host/check/SourceLines.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

constexpr std::size_t BlockSize = 65536;

void OpenOrRaise(CFile& file, const std::u16string& path, unsigned flags) {
    auto error = std::make_unique<CFileException>();
    if (!file.Open(path.c_str(), flags, error.get())) throw error.release();
}

// Copies ranges of bytes of one file to the end of another, in few writes.
class RangeCopier {
  public:
    RangeCopier(CFile& from, CFile& to) : From(from), To(to) {}

    void Copy(std::uint64_t begin, std::uint64_t end) {
        if (begin == end) return;
        From.Seek(begin);
        while (begin < end) {
            const std::size_t old = Held.size();
            const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(end - begin, BlockSize));
            Held.resize(old + wanted);
            const std::size_t got = From.Read(Held.data() + old, wanted);
            Held.resize(old + got);
            if (got == 0) break;  // the file has become shorter
            begin += got;
            if (Held.size() >= BlockSize) Flush();
        }
    }

    void Flush() {
        To.Write(Held.data(), Held.size());
        Held.clear();
    }

  private:
    CFile& From;
    CFile& To;
    std::vector<char> Held;
};

void CopyLines(const std::u16string& from, const std::u16string& to, std::uint64_t firstDataLine,
               const LineSet& dropped, const LineSet& refused) {
    CFile source, target;
    OpenOrRaise(source, from, CFile::modeRead);
    SourceLines lines(from);
    OpenOrRaise(target, to, CFile::modeWrite | CFile::modeCreate);
    RangeCopier copier(source, target);
    if (lines.GoTo(firstDataLine)) copier.Copy(0, lines.Begin());
    const std::uint64_t end = std::max(dropped.End(), refused.End());
    for (std::uint64_t line = firstDataLine; line < end; ++line) {
        if (!dropped.Has(line) && !refused.Has(line)) continue;
        if (!lines.GoTo(line)) break;
        copier.Copy(lines.Begin(), lines.End());
    }
    copier.Flush();
    target.Close();
}

}  // namespace

std::string WriteRejects(const std::u16string& from, const std::u16string& to, std::uint64_t firstDataLine,
                         const LineSet& dropped, const LineSet& refused) {
    try {
        CopyLines(from, to, firstDataLine, dropped, refused);
    } catch (CFileException* error) {
        std::string reason = Utf16ToUtf8(DescribeFileError(*error));
        error->Delete();
        return reason.empty() ? "can't be written" : reason;
    }
    return {};
}

std::uint64_t CountRejects(const LineSet& dropped, const LineSet& refused) {
    std::uint64_t count = 0;
    const std::uint64_t end = std::max(dropped.End(), refused.End());
    for (std::uint64_t line = 0; line < end; ++line) count += dropped.Has(line) || refused.Has(line) ? 1 : 0;
    return count;
}

bool IsSameFile(const std::u16string& a, const std::u16string& b) {
    std::error_code ignored;
    return std::filesystem::equivalent(PathForStream(a), PathForStream(b), ignored);
}

}  // namespace kelvarin::check
