#include "host/check/SourceLines.h"

#include <memory>

namespace kelvarin::check {

SourceLines::SourceLines(const std::u16string& path) {
    auto error = std::make_unique<CFileException>();
    if (!File.Open(path.c_str(), CFile::modeRead, error.get())) throw error.release();
}

bool SourceLines::GoTo(std::uint64_t line) {
    while (Current < line) {
        LineBegin = File.GetPosition();
        if (!File.ReadString(LineText)) return false;
        ++Current;
    }
    return true;
}

}  // namespace kelvarin::check
