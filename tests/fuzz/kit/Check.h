// What a fuzz target holds true, and a place for its files.
#pragma once

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "kit/MemoryProfile.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "plugin/CsvImportApp.h"

// Ends the process, as a find, with the property that doesn't hold.
inline void Check(bool holds, const char* property) {
    if (holds) return;
    std::fprintf(stderr, "property violated: %s\n", property);
    std::abort();
}

// The application with an empty profile in memory, and files in memory.
class FuzzHome {
  public:
    FuzzHome() {
        SetProcessProfile(std::make_shared<MemoryProfile>());
        App.InitInstance();
    }
    ~FuzzHome() {
        for (const char* end : {".csv", ".csv.info"}) unlink((Name + end).c_str());
    }

    // Writes the source file and answers its path.
    std::u16string Write(std::string_view bytes) const {
        CFile file;
        CFileException error(false);
        const std::u16string path = PathFromNative(Name + ".csv");
        Check(file.Open(path.c_str(), CFile::modeWrite | CFile::modeCreate, &error), "there is a disk");
        file.Write(bytes.data(), bytes.size());
        return path;
    }

  private:
    const std::string Name = "/dev/shm/kelvarin-fuzz-" + std::to_string(getpid());
    CCsvImportApp App;
};
