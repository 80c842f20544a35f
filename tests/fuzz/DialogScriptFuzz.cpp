// Any text as a script of the dialog: whatever the steps are, what they dump is JSON, and without OK the
// settings and the disk are as before.
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/DialogScript.h"
#include "cli/report/SettingsJson.h"
#include "fuzz/kit/Check.h"
#include "plugin/CsvImportFilter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzHome home;
    static const std::u16string path =
        home.Write("Zeit;n;v\n01.02.2020 10:00:00;1;2,5\n01.02.2020 10:00:01;3;4 V\n;x;\"a;b\"\n");
    static const std::string sidecar = PathToNative(path) + ".info";
    // What one script makes the default must not reach the next.
    const auto profile = std::make_shared<MemoryProfile>();
    SetProcessProfile(profile);
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (text.find("load ") != text.npos && text.find("load /dev/shm/") == text.npos) return 0;
    std::istringstream script(text);
    std::ostringstream out;
    {
        CCsvImportFilter filter(path.c_str());
        Check(filter.AnalyzeFile(), "the file is analysed");
        const auto everything = [&] {
            return kelvarin::cli::SettingsToJson(filter.GetSettings()).dump() +
                   kelvarin::cli::ColumnsToJson(filter.GetSettings()).dump();
        };
        const std::string before = everything();
        kelvarin::cli::DialogScript driver(script, out, filter);
        SetDialogDriver(&driver);
        const std::int64_t result = filter.ShowOptionDialog();
        SetDialogDriver(nullptr);
        Check(result == 1 || result == 2, "a dialog ends by OK or by Cancel");
        Check(result == 1 || everything() == before, "Cancel takes everything back");
        Check(result == 1 || (access(sidecar.c_str(), F_OK) != 0 && profile->ToText().empty()),
              "nothing but OK stores anything");
    }
    unlink(sidecar.c_str());
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);) {
        Check(nlohmann::json::accept(line), "a dump is JSON");
    }
    return 0;
}
