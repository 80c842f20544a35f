// A folder of its own for a test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// A temporary folder, removed with all that is in it when the object goes.
class Workdir {
  public:
    Workdir();
    Workdir(const Workdir&) = delete;
    Workdir& operator=(const Workdir&) = delete;
    ~Workdir();

    // Writes a file with these bytes and answers its full path.
    std::u16string Write(std::string_view name, std::string_view bytes) const;

    // The bytes of a file; empty if there is none.
    std::string Read(std::string_view name) const;

    // Full path of a name in the folder, whether it exists or not: as text, and as the platform has it.
    std::u16string Path(std::string_view name) const;
    std::filesystem::path NativePath(std::string_view name) const { return Folder / name; }

    // Names of all files in the folder, sorted, a blank between them.
    std::string Names() const;

  private:
    std::filesystem::path Folder;
};
