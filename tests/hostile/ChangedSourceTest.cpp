// A source that changes while it is checked.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "host/check/CheckRun.h"
#include "kit/HostModule.h"
#include "kit/Workdir.h"
#include "platform/framework/Text.h"

namespace {

namespace check = kelvarin::check;
namespace fs = std::filesystem;

constexpr std::size_t CellLength = 500;

std::string RowsOf(int count) {
    std::string rows = "n;m\n";
    for (int i = 0; i < count; ++i) rows += "5;" + std::string(CellLength, '6') + "\n";
    return rows;
}

struct ChangeCase {
    const char* Name;
    void (*Change)(const Workdir& folder);
    const char* Failure;  // empty: the check goes on
};

TEST(HostileSource, ChangedWhileItIsCheckedIsNamedAsThat) {
    constexpr int RowCount = 4000;  // more than is read ahead
    const ChangeCase cases[] = {
        {"nothing", [](const Workdir&) {}, ""},
        {"grown",
         [](const Workdir& folder) { std::ofstream(folder.NativePath("a.csv"), std::ios::app) << "7;8\n"; },
         ""},
        {"cut", [](const Workdir& folder) { fs::resize_file(folder.NativePath("a.csv"), 600'000); },
         "the file was cut while it was checked"},
        {"emptied", [](const Workdir& folder) { fs::resize_file(folder.NativePath("a.csv"), 0); },
         "the file was cut while it was checked"},
        {"removed", [](const Workdir& folder) { fs::remove(folder.NativePath("a.csv")); },
         "the file was removed while it was checked"},
        {"replaced",
         [](const Workdir& folder) {
             folder.Write("b.csv", RowsOf(RowCount));
             fs::rename(folder.NativePath("b.csv"), folder.NativePath("a.csv"));
         },
         "the file was replaced by another one while it was checked"},
        {"made again",
         [](const Workdir& folder) {
             fs::remove(folder.NativePath("a.csv"));
             folder.Write("a.csv", RowsOf(RowCount));
         },
         "the file was replaced by another one while it was checked"},
        {"written over",
         [](const Workdir& folder) {
             std::fstream file(folder.NativePath("a.csv"), std::ios::in | std::ios::out);
             file.seekp(4);
             file << "9";
         },
         "the file was written to while it was checked"},
    };
    for (const ChangeCase& c : cases) {
        SCOPED_TRACE(c.Name);
        const Workdir folder;
        const std::u16string path = folder.Write("a.csv", RowsOf(RowCount));
        // The system's clock of changes may stand still for milliseconds.
        const fs::path file = folder.NativePath("a.csv");
        fs::last_write_time(file, fs::last_write_time(file) - std::chrono::hours(1));
        bool isChanged = false;
        check::CheckOptions options;
        options.OnProgress = [&](std::uint32_t) {
            if (!std::exchange(isChanged, true)) c.Change(folder);
        };
        const check::CheckResult result = check::RunCheck(HostModule(), path, options);
        EXPECT_TRUE(isChanged);
        EXPECT_EQ(result.SourceChanged, *c.Failure != '\0');
        EXPECT_EQ(result.Failed, *c.Failure != '\0');
        EXPECT_EQ(result.SourceChanged ? Utf16ToUtf8(result.Failure) : std::string(), c.Failure);
    }
}

}  // namespace
