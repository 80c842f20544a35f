#include "platform/support/LineReader.h"

#include <algorithm>
#include <cstring>

#include "platform/framework/File.h"
#include "platform/framework/Text.h"
#include "platform/support/Windows1252.h"

namespace {

constexpr std::size_t BlockSize = 256 * 1024;
constexpr std::size_t LeastBuffer = 4 * 1024;     // of a range, at first; of a file behind its bytes
constexpr std::size_t LineEndWindow = 64 * 1024;  // where the kind of line ends is settled

// A printable character of ASCII other than a space, which no blank line has.
bool IsText(char16_t c) {
    return c > u' ' && c <= u'~';
}

}  // namespace

void DecodeLine(std::string_view bytes, std::u16string& line) {
    if (!DecodeUtf8(bytes, line)) DecodeWindows1252(bytes, line);
}

LineReader::LineReader(CFile& file) : File(file) {
    // No more than a small file needs: a whole block would be cleared, and its pages taken from the system.
    Resize(static_cast<std::size_t>(std::min<std::uint64_t>(file.GetLength() + LeastBuffer, BlockSize)));
    while (Filled < LineEndWindow && Fill()) {
    }
    SkipMark();
    SettleLineEnds();
}

LineReader::LineReader(CFile& file, const LineReader& whole, std::uint64_t begin, std::uint64_t end)
    : File(file), ReturnEndsLine(whole.ReturnEndsLine), Encoding(whole.Encoding) {
    Restart(begin, end);
}

void LineReader::Restart(std::uint64_t begin, std::uint64_t end) {
    Filled = 0;
    LineStart = 0;
    BufferStart = begin;
    AtEnd = false;
    RangeEnd = end;
    Failure.reset();
}

void LineReader::Hold() {
    // Room for the whole range, and for one byte of an endless one.
    const std::uint64_t size = *RangeEnd == FileEnd ? BlockSize : *RangeEnd - BufferStart;
    if (Capacity() < size) Resize(static_cast<std::size_t>(size));
    try {
        while (Fill()) {
        }
    } catch (CFileException* error) {
        Failure.emplace(*error);
        error->Delete();
    }
}

bool LineReader::HoldsWholeLines() const {
    if (*RangeEnd == FileEnd || BufferStart + Filled < *RangeEnd || Filled < UnitSize()) return true;
    const char16_t last = UnitAt(Filled - UnitSize());
    return last == u'\n' || (ReturnEndsLine && last == u'\r');
}

std::size_t LineReader::ReadMore() {
    char* const free = Buffer.data() + Filled;
    const std::size_t room = Capacity() - Filled;
    if (!RangeEnd) return File.Read(free, room);
    const std::uint64_t from = BufferStart + Filled;
    return File.ReadAt(from, free, static_cast<std::size_t>(std::min<std::uint64_t>(room, *RangeEnd - from)));
}

bool LineReader::Fill() {
    if (AtEnd) return false;
    if (Failure) throw new CFileException(*Failure);
    if (RangeEnd && BufferStart + Filled == *RangeEnd) {
        AtEnd = true;
        return false;
    }
    if (LineStart > 0) {
        std::memmove(Buffer.data(), Buffer.data() + LineStart, Filled - LineStart);
        BufferStart += LineStart;
        Filled -= LineStart;
        LineStart = 0;
    }
    if (Filled == Capacity()) Resize(std::max(Capacity() * 2, LeastBuffer));
    const std::size_t count = ReadMore();
    Filled += count;
    AtEnd = count == 0;
    return !AtEnd;
}

void LineReader::SkipMark() {
    const auto startsWith = [&](std::string_view mark) {
        return Filled >= mark.size() && std::memcmp(Buffer.data(), mark.data(), mark.size()) == 0;
    };
    if (startsWith("\xEF\xBB\xBF")) {
        LineStart = 3;
    } else if (startsWith("\xFF\xFE")) {
        Encoding = Form::Utf16Little;
        LineStart = 2;
    } else if (startsWith("\xFE\xFF")) {
        Encoding = Form::Utf16Big;
        LineStart = 2;
    }
}

void LineReader::SettleLineEnds() {
    const std::size_t window = Filled < LineEndWindow ? Filled : LineEndWindow;
    bool anyReturn = false;
    for (std::size_t at = LineStart; at + UnitSize() <= window; at += UnitSize()) {
        const char16_t unit = UnitAt(at);
        if (unit == u'\n') return;
        if (unit == u'\r') anyReturn = true;
    }
    ReturnEndsLine = anyReturn;
}

char16_t LineReader::UnitAt(std::size_t at) const {
    const auto first = static_cast<unsigned char>(Buffer[at]);
    if (Encoding == Form::Bytes) return first;
    const auto second = static_cast<unsigned char>(Buffer[at + 1]);
    return static_cast<char16_t>(Encoding == Form::Utf16Little ? first | second << 8 : second | first << 8);
}

bool LineReader::FindLineFeed(std::size_t from, LineEnd& end) const {
    std::size_t at = from;
    if (Encoding == Form::Bytes) {
        if (from == Filled) return false;
        const void* const found = std::memchr(Buffer.data() + from, '\n', Filled - from);
        if (found == nullptr) return false;
        at = static_cast<std::size_t>(static_cast<const char*>(found) - Buffer.data());
    } else {
        while (at + 2 <= Filled && UnitAt(at) != u'\n') at += 2;
        if (at + 2 > Filled) return false;
    }
    const bool hasReturn = at > LineStart && UnitAt(at - UnitSize()) == u'\r';
    end = {hasReturn ? at - UnitSize() : at, at + UnitSize()};
    return true;
}

bool LineReader::FindLoneReturn(std::size_t from, LineEnd& end) const {
    const std::size_t size = UnitSize();
    for (std::size_t at = from; at + size <= Filled; at += size) {
        const char16_t unit = UnitAt(at);
        if (unit != u'\n' && unit != u'\r') continue;
        end = {at, at + size};
        if (unit == u'\n') return true;
        // Whether a line feed follows decides where the next line starts.
        if (at + 2 * size > Filled) return AtEnd;
        if (UnitAt(at + size) == u'\n') end.NextLine += size;
        return true;
    }
    return false;
}

bool LineReader::FindLineEnd(std::size_t from, LineEnd& end) const {
    return ReturnEndsLine ? FindLoneReturn(from, end) : FindLineFeed(from, end);
}

// The case of nearly all lines, without the questions that the others need.
bool LineReader::NextInBuffer(std::string_view& bytes) {
    if (Encoding != Form::Bytes || ReturnEndsLine || LineStart == Filled) return false;
    const char* const begin = Buffer.data() + LineStart;
    const void* const found = std::memchr(begin, '\n', Filled - LineStart);
    if (found == nullptr) return false;
    const char* const feed = static_cast<const char*>(found);
    const auto length = static_cast<std::size_t>(feed - begin);
    bytes = {begin, length != 0 && feed[-1] == '\r' ? length - 1 : length};
    LineStart += length + 1;
    return true;
}

std::string_view LineReader::Held() const {
    if (Encoding != Form::Bytes || ReturnEndsLine) return {};
    return {Buffer.data() + LineStart, Filled - LineStart};
}

bool LineReader::Next(std::u16string& line) {
    std::string_view bytes;
    if (NextInBuffer(bytes)) {
        DecodeLine(bytes, line);
        return true;
    }
    LineEnd end{};
    if (!FindNext(end)) return false;
    Decode(LineStart, end.TextEnd, line);
    LineStart = end.NextLine;
    return true;
}

// The case of nearly all lines, as in NextInBuffer.
bool LineReader::PassTextInBuffer() {
    if (Encoding != Form::Bytes || ReturnEndsLine || LineStart == Filled) return false;
    const char* const begin = Buffer.data() + LineStart;
    if (!IsText(static_cast<unsigned char>(*begin))) return false;
    const void* const found = std::memchr(begin, '\n', Filled - LineStart);
    if (found == nullptr) return false;
    LineStart += static_cast<std::size_t>(static_cast<const char*>(found) - begin) + 1;
    return true;
}

bool LineReader::Pass(std::u16string& line, bool& isText) {
    isText = PassTextInBuffer();
    if (isText) return true;
    LineEnd end{};
    if (!FindNext(end)) return false;
    const char16_t first = end.TextEnd == LineStart ? u'\0' : UnitAt(LineStart);
    isText = IsText(first);
    if (!isText) Decode(LineStart, end.TextEnd, line);
    LineStart = end.NextLine;
    return true;
}

std::optional<std::uint64_t> LineReader::FindLineStart(CFile& file, std::uint64_t from) const {
    // The unit before `from` may be the end of the line before it.
    const std::uint64_t before = (from + UnitSize() - 1) / UnitSize() * UnitSize() - UnitSize();
    LineReader reader(file, *this, before, FileEnd);
    LineEnd end{};
    while (!reader.FindLineEnd(reader.LineStart, end)) {
        // The last unit is looked at again, as in FindNext; what is before it isn't held.
        const std::size_t held = (reader.Filled - reader.LineStart) / UnitSize();
        if (held > 1) reader.LineStart += (held - 1) * UnitSize();
        if (reader.Fill()) continue;
        if (!reader.FindLineEnd(reader.LineStart, end)) return std::nullopt;
        break;
    }
    return reader.BufferStart + end.NextLine;
}

bool LineReader::FindNext(LineEnd& end) {
    std::size_t searched = 0;  // bytes behind LineStart that hold no line end
    while (!FindLineEnd(LineStart + searched, end)) {
        // The last unit is looked at again: a carriage return there waits for what follows it, and half a
        // unit of UTF-16 for its other half.
        const std::size_t held = Filled - LineStart;
        searched = held < UnitSize() ? 0 : (held / UnitSize() - 1) * UnitSize();
        if (Fill()) continue;
        if (FindLineEnd(LineStart + searched, end)) break;
        // Half a unit at the end of a file is dropped.
        const std::size_t rest = (Filled - LineStart) / UnitSize() * UnitSize();
        if (rest == 0) return false;
        end = {LineStart + rest, LineStart + rest};
        break;
    }
    return true;
}

void LineReader::Decode(std::size_t begin, std::size_t end, std::u16string& line) const {
    if (Encoding == Form::Bytes) {
        DecodeLine({Buffer.data() + begin, end - begin}, line);
        return;
    }
    line.resize((end - begin) / 2);
    for (std::size_t i = 0; i < line.size(); ++i) line[i] = UnitAt(begin + 2 * i);
}
