// Any bytes as a sidecar: read, handed to a record, taken back and written; what was written reads without
// error.
#include "fuzz/kit/Check.h"
#include "platform/framework/ReplacingFile.h"
#include "settings/CsvImportSettings.h"
#include "settings/CsvInfoFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzHome home;
    static const std::u16string source = home.Write("");
    CCsvInfoFile file(source);
    ReplaceFile(file.GetPath(), std::string(reinterpret_cast<const char*>(data), size));
    CCsvImportSettings settings;
    file.Read();
    file.ApplyToSettings(settings);
    file.TakeFromSettings(settings);
    file.Write();
    Check(CCsvInfoFile(source).Read() == 0, "what was written reads without error");
    return 0;
}
