// Any bytes as a text file: the lines and positions are those that a walk over the whole file finds, however
// little a read gives.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstring>
#include <vector>

#include "contract/StdioFileEx.h"
#include "fuzz/kit/Check.h"
#include "kit/FileFaults.h"
#include "platform/framework/Text.h"
#include "platform/support/Windows1252.h"

namespace {

struct Line {
    std::u16string Text;
    std::uint64_t End;  // byte position behind the line's end
    bool operator==(const Line&) const = default;
};

// The same lines by hand: the whole file at once, unit by unit. It must be shorter than 64 KiB.
std::vector<Line> WalkLines(const std::string& bytes) {
    const bool utf8Mark = bytes.starts_with("\xEF\xBB\xBF");
    const bool little = bytes.starts_with("\xFF\xFE"), big = bytes.starts_with("\xFE\xFF");
    const std::size_t size = little || big ? 2 : 1;
    const auto unitAt = [&](std::size_t at) {
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
        return size == 1 ? byte(at) : little ? byte(at) | byte(at + 1) << 8 : byte(at) << 8 | byte(at + 1);
    };
    const std::size_t begin = utf8Mark ? 3 : size == 2 ? 2 : 0;
    const std::size_t end = bytes.size() - (bytes.size() - begin) % size;
    bool anyReturn = false, anyFeed = false;
    for (std::size_t at = begin; at < end; at += size) {
        anyReturn |= unitAt(at) == '\r';
        anyFeed |= unitAt(at) == '\n';
    }
    const int lineEnd = anyReturn && !anyFeed ? '\r' : '\n';
    std::vector<Line> lines;
    for (std::size_t start = begin; start < end;) {
        std::size_t stop = start;
        while (stop < end && unitAt(stop) != lineEnd) stop += size;
        const std::size_t next = stop < end ? stop + size : stop;
        if (lineEnd == '\n' && stop < end && stop > start && unitAt(stop - size) == '\r') stop -= size;
        Line& line = lines.emplace_back(Line{{}, next});
        if (size == 2) {
            for (std::size_t at = start; at < stop; at += 2) line.Text += static_cast<char16_t>(unitAt(at));
        } else if (const auto part = std::string_view(bytes).substr(start, stop - start);
                   !DecodeUtf8(part, line.Text)) {
            DecodeWindows1252(part, line.Text);
        }
        start = next;
    }
    return lines;
}

std::vector<Line> ReadLines(CStdioFileEx& file) {
    std::vector<Line> lines;
    Line line;
    while (file.ReadString(line.Text)) {
        line.End = file.GetPosition();
        lines.push_back(line);
    }
    return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzHome home;
    FuzzedDataProvider input(data, size);
    FileFaults disk;
    disk.MostBytes =
        input.ConsumeIntegral<bool>() ? SIZE_MAX : input.ConsumeIntegralInRange<std::size_t>(1, 9);
    const std::string bytes = input.ConsumeRemainingBytesAsString();
    CStdioFileEx file;
    CFileException error(false);
    Check(file.Open(home.Write(bytes).c_str(), CFile::modeRead, &error), "the file opens");
    const std::vector<Line> lines = ReadLines(file);
    Check(lines == WalkLines(bytes), "the lines are those of the file");
    file.SeekToBegin(true);
    Check(lines == ReadLines(file), "a second pass finds the same");
    return 0;
}
