// A source file that changes under its reader: whatever it becomes, and whenever, the run ends by the rules.
#include <gtest/gtest.h>

#include "kit/FileFaults.h"
#include "kit/ImportRun.h"

namespace {

struct Change {
    const char* Name;
    std::function<void(const std::filesystem::path&)> Do;
    bool LeavesTheOpenFile;  // a run that has begun doesn't see it
};

const Change Changes[] = {
    {"emptied", [](const auto& path) { std::filesystem::resize_file(path, 0); }, false},
    {"cut", [](const auto& path) { std::filesystem::resize_file(path, 333); }, false},
    {"grown", [](const auto& path) { std::ofstream(path, std::ios::app) << "7;8;9\n\"7"; }, false},
    {"replaced",
     [](const auto& path) {
         std::ofstream(path.string() + ".new") << "x,y\n1,2\n";
         std::filesystem::rename(path.string() + ".new", path);
     },
     true},
    {"a folder",
     [](const auto& path) {
         std::filesystem::remove(path);
         std::filesystem::create_directory(path);
     },
     true},
    {"gone", [](const auto& path) { std::filesystem::remove(path); }, true},
};

std::string Table() {
    std::string text = "a;b\n";
    for (int row = 0; row < 150; ++row) text += std::to_string(row) + ";2,5\n";
    return text;
}

TEST(FaultsOfChange, OfAFileThatChangesAtAnyCallEndTheRunByItsRules) {
    const std::string clean = ImportRun(Table()).Import();
    const std::string allowed[] = {"", ReadError,
                                   "!-1: Die Datei enthält keine importierbaren Werte oder ist ungültig.\n"};
    for (const Change& change : Changes) {
        int changed = 0;
        for (int at = 1; at == 1 || changed == at - 1; ++at) {
            SCOPED_TRACE(std::string(change.Name) + " before call " + std::to_string(at));
            ImportRun run(Table());
            FileFaults faults;
            faults.MostBytes = 100;
            faults.ChangesAt = at;
            faults.Armed = true;
            bool begun = false;
            faults.Change = [&] {
                changed = at;
                change.Do(run.Folder.NativePath("data.csv"));
                begun = !run.Host.Signals.empty();
            };
            const std::string outcome = run.Import();
            EXPECT_LE(std::count(outcome.begin(), outcome.end(), '!'), 1) << outcome;
            EXPECT_TRUE(run.Host.Calls.empty() || run.Host.Calls.ends_with("finish\n")) << run.Host.Calls;
            EXPECT_EQ(faults.Descriptors.size(), 0u);
            for (const auto& signal : run.Host.Signals) EXPECT_TRUE(signal->TimesRise);
            if (change.LeavesTheOpenFile && begun) {
                EXPECT_EQ(outcome, clean);
            }
            if (HasFailure()) return;
        }
        EXPECT_GT(changed, 20) << "too few calls to tell";
        std::printf("%d moments at which the file was %s\n", changed, change.Name);
    }
}

TEST(FaultsOfChange, OfAFileThatChangesBetweenAnalysisAndRunGiveItsMessage) {
    const std::string endings[] = {
        "entsprechend den eingestellten Formatvorgaben.\n", "", "", "y: 1=2\n", ReadError, ReadError};
    for (std::size_t i = 0; i < std::size(Changes); ++i) {
        ImportRun run(Table(), {"AutoFormat=1"});
        ASSERT_TRUE(run.Filter->AnalyzeFile());
        Changes[i].Do(run.Folder.NativePath("data.csv"));
        const std::string outcome = run.Import();
        EXPECT_TRUE(outcome.ends_with(endings[i])) << Changes[i].Name << ": " << outcome;
        EXPECT_EQ(run.Host.Calls.empty(), run.Host.Signals.empty()) << Changes[i].Name;
    }
}

}  // namespace
