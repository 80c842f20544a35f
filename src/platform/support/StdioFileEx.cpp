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

void CStdioFileEx::SeekToBegin(bool) {
    Reader.reset();
    Seek(0);
}

std::uint64_t CStdioFileEx::GetPosition() const {
    return Reader ? Reader->Position() : 0;
}
