#include "platform/framework/FileError.h"

#include "platform/framework/File.h"
#include "platform/framework/Text.h"
#include "platform/framework/win32/Api.h"

CFileException::ECause CauseOfFileError(long number) {
    switch (number) {
        case ERROR_FILE_NOT_FOUND:
            return CFileException::fileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_FILENAME_EXCED_RANGE:
            return CFileException::badPath;
        case ERROR_TOO_MANY_OPEN_FILES:
            return CFileException::tooManyOpenFiles;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
            return CFileException::accessDenied;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return CFileException::sharingViolation;
        case ERROR_SEEK:
        case ERROR_NEGATIVE_SEEK:
        case ERROR_SEEK_ON_DEVICE:
            return CFileException::badSeek;
        case ERROR_CRC:
        case ERROR_READ_FAULT:
        case ERROR_WRITE_FAULT:
        case ERROR_IO_DEVICE:
            return CFileException::hardIO;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return CFileException::diskFull;
        default:
            return CFileException::genericException;
    }
}

std::u16string DescribeFileError(const CFileException& error) {
    if (error.Cause == CFileException::sharingViolation) return u"in use by another program";
    if (error.Cause == CFileException::badSeek) return u"not a regular file";
    // In the words of the other systems and of the rest of the program, whatever the system's language.
    if (error.Cause == CFileException::fileNotFound) return u"No such file or directory";
    constexpr DWORD Capacity = 512;
    wchar_t text[Capacity];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        static_cast<DWORD>(error.OsError), 0, text, Capacity, nullptr);
    std::u16string_view said = TrimWhiteSpace({FromW(text), length});
    if (!said.empty() && said.back() == u'.') said.remove_suffix(1);
    return std::u16string(said);
}
