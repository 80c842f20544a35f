// The numbers of failed calls of the operating system as exceptions of the file class: values of errno, on
// Windows of GetLastError.
#pragma once

#include <string>

#include "platform/framework/Exceptions.h"

// What such a number means.
CFileException::ECause CauseOfFileError(long number);

// Fills the record for a file of this path.
void FillFileError(CFileException* error, long number, const std::u16string& path);

// Raises such a record.
[[noreturn]] void RaiseFileError(long number, const std::u16string& path);
