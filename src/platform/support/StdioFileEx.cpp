#include "contract/StdioFileEx.h"

#include "platform/support/LineReader.h"

CStdioFileEx::CStdioFileEx() = default;

CStdioFileEx::~CStdioFileEx() = default;

bool CStdioFileEx::Open(const char16_t* path, unsigned flags, CFileException* error) {
    Reader.reset();
    return CFile::Open(path, flags, error);
}

void CStdioFileEx::Close() {
    Reader.reset();
    CFile::Close();
}

void CStdioFileEx::Abort() noexcept {
    Reader.reset();
    CFile::Abort();
}

bool CStdioFileEx::ReadString(std::u16string& line) {
    if (!Reader) Reader = std::make_unique<LineReader>(*this);
    return Reader->Next(line);
}

std::string_view CStdioFileEx::GetHeldBytes() const {
    static_assert(HeldPadding == LineReader::HeldPadding);
    return Reader ? Reader->Held() : std::string_view();
}

void CStdioFileEx::PassHeldBytes(std::size_t count) {
    Reader->PassHeld(count);
}

std::optional<std::uint64_t> CStdioFileEx::FindLineStart(std::uint64_t from) {
    if (Reader) return Reader->FindLineStart(*this, from);
    FindForm();
    const std::optional<std::uint64_t> start = Reader->FindLineStart(*this, from);
    SeekToBegin(true);
    return start;
}

// The first line says how the file is encoded and how its lines end.
void CStdioFileEx::FindForm() {
    std::u16string line;
    ReadString(line);
}

void CStdioFileEx::ShareFile(CStdioFileEx& whole) {
    Abort();
    Share(whole);
    Reader = std::make_unique<LineReader>(*this, *whole.Reader, 0, 0);
}

void CStdioFileEx::HoldRange(std::uint64_t begin, std::optional<std::uint64_t> end) {
    Reader->Restart(begin, end.value_or(LineReader::FileEnd));
    Reader->Hold();
}

bool CStdioFileEx::HoldsWholeLines() const {
    return Reader->HoldsWholeLines();
}

bool CStdioFileEx::PassLine(std::u16string& line, bool& isText) {
    return Reader->Pass(line, isText);
}

void CStdioFileEx::RewindRange() {
    Reader->Rewind();
}

void CStdioFileEx::ContinueAt(std::uint64_t position) {
    if (!Reader) FindForm();
    Reader->Restart(position, LineReader::FileEnd);
}

void CStdioFileEx::SeekToBegin(bool) {
    Reader.reset();
    Seek(0);
}

std::uint64_t CStdioFileEx::GetPosition() const {
    return Reader ? Reader->Position() : 0;
}
