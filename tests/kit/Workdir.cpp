#include "kit/Workdir.h"

#include <fstream>
#include <iterator>
#include <random>
#include <set>

#include "platform/framework/Path.h"

namespace {

std::filesystem::path MakeFolder() {
    std::random_device random;
    for (;;) {
        const auto folder = std::filesystem::temp_directory_path() /
                            ("kelvarin-test-" + std::to_string(random()) + std::to_string(random()));
        if (std::filesystem::create_directory(folder)) return folder;
    }
}

}  // namespace

Workdir::Workdir() : Folder(MakeFolder()) {}

Workdir::~Workdir() {
    std::error_code ignored;
    std::filesystem::remove_all(Folder, ignored);
}

std::u16string Workdir::Write(std::string_view name, std::string_view bytes) const {
    std::ofstream file(NativePath(name), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw std::filesystem::filesystem_error("can't write", NativePath(name), std::error_code());
    return Path(name);
}

std::string Workdir::Read(std::string_view name) const {
    std::ifstream file(NativePath(name), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::u16string Workdir::Path(std::string_view name) const {
    return PathFromNative(NativePath(name).string());
}

std::string Workdir::Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Folder)) {
        names.insert(entry.path().filename().string());
    }
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : " ") + name;
    return text;
}
