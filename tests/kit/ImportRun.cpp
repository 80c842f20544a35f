#include "kit/ImportRun.h"

namespace {

const SettingList Defaults = {"AutoFormat=0",  "Separator=0",   "ImportHeader=1",
                              "DateSetting=2", "TimeSetting=1", "IntervalUnit=5"};

}  // namespace

ImportRun::ImportRun(std::string_view bytes, const SettingList& settings, std::string_view name) {
    const TestProfile profile(Joined(Defaults, settings));
    Filter = std::make_unique<CCsvImportFilter>(Folder.Write(name, bytes).c_str());
    Filter->DeviceHost = &Host;
    Filter->TimeContext = &Host;
}

bool ImportRun::SourceIsOpen() const {
    CStdioFileEx file;
    CFileException error(false);
    return !file.Open(Filter->FilePath.c_str(), CFile::modeRead | CFile::shareExclusive, &error);
}

void ImportRun::ReadAll() {
    while (Next()) {
    }
}

std::string ImportRun::Import() {
    if (Filter->BeginImport()) ReadAll();
    Filter->EndImport();
    return Host.DescribeSamples() + Messages();
}
