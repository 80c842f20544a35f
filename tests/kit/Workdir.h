// A folder of its own for a test.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <string_view>

#include "platform/framework/Path.h"

// A temporary folder, removed with all that is in it when the object goes.
class Workdir {
  public:
    Workdir() {
        std::random_device random;
        do {
            Folder = std::filesystem::temp_directory_path() / ("kelvarin-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(Folder));
    }
    Workdir(const Workdir&) = delete;
    Workdir& operator=(const Workdir&) = delete;
    ~Workdir() {
        std::error_code ignored;
        std::filesystem::remove_all(Folder, ignored);
    }

    // Writes a file with these bytes and answers its full path.
    std::u16string Write(std::string_view name, std::string_view bytes) const {
        std::ofstream file(NativePath(name), std::ios::binary);
        if (!(file << bytes << std::flush)) throw std::runtime_error("can't write " + std::string(name));
        return Path(name);
    }

    // The bytes of a file; empty if there is none.
    std::string Read(std::string_view name) const {
        std::ifstream file(NativePath(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    // Full path of a name in the folder, whether it exists or not: as text, and as the platform has it.
    std::u16string Path(std::string_view name) const {
        return PathFromNative((Folder / "").string()) + PathFromNative(name);
    }
    std::filesystem::path NativePath(std::string_view name) const { return PathForStream(Path(name)); }

    // Names of all files in the folder, sorted, a blank between them.
    std::string Names() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Folder)) {
            names.insert(entry.path().filename().string());
        }
        std::string text;
        for (const std::string& name : names) text += (text.empty() ? "" : " ") + name;
        return text;
    }

  private:
    std::filesystem::path Folder;
};
