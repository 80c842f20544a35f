// Lines out of the blocks of a file: finds the line ends in the bytes and decodes each line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/framework/Exceptions.h"

class CFile;

// Bytes as UTF-8 if they are valid, else as Windows-1252.
void DecodeLine(std::string_view bytes, std::u16string& line);

// Reads a file from its start, or a range of it. Holds one block of 256 KiB, and more only while a line is
// longer than that or a range is held whole.
class LineReader {
  public:
    // A position that no file reaches.
    static constexpr std::uint64_t FileEnd = ~std::uint64_t{0};

    static constexpr std::size_t HeldPadding = 64;

    // Reads ahead far enough to know the encoding and the line ends. The file stands at its start and must
    // outlive the reader.
    explicit LineReader(CFile& file);

    // Reads the bytes from `begin`, where a line starts, up to `end` as a reader of the whole file does. Only
    // the file's ReadAt is called.
    LineReader(CFile& file, const LineReader& whole, std::uint64_t begin, std::uint64_t end);

    // Another range of the same file, in the same memory.
    void Restart(std::uint64_t begin, std::uint64_t end);

    // Reads the range into memory, up to the first failure if there is one. Next raises it after the lines
    // before it.
    void Hold();

    // False if a range before the end of the file was held up to its end, and doesn't end with a line end.
    bool HoldsWholeLines() const;

    // Back to the first line of a range that is held.
    void Rewind() { LineStart = 0; }

    // The next line, or false at the end of the file. Raises what the file raises.
    bool Next(std::u16string& line);

    // The bytes that are held from the next line on, if a line feed ends lines of bytes, as in nearly all
    // files; else none. HeldPadding more are readable behind them, without meaning.
    std::string_view Held() const;

    // Goes on behind `count` of these bytes, whole lines.
    void PassHeld(std::size_t count) { LineStart += count; }

    // Passes over the next line as Next does. `line` is filled only if the line doesn't begin with a
    // printable character of ASCII other than a space, as nearly all lines do; else `isText`.
    bool Pass(std::u16string& line, bool& isText);

    // The first position from `from` on at which a line starts, for a reader of the whole file; none if no
    // line ends before. Leaves this reader alone. Raises what the file raises.
    std::optional<std::uint64_t> FindLineStart(CFile& file, std::uint64_t from) const;

    // Byte position behind the last line delivered.
    std::uint64_t Position() const { return BufferStart + LineStart; }

  private:
    enum class Form { Bytes, Utf16Little, Utf16Big };

    // A line end found in the buffer: where the line's text ends and where the next line starts.
    struct LineEnd {
        std::size_t TextEnd;
        std::size_t NextLine;
    };

    std::size_t UnitSize() const { return Encoding == Form::Bytes ? 1 : 2; }
    char16_t UnitAt(std::size_t at) const;

    // The bytes of the next line if it ends in the buffer and is made of bytes and a line feed. False says
    // nothing.
    bool NextInBuffer(std::string_view& bytes);

    // Passes over the next line if NextInBuffer would deliver it and it begins as Pass says. False says
    // nothing.
    bool PassTextInBuffer();

    // Makes room for so many bytes.
    void Resize(std::size_t capacity) { Buffer.resize(capacity + HeldPadding); }
    std::size_t Capacity() const { return Buffer.size() - HeldPadding; }

    // Reads another block behind the bytes held; false at the end of the file.
    bool Fill();
    std::size_t ReadMore();

    // Finds the end of the next line, reading on as far as that takes; false if there is no line.
    bool FindNext(LineEnd& end);
    void SkipMark();
    void SettleLineEnds();

    // Looks for the line's end from `from` on. False: it isn't in the buffer.
    bool FindLineFeed(std::size_t from, LineEnd& end) const;
    bool FindLoneReturn(std::size_t from, LineEnd& end) const;
    bool FindLineEnd(std::size_t from, LineEnd& end) const;

    void Decode(std::size_t begin, std::size_t end, std::u16string& line) const;

    CFile& File;
    std::vector<char> Buffer = std::vector<char>(HeldPadding);  // never without it behind the room
    std::size_t Filled = 0;                                     // bytes held in Buffer
    std::size_t LineStart = 0;                                  // where the next line starts in Buffer
    std::uint64_t BufferStart = 0;                              // position in the file of the first byte held
    bool AtEnd = false;                                         // the file has no more bytes
    std::optional<std::uint64_t> RangeEnd;                      // of a reader of a range
    std::optional<CFileException> Failure;                      // of a range that is held, behind its bytes
    bool ReturnEndsLine = false;
    Form Encoding = Form::Bytes;
};
