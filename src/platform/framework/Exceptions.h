// The exceptions that travel between the file class, the time stamps and the module: as pointers, so that a
// record embedded in its owner and one from the heap end in the same handler.
#pragma once

#include <string>

// Base of all. Whoever catches the pointer calls Delete, which frees it only if it owns itself.
class CException {
  public:
    explicit CException(bool autoDelete) : AutoDelete(autoDelete) {}
    virtual ~CException() = default;

    // Ends the use of a caught exception.
    void Delete() {
        if (AutoDelete) delete this;
    }

    bool AutoDelete;
};

// A file operation failed.
class CFileException : public CException {
  public:
    enum ECause : int {
        none = 0,
        genericException = 1,
        fileNotFound = 2,
        badPath = 3,
        tooManyOpenFiles = 4,
        accessDenied = 5,
        badSeek = 9,
        hardIO = 10,
        sharingViolation = 11,
        diskFull = 13
    };

    explicit CFileException(bool autoDelete = true) : CException(autoDelete) {}

    int Cause = none;         // an ECause
    long OsError = -1;        // the operating system's number, -1 if there is none
    std::u16string FileName;  // full path as it was given, empty if unknown
};

// A date that the calendar doesn't have.
class COleException : public CException {
  public:
    COleException() : CException(true) {}
};
