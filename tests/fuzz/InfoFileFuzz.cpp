// Any bytes as a sidecar: read, handed to a record, taken back and written; what was written reads without
// error.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/framework/Path.h"
#include "platform/framework/ReplacingFile.h"
#include "plugin/CsvImportApp.h"
#include "settings/CsvImportSettings.h"
#include "settings/CsvInfoFile.h"

namespace {

// The application without a profile file, and a source path in memory.
struct Setting {
    Setting() {
        SetProcessProfile(OpenProfileFile(Source + u".ini"));
        App.InitInstance();
    }
    const std::u16string Source = PathFromNative("/dev/shm/info-fuzz-" + std::to_string(getpid()));
    CCsvImportApp App;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Setting setting;
    CCsvInfoFile file(setting.Source);
    ReplaceFile(file.GetPath(), std::string(reinterpret_cast<const char*>(data), size));
    CCsvImportSettings settings;
    file.Read();
    file.ApplyToSettings(settings);
    file.TakeFromSettings(settings);
    file.Write();
    if (CCsvInfoFile(setting.Source).Read() != 0) __builtin_trap();
    return 0;
}
