// The numbers of failed calls of the Windows API as exceptions of the file class.
#pragma once

#include <string>

#include "platform/framework/Exceptions.h"
#include "platform/framework/win32/Api.h"

// Fills the record for a file of this path with a value of GetLastError.
void FillFileError(CFileException* error, DWORD number, const std::u16string& path);

// Raises such a record.
[[noreturn]] void RaiseFileError(DWORD number, const std::u16string& path);
