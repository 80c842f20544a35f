// Makes the filters of this module.
#pragma once

class CImportFilter;

// A new filter for the file at a path. The caller owns it and destroys it through its virtual destructor.
CImportFilter* CreateCsvImportFilter(const char16_t* path);
