#include "plugin/CsvImportApp.h"

#include "contract/SupportFunctions.h"
#include "platform/framework/Locale.h"
#include "resources/AppString.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"

namespace {

constexpr const char16_t* CompanyKey = u"Brenholt";

}  // namespace

CCsvImportApp::CCsvImportApp() : CWinApp(CsvImportModule()) {}

bool CCsvImportApp::InitInstance() {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());  // names the module whose language is wanted
    UseUserLocale();
    SetRegistryKey(CompanyKey);
    ProfileName = GetCommonProfileName();
    // Before the first text is loaded, so that the name too comes in the user's language.
    LoadLanguageDll();
    AppName = LoadAppString(IdAppName);
    CsvImportModule().CurrentAppName = AppName;
    return CWinApp::InitInstance();
}
