// The optional interfaces of the filter, for hosts that ask for them.
#pragma once

#include "contract/AnalysisObserver.h"
#include "contract/GuidedReading.h"
#include "contract/RangeReading.h"
#include "contract/RunObserver.h"
#include "contract/SettingsView.h"
#include "contract/SidecarTool.h"
#include "contract/TableReader.h"
#include "contract/TimeReader.h"

class CCsvImportFilter;

// One object serves all of them: the filter itself has no other base than the contract's.
class CFilterInterfaces final : public ISettingsView,
                                public ISidecarTool,
                                public ITableReader,
                                public ITimeReader,
                                public IObservedAnalysis,
                                public IObservedRun,
                                public IGuidedReading,
                                public IRangeReading {
  public:
    explicit CFilterInterfaces(CCsvImportFilter& owner) : Owner(owner) {}

    // --- FilterInterfaces.cpp ---
    const CCsvImportSettings& GetSettings() const override;
    const std::u16string& GetSidecarWarning() const override;
    const std::u16string& GetFileFailure() const override;
    const std::string& GetSidecarFailure() const override;
    void ObserveAnalysis(IAnalysisObserver* observer) override;
    void ObserveRun(IRunObserver* observer) override;

    // --- GuidedReading.cpp ---
    void ChooseColumns(std::vector<ColumnChoice> choices) override;
    void FollowGuide(IReadingGuide* guide) override;
    void ReadFormatsBy(const std::u16string& letters) override;

    // --- RangeReading.cpp ---
    RunState GetState() const override;
    std::uint64_t GetOffset() const override;
    void SetState(const RunState& state) override;
    bool FindLineStart(std::uint64_t from, std::optional<std::uint64_t>& start) override;
    bool Follow(IRangeReading& leader) override;
    RangeLines LoadRange(std::uint64_t begin, std::optional<std::uint64_t> end) override;
    void BeginRange(const RunState& state) override;
    RangeTimes GetRangeTimes() const override;

    // --- SidecarTool.cpp ---
    bool WriteSidecar(std::string& reason) override;
    SidecarCheck CheckSidecar(const char16_t* sidecarPath) override;

    // --- TableReader.cpp ---
    bool SampleTable(const char16_t* sidecarPath, TableSample& sample, std::string& reason) override;
    bool CutLines(const LineCut& cut, std::vector<CutLine>& lines, std::string& reason) override;
    std::vector<std::int64_t> ReadTimes(const std::u16string& format,
                                        const std::vector<std::u16string>& texts, bool hasDate) override;
    std::u16string FormatLetters() override;

  private:
    CCsvImportFilter& Owner;
};
