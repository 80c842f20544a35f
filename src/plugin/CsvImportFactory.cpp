#include "plugin/CsvImportFactory.h"

#include "plugin/CsvImportFilter.h"

CImportFilter* CreateCsvImportFilter(const char16_t* path) {
    return new CCsvImportFilter(path);
}
