// The host's text file: lines of a file as wide text, whatever the file's encoding and line ends.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/framework/File.h"

// How a file's bytes become text. Both values decode alike, so that a preview shows what the import stores.
enum EFileEncoding : int { FileEncodingImport = 1, FileEncodingPreview = 3 };

class LineReader;

// A text file, read line by line from one end to the other.
//
// A byte order mark of UTF-8, UTF-16LE or UTF-16BE is honoured and dropped. Without one each line that is
// valid UTF-8 is UTF-8 and any other line is Windows-1252. A line feed ends a line, and one carriage return
// directly before it belongs to the line end. If the first 64 KiB hold a carriage return and no line feed, a
// carriage return alone ends a line too. What stands behind the last line end is a line unless it is empty.
class CStdioFileEx : public CFile {
  public:
    CStdioFileEx();
    ~CStdioFileEx() override;

    // Before opening.
    void SetEncoding(EFileEncoding encoding) { Encoding = encoding; }

    bool Open(const char16_t* path, unsigned flags, CFileException* error) override;
    void Close() override;
    void Abort() noexcept override;

    // Gives the next line without its end, reusing the storage of `line`. False at the end of the file.
    // Raises CFileException on a read error. Memory grows with the longest line only.
    virtual bool ReadString(std::u16string& line);

    // The bytes from the next line on that are in memory already, if they are bytes of text in which a line
    // feed ends a line; else none, which says nothing. HeldPadding more are readable behind them, without
    // meaning. Valid until something else is called.
    static constexpr std::size_t HeldPadding = 64;
    virtual std::string_view GetHeldBytes() const;

    // Goes on behind `count` of these bytes, which are whole lines.
    virtual void PassHeldBytes(std::size_t count);

    // Back to line 1. The flag is always true.
    virtual void SeekToBegin(bool rereadMark);

    // --- Ranges ---

    // The first byte position from `from` on, above 0, at which a line starts; none if no line ends before.
    // Raises CFileException. Leaves what ReadString delivers alone.
    std::optional<std::uint64_t> FindLineStart(std::uint64_t from);

    // Uses the file of another object, which has delivered a line, stays open and is read by nobody but
    // through such objects, for the lines of ranges.
    void ShareFile(CStdioFileEx& whole);

    // Goes to a range of a shared file and holds it in memory: from `begin`, where a line starts, up to
    // `end`, none for the end of the file. A failure to read is raised by ReadString, behind the lines before
    // it.
    void HoldRange(std::uint64_t begin, std::optional<std::uint64_t> end);

    // False if the range that is held has bytes up to its end and doesn't end with a line end.
    bool HoldsWholeLines() const;

    // Passes over the next line. `line` is filled only unless it begins with a printable character of ASCII
    // other than a space; else `isText`. False at the end.
    bool PassLine(std::u16string& line, bool& isText);

    // Back to the first line of the range.
    void RewindRange();

    // ReadString goes on at a byte position where a line starts, up to the end of the file. Raises
    // CFileException.
    void ContinueAt(std::uint64_t position);

    // --- Place ---

    // Byte position just behind the last line delivered; not the place up to which bytes are held ready.
    std::uint64_t GetPosition() const;

  private:
    void FindForm();

    EFileEncoding Encoding = FileEncodingImport;
    std::unique_ptr<LineReader> Reader;
};
