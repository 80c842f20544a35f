// Lines out of the blocks of a file: finds the line ends in the bytes and decodes each line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CFile;

// Reads one file from its start. Holds one block of 256 KiB, and more only while a line is longer than that.
class LineReader {
  public:
    // Reads ahead far enough to know the encoding and the line ends. The file stands at its start and must
    // outlive the reader.
    explicit LineReader(CFile& file);

    // The next line, or false at the end of the file. Raises what the file raises.
    bool Next(std::u16string& line);

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

    // The next line if it ends in the buffer and is made of bytes and a line feed. False says nothing.
    bool NextInBuffer(std::u16string& line);

    // Reads another block behind the bytes held; false at the end of the file.
    bool Fill();
    void SkipMark();
    void SettleLineEnds();

    // Looks for the line's end from `from` on. False: it isn't in the buffer.
    bool FindLineFeed(std::size_t from, LineEnd& end) const;
    bool FindLoneReturn(std::size_t from, LineEnd& end) const;
    bool FindLineEnd(std::size_t from, LineEnd& end) const;

    void Decode(std::size_t begin, std::size_t end, std::u16string& line) const;

    CFile& File;
    std::vector<char> Buffer;
    std::size_t Filled = 0;         // bytes held in Buffer
    std::size_t LineStart = 0;      // where the next line starts in Buffer
    std::uint64_t BufferStart = 0;  // position in the file of the first byte held
    bool AtEnd = false;             // the file has no more bytes
    bool ReturnEndsLine = false;
    Form Encoding = Form::Bytes;
};
