#include "platform/framework/ReplacingFile.h"

void ReplaceFile(const std::u16string& path, const std::string& bytes) {
    ReplacingFile file(path);
    file.Write(bytes.data(), bytes.size());
    file.Finish();
}
