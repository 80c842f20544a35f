#include "plugin/CsvImportFilter.h"

#include "contract/SupportFunctions.h"
#include "platform/framework/FormatText.h"
#include "platform/framework/Locale.h"
#include "resources/AppString.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"

CCsvImportFilter::CCsvImportFilter(const char16_t* path) : CImportFilter(path), InfoFile(FilePath) {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    Offer<ISettingsView>(OptionalInterfaces);
    Offer<ISidecarTool>(OptionalInterfaces);
    Offer<ITableReader>(OptionalInterfaces);
    Offer<ITimeReader>(OptionalInterfaces);
    Offer<IObservedAnalysis>(OptionalInterfaces);
    Offer<IObservedRun>(OptionalInterfaces);
    Offer<IGuidedReading>(OptionalInterfaces);
    Offer<IRangeReading>(OptionalInterfaces);
    const std::u16string format = CsvImportModule().LoadString(IdDescription);
    Settings.Description = FormatText(format, LocaleDate(CurrentSeconds()), FilePath);
    ReadSidecar();
}

CCsvImportFilter::~CCsvImportFilter() = default;

void CCsvImportFilter::ReadSidecar() {
    const int errors = InfoFile.Read();
    if (errors == 0) InfoFile.ApplyToSettings(Settings);
    if (errors > 0) {
        const std::u16string name = PathUtil::FindFileName(InfoFile.GetPath());
        SidecarWarning = FormatText(LoadAppString(IdBadSidecar), name);
    }
}

std::u16string CCsvImportFilter::GetFileFilter() {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    return LoadAppString(IdFileFilter);
}

bool CCsvImportFilter::HasOptionDialog() {
    return true;
}

void CCsvImportFilter::CopyOptionsFrom(CImportFilter& other) {
    Settings = static_cast<CCsvImportFilter&>(other).Settings;
    SettledFor.reset();  // nothing of a run may point into the old columns
}

void CCsvImportFilter::AddFileMessage(unsigned id) {
    AddMessage(true, -1, false, LoadAppString(id));
}
