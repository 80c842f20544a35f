#include "platform/framework/FileError.h"

void FillFileError(CFileException* error, long number, const std::u16string& path) {
    error->Cause = CauseOfFileError(number);
    error->OsError = number;
    error->FileName = path;
}

void RaiseFileError(long number, const std::u16string& path) {
    auto* error = new CFileException;
    FillFileError(error, number, path);
    throw error;
}
