// The one symbol of the module, and the application object that comes and goes with it.
#include "host/ImportDllInfo.h"
#include "plugin/CsvImportApp.h"
#include "plugin/CsvImportFactory.h"
#include "plugin/SidecarTool.h"
#include "plugin/TableTool.h"
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
    static CSidecarTool sidecarTool;
    static CTableTool tableTool;
    static CImportDllInfo dllInfo(&theApp, &CsvImportModule(), CreateCsvImportFilter, &sidecarTool,
                                  &tableTool);
    *info = &dllInfo;
    return ImportDllVersion;
}
