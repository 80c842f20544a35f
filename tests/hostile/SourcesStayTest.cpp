// No command overwrites a file that it reads, whatever name or link its output has.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "host/store/SampleFile.h"
#include "program/ProgramRun.h"

namespace sources_stay {
namespace {

constexpr const char* Table = "t;n\n2024-01-01 00:00:00;1\n2024-01-01 00:00:01;2\n";

// The folder of each case: a.csv; b.csv; names that lead to a.csv; a source with the name of a store.
const std::vector<std::string> Texts = {"a.csv", "b.csv", "text.h5", "text.h5.part"};

void Fill(const ProgramRun& run) {
    for (const std::string& name : Texts) run.Write(name, Table);
    for (const char* link : {"soft.h5", "soft.csv", "b.csv.info"})
        std::filesystem::create_symlink("a.csv", run.Folder.NativePath(link));
    for (const char* link : {"hard.h5", "hard.csv"})
        std::filesystem::create_hard_link(run.Folder.NativePath("a.csv"), run.Folder.NativePath(link));
    run.Write("steps", "ok\n");
}

TEST(HostileSourcesStay, WhateverTheOutputIsCalled) {
    const struct {
        std::vector<std::string> Arguments;
        const char* Complaint;
    } cases[] = {
        {{"import", "--store", "soft.h5", "a.csv"}, "soft.h5: leads to a.csv, which is read"},
        {{"import", "--store", "hard.h5", "b.csv", "a.csv"}, "hard.h5: leads to a.csv, which is read"},
        {{"import", "--store", "./text.h5", "text.h5"}, "./text.h5: leads to text.h5, which is read"},
        {{"import", "--store", "text.h5", "text.h5"}, "text.h5: this file is read"},
        {{"import", "--store", "soft.h5", "."}, "soft.h5: leads to ./a.csv"},
        {{"import", "--store", "text.h5", "--profile", "text.h5", "a.csv"}, "text.h5: this file is read"},
        {{"import", "--store", "soft.h5", "b.csv"}, "soft.h5: leads to b.csv.info"},
        {{"import", "--guess-time", "--save", "b.csv", "a.csv"}, "b.csv.info: leads to a.csv"},
        {{"check", "--rejects", "a.csv", "a.csv"}, "a.csv: this file is read"},
        {{"check", "--rejects", "soft.csv", "a.csv"}, "soft.csv: leads to a.csv"},
        {{"check", "--rejects", "hard.csv", "a.csv"}, "hard.csv: leads to a.csv"},
        {{"check", "--rejects", "steps", "--profile", "steps", "a.csv"}, "steps: this file is read"},
        {{"prepare", "--force", "-o", "soft.csv", "a.csv"}, "soft.csv: leads to a.csv"},
        {{"prepare", "--force", "-o", "hard.csv", "a.csv"}, "hard.csv: leads to a.csv"},
        {{"sidecar", "a.csv", "b.csv"}, "b.csv.info: leads to a.csv"},
        {{"sidecar", "apply", "--force", "a.csv", "b.csv"}, ""},
        {{"dialog", "--script", "steps", "--profile", "hard.csv", "a.csv"}, "hard.csv: leads to a.csv"},
        {{"dialog", "--script", "steps", "--profile", "steps", "a.csv"}, "steps: this file is read"},
    };
    for (const auto& c : cases) {
        if (c.Arguments[1] == "--store" && !kelvarin::store::HasSampleFiles()) continue;
        const ProgramRun run;
        Fill(run);
        SCOPED_TRACE(run.CommandLine(c.Arguments));
        const std::string names = run.Folder.Names();
        const ProgramResult result = run(c.Arguments);
        EXPECT_EQ(result.Status, *c.Complaint == 0 ? 1 : 2) << result.Err;
        EXPECT_NE(result.Err.find(c.Complaint), std::string::npos) << result.Err;
        EXPECT_EQ(run.Folder.Names(), names);
        for (const std::string& name : Texts) EXPECT_EQ(run.Folder.Read(name), Table) << name;
    }
}

TEST(HostileSourcesStay, WhateverTheDevicesInThemAreCalled) {
    const std::string rows = "t [s];sensor;v\n1;a;5\n1;b;6\n2;a;7\n2;b;8\n3;a;5\n3;b;6\n";
    const ProgramRun run;
    run.Write("x.csv", rows);
    std::filesystem::create_symlink("x.csv", run.Folder.NativePath("x.csv.b.prepared.csv"));
    const ProgramResult result = run({"prepare", "--force", "x.csv"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_NE(result.Err.find("x.csv.b.prepared.csv: this file is read, and would be overwritten"),
              std::string::npos)
        << result.Err;
    EXPECT_EQ(run.Folder.Read("x.csv"), rows);
    EXPECT_EQ(run.Folder.Names(), "x.csv x.csv.b.prepared.csv");
}

TEST(HostileSourcesStay, BesideAStoreOfSuchAName) {
    if (!kelvarin::store::HasSampleFiles()) GTEST_SKIP() << "no such files in this build";
    const ProgramRun run;
    run.Write("s.h5.part", Table);
    const ProgramResult result = run({"--guess-time", "--store", "s.h5", "s.h5.part"});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(run.Folder.Names(), "s.h5 s.h5.part");
    EXPECT_EQ(run.Folder.Read("s.h5.part"), Table);
}

TEST(HostileSourcesStay, WhereAnOptionHasNoValue) {
    const std::vector<std::vector<std::string>> cases = {
        {"check", "--rejects=", "a.csv", "b.csv"},
        {"check", "--rejects", "", "a.csv"},
        {"import", "--store=", "s.h5", "a.csv"},
        {"import", "--profile=", "a.csv", "b.csv"},
        {"import", "--set=", "a.csv"},
        {"--jobs=", "2", "a.csv"},
        {"dialog", "--script=", "a.csv", "b.csv"},
        {"explain", "--profile", "", "a.csv"},
    };
    for (const auto& arguments : cases) {
        const ProgramRun run;
        Fill(run);
        SCOPED_TRACE(run.CommandLine(arguments));
        const std::string names = run.Folder.Names();
        const ProgramResult result = run(arguments);
        EXPECT_EQ(result.Status, 2);
        EXPECT_NE(result.Err.find(": needs a value\n"), std::string::npos) << result.Err;
        EXPECT_EQ(run.Folder.Names(), names);
        for (const std::string& name : Texts) EXPECT_EQ(run.Folder.Read(name), Table) << name;
    }
}

}  // namespace
}  // namespace sources_stay
