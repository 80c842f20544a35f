// New files for content that isn't complete yet.
#pragma once

#include <sys/types.h>

#include <string>

#include "platform/framework/portable/RemovedAtEnd.h"

// A file that this process alone has made, readable and writable by its user alone. It goes with this object,
// with a signal that ends the process, or, once the process was killed, with the next run that writes into
// its folder. Below, false and -1 mean a failure, with errno set.
class TemporaryFile {
  public:
    TemporaryFile() = default;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { Discard(); }

    // Makes an empty file beside the one of this path, under its name with ".kelvarin-", the number of the
    // process and 16 random digits added, and keeps it locked. First removes files of that kind that no
    // living process holds, once for each folder.
    bool MakeBeside(const std::string& path);

    // Makes an empty file without a name in the system's folder for temporary files.
    bool MakeNameless();

    // Gives the file this path, in place of what has it. The object then is closed.
    bool MoveTo(const std::string& path);

    // Removes and closes the file.
    void Discard();

    int GetDescriptor() const { return Descriptor; }

    // True if another living process or object has made such a file beside the path.
    bool HasOthersBeside(const std::string& path) const;

  private:
    bool TryMake(const std::string& path);
    bool Holds();

    int Descriptor = -1;
    std::string Path;  // empty for a file without a name
    RemovedAtEnd Guard;
};

// Opens a new nameless file for reading and writing, which child processes don't inherit. -1, with errno set,
// if there is no folder for it or no room.
int OpenNamelessFile();
