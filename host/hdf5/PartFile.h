// A file that comes to its place only when it is whole.
#pragma once

#include <string>

namespace kelvarin::hdf5 {

// Holds FILE.part beside FILE for one writer at a time; what a killed one left is used up. Every operation
// but the destructor raises Hdf5Error.
class PartFile {
  public:
    // Follows a link at `path`, so that its target is replaced.
    explicit PartFile(const std::string& path);
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    // Removes the part unless it has come to its place.
    ~PartFile();

    // Of the part, which is empty at first.
    const std::string& Path() const { return PartPath; }

    // Hands it to the storage, under the permissions of the file it replaces, and moves it to its place.
    void Finish();

  private:
    std::string Target;
    std::string PartPath;
    int Descriptor = -1;
    bool IsFinished = false;
};

}  // namespace kelvarin::hdf5
