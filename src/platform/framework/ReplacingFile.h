// The one way in which files are made and replaced.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "platform/framework/File.h"

// The new content of a file. It is collected in a temporary file beside that one, which only the user can
// read, and takes its place when it is complete: a crash leaves the old content or the new one. A link is
// followed, and its target is replaced. Owner, group, permissions and extended attributes stay.
//
// The file is written in place, at the end, where its folder takes no new file or where its owner or its
// attributes could not be kept: a crash in that moment may leave a part of the new content. The new content
// is then collected in the system's folder for temporary files.
//
// All but the destructor raise CFileException; the old file then stays as it is, unless it is being written
// in place.
class ReplacingFile {
  public:
    enum class Writers { Many, One };

    // Refuses what is no regular file or can't be opened for writing; with Writers::One also, as in use, a
    // file that another object of this kind is about to replace.
    explicit ReplacingFile(const std::u16string& path, Writers writers = Writers::Many);
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    // Without Finish the old file stays and the new content goes.
    ~ReplacingFile();

    // Adds to the content.
    void Write(const void* data, std::size_t size);

    // A path at which a library of this process can open the empty new file, whatever its name is. It can't
    // be opened there once this object is gone.
    std::string PathForLibrary() const;

    // Stores the content on the disk and replaces the file by it.
    void Finish();

  private:
    struct Replacement;

    const std::u16string Path;  // as given
    std::unique_ptr<Replacement> Pending;
};

// Replaces the file at `path` by one with these bytes. Raises CFileException.
void ReplaceFile(const std::u16string& path, const std::string& bytes);
