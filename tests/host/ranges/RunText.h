// All that a run gives as text, to compare runs.
#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "host/HostSession.h"

// Result, messages, columns, signals and samples.
std::string DescribeRun(kelvarin::HostSession& session, const kelvarin::RunResult& result);

// What an observer of a run hears, line by line.
class HeardText final : public IRunObserver {
  public:
    void OnRowStored(const RowPlace& place, std::int64_t time) override;
    void OnRowDropped(const DroppedRow& row) override;
    void OnCellRefused(const RefusedCell& cell) override;
    void OnTimeBefore1990(const RowPlace& place, std::int64_t time) override;
    void OnBlankLine(const RowPlace& place) override;

    std::string Text() const { return Out.str(); }

  private:
    std::ostream& Begin(const char* what, const RowPlace& place);

    std::ostringstream Out;
};

// What a sink of a run gets, signal by signal; not in how many pieces.
class SunkText final : public kelvarin::store::DeviceSink {
  public:
    SunkText();
    ~SunkText() override;

    kelvarin::store::SignalSink* AddSignal(const kelvarin::store::SignalDescription& about) override;
    void TakeTime(std::int64_t time) override { Times << time << ' '; }
    bool HasFailed() const override { return false; }

    std::string Text() const;

  private:
    class Signal;

    std::ostringstream Times;
    std::vector<std::unique_ptr<Signal>> Signals;
};
