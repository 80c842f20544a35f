// A module loaded at run time.
#pragma once

#include <string>

// Holds a loaded library until it is destroyed. Its static objects are made by Load and gone with it.
class SharedLibrary {
  public:
    SharedLibrary() = default;
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;
    ~SharedLibrary();

    // Loads the library. False on failure, with the reason in `error`.
    bool Load(const std::u16string& path, std::u16string& error);

    // Address of an exported symbol, or null.
    void* Find(const char* name) const;

  private:
    void* Handle = nullptr;
};

// The file name of a module of this name, such as "csv-import.so".
std::u16string ModuleFileName(const std::u16string& name);

// The folder of the module or program in which a static object or function lies, without a separator at its
// end; the program's if that can't be told.
std::u16string FolderOfCode(const void* address);

// Where the module or program begins in memory in which a static object or function lies; on Windows that is
// its HINSTANCE. Null if that can't be told.
const void* ImageOfCode(const void* address);

// The folder of the program that runs, without a separator at its end. Where that can't be told it is the
// root folder, an empty text, and never the current one, where others may put files.
std::u16string ProgramFolder();
