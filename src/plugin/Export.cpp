// The one symbol of the module, and the application object that comes and goes with it.
#include "contract/ImportDllInfo.h"
#include "platform/framework/SharedLibrary.h"
#include "plugin/CsvImportApp.h"
#include "plugin/CsvImportFactory.h"
#include "resources/ModuleResources.h"

namespace {

// Made when the module is loaded, gone when it is unloaded.
class LoadedApp {
  public:
    LoadedApp() { App.InitInstance(); }

  private:
    CCsvImportApp App;
};

const LoadedApp theApp;

}  // namespace

// Hands over the module's record; it belongs to the module, is made at the first call and stays the same.
extern "C" std::uint32_t GetKelvarinImportDllInfo(CImportDllInfo** info) {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    static CImportDllInfo dllInfo(ImageOfCode(&theApp), &CsvImportModule(), CreateCsvImportFilter);
    *info = &dllInfo;
    return ImportDllVersion;
}
