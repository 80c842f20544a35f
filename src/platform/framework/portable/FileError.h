// The numbers of failed system calls as exceptions of the file class.
#pragma once

#include <string>

#include "platform/framework/Exceptions.h"

// Fills the record for a file of this path with an errno value.
void FillFileError(CFileException* error, int number, const std::u16string& path);

// Raises such a record.
[[noreturn]] void RaiseFileError(int number, const std::u16string& path);
