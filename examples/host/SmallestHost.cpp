// The smallest host: loads the module, imports one file and counts the samples of each signal.
#include <deque>
#include <iostream>
#include <memory>

#include "contract/DeviceHost.h"
#include "contract/ImportDllInfo.h"
#include "contract/ImportFilter.h"
#include "platform/framework/Path.h"
#include "platform/framework/SharedLibrary.h"
#include "platform/framework/Text.h"

// A signal that keeps nothing but its number of samples.
class CountingSignal : public DM::SignalProxy {
  public:
    void SetSymbol(const char16_t* symbol) override { Symbol = symbol; }
    std::u16string GetUnit() const override { return Unit; }
    void SetUnit(const char16_t* unit) override { Unit = unit; }
    DM::EResult AddSample(const void*, std::uint32_t, std::int64_t) override {
        ++Count;
        return DM::ResultOk;
    }
    const DM::SUniqueSignalId& GetUniqueSignalId() const override { return Id; }
    DM::EResult WriteMetaData(std::uint32_t, const DM::XmlString&) override { return DM::ResultOk; }

    std::u16string Symbol, Unit;
    std::uint64_t Count = 0;

  private:
    DM::SUniqueSignalId Id{};
};

// Device, source of signals, and the two objects that a filter wants of its host.
class SmallestHost : public CDevice, public DM::SourceProxy, public IDeviceHost, public IRelativeTimeContext {
  public:
    DM::SourceProxy* GetDmSource() override { return this; }
    DM::EResult CreateSignal(DM::SignalProxy*& signal, const char16_t*, std::uint32_t,
                             std::uint32_t) override {
        signal = &Signals.emplace_back();
        return DM::ResultOk;
    }
    CDevice* CreateDevice(std::u16string, const char16_t*, int) override { return this; }
    void FinishDevice(CDevice*) override {}
    std::int64_t GetBaseTime() override { return 0; }
    bool QueryFixedBaseB() override { return false; }
    bool QueryFixedBaseA() override { return true; }

    std::deque<CountingSignal> Signals;  // the filter holds pointers to them
};

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: smallest-host FILE\n";
        return 2;
    }
    SharedLibrary module;
    std::u16string error;
    if (!module.Load(PathFromNative(PLUGIN_DIR) + u"/" + ModuleFileName(u"csv-import"), error)) {
        std::cerr << Utf16ToUtf8(error) << "\n";
        return 1;
    }
    CImportDllInfo* info = nullptr;
    const auto entry = reinterpret_cast<ImportDllEntry>(module.Find(ImportDllEntryName));
    if (entry == nullptr || entry(&info) != ImportDllVersion) return 1;

    SmallestHost host;
    const std::unique_ptr<CImportFilter> filter(info->Factory(PathFromNative(argv[1]).c_str()));
    filter->DeviceHost = &host;
    filter->TimeContext = &host;
    if (filter->BeginImport()) {
        std::uint32_t percent = 0;
        while (filter->ImportNextLine(&percent)) {
        }
    }
    filter->EndImport();
    for (const CountingSignal& signal : host.Signals) {
        std::cout << Utf16ToUtf8(signal.Symbol) << ": " << signal.Count << " samples\n";
    }
    for (const ImportMessage& message : filter->TakeMessages())
        std::cerr << Utf16ToUtf8(message.Text) << "\n";
}
