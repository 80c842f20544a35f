#include "platform/framework/FileError.h"

#include <cerrno>
#include <cstring>

#include "platform/framework/File.h"
#include "platform/framework/Text.h"

CFileException::ECause CauseOfFileError(long number) {
    switch (number) {
        case ENOENT:
            return CFileException::fileNotFound;
        case ENOTDIR:
        case ENAMETOOLONG:
        case ELOOP:
            return CFileException::badPath;
        case EMFILE:
        case ENFILE:
            return CFileException::tooManyOpenFiles;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
            return CFileException::accessDenied;
        case EWOULDBLOCK:
            return CFileException::sharingViolation;
        case ESPIPE:
            return CFileException::badSeek;
        case EIO:
            return CFileException::hardIO;
        case ENOSPC:
            return CFileException::diskFull;
        default:
            return CFileException::genericException;
    }
}

std::u16string DescribeFileError(const CFileException& error) {
    if (error.Cause == CFileException::sharingViolation) return u"in use by another program";
    if (error.Cause == CFileException::badSeek) return u"not a regular file";
    return Utf8ToUtf16(std::strerror(static_cast<int>(error.OsError)));
}
