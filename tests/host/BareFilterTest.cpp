// A module whose filter is the base class and nothing more: no optional interface, no message for a failure.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/report/JsonReport.h"
#include "cli/report/TextReport.h"
#include "host/HostSession.h"
#include "host/check/CheckRun.h"
#include "host/check/Findings.h"
#include "host/explain/Explanation.h"
#include "host/plan/AutomaticReading.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Text.h"

namespace {

using namespace kelvarin;

// Gives two samples of one signal, unless its file is called "bad".
class BareFilter : public CImportFilter {
  public:
    explicit BareFilter(const char16_t* path) : CImportFilter(path) {}

    std::u16string GetFileFilter() override { return u"Bare|*.bare"; }
    bool HasOptionDialog() override { return false; }
    std::int64_t ShowOptionDialog() override { return 0; }
    void CopyOptionsFrom(CImportFilter&) override {}
    bool AnalyzeFile() override { return FilePath != u"bad"; }

    bool BeginImport() override {
        if (FilePath == u"bad") return false;
        Device = DeviceHost->CreateDevice(u"bare", u"", 0);
        return Device->GetDmSource()->CreateSignal(Signal, u"v", KelvarinInt64, sizeof(std::int64_t)) ==
               DM::ResultOk;
    }
    bool ImportNextLine(std::uint32_t*) override {
        if (Next == 2) return false;
        Signal->AddSample(&Next, sizeof Next, 1'000'000'000 * Next);
        ++Next;
        return true;
    }
    void EndImport() override {
        if (Device != nullptr) DeviceHost->FinishDevice(Device);
    }

  private:
    CDevice* Device = nullptr;
    DM::SignalProxy* Signal = nullptr;
    std::int64_t Next = 0;
};

class BareModule : public testing::Test {
  protected:
    CImportDllInfo Info{nullptr, nullptr,
                        [](const char16_t* path) -> CImportFilter* { return new BareFilter(path); }};
    const ModuleLoader Module{Info};
};

TEST_F(BareModule, IsImported) {
    RunOptions options;
    options.KeepSamples = KeepAll;
    HostSession session(Module, u"good", options);
    const RunResult result = session.Run();
    EXPECT_FALSE(result.Failed);
    std::ostringstream json;
    cli::WriteImportJson(json, "good", result, session, KeepAll, nullptr, true);
    EXPECT_EQ(
        json.str(),
        R"({"file":"good","begun":true,"lines":2,"device":{"name":"bare","description":""},"signals":[)"
        R"({"name":"v","symbol":"","unit":"","type":15,"size":8,"metadata":[],"count":2,"samples":[[0, 0],[1000000000, 1]]}],)"
        R"("messages":[],"progress":[]})"
        "\n");
    std::ostringstream text;
    const plan::AutomaticReading reading(Module, u"good", {}, {});
    cli::WriteFormatText(text, "good", session.Filter(), reading);
    cli::WriteRunText(text, result, session, {});
    EXPECT_EQ(text.str().substr(0, text.str().find("    ")), "good\n  signals   1 from 2 lines\n");
}

TEST_F(BareModule, FailsWithAReasonOfTheHost) {
    HostSession session(Module, u"bad", RunOptions());
    const RunResult result = session.Run();
    EXPECT_TRUE(result.Failed);
    EXPECT_EQ(result.Failure, "the module can't read the file and doesn't say why");
    EXPECT_EQ(session.Device(), nullptr);
}

TEST_F(BareModule, IsAnalyzedWithoutSettings) {
    HostSession session(Module, u"good", RunOptions());
    EXPECT_TRUE(session.Filter().AnalyzeFile());
    std::ostringstream json;
    cli::WriteAnalyzeJson(json, "good", true, session.Filter(), nullptr);
    EXPECT_EQ(json.str(),
              R"({"file":"good","analyzed":true,"settings":null,"columns":null,"sidecarWarning":""})"
              "\n");
    EXPECT_EQ(SettingsOf(session.Filter()), nullptr);
    EXPECT_TRUE(SummarizeColumns(session.Filter()).empty());
}

TEST_F(BareModule, IsExplainedWithoutAnalysis) {
    HostSession session(Module, u"good", RunOptions());
    explain::AnalysisRecord record;
    EXPECT_FALSE(record.ListenTo(session.Filter()));
    EXPECT_TRUE(session.Filter().AnalyzeFile());
    const explain::Explanation explanation = explain::Explain(Module, u"good", session.Filter(), record);
    EXPECT_FALSE(explanation.IsAdvised());
    EXPECT_TRUE(explanation.Warnings.empty());
}

TEST_F(BareModule, CannotBeChecked) {
    for (const char16_t* const file : {u"good", u"bad"}) {
        const check::CheckResult result = check::RunCheck(Module, file, {});
        EXPECT_TRUE(result.Failed);
        EXPECT_FALSE(result.Begun);
        EXPECT_EQ(Utf16ToUtf8(result.Failure), "this module can't say what becomes of the rows");
        EXPECT_TRUE(check::Judge(result).empty());
    }
}

TEST_F(BareModule, SaysThatItHasNoSidecar) {
    EXPECT_EQ(sidecar::WriteSidecar(Module, u"good"), "this module has no sidecars");
    EXPECT_EQ(sidecar::ComplaintOf(sidecar::CheckSidecar(Module, u"good.info")),
              "this module has no sidecars");
    EXPECT_EQ(sidecar::SidecarFit(Module, u"good.info").Complaint(), "this module has no sidecars");
}

}  // namespace
