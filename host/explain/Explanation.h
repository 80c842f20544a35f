// All that is explained about one file, gathered once for every front end.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/Reading.h"
#include "host/Remedy.h"
#include "host/explain/AnalysisRecord.h"
#include "host/explain/TableProposal.h"

namespace kelvarin::explain {

// What people do not expect of the way a file was read.
struct Warning {
    std::string Kind;         // for scripts, the same in every language
    std::string Text;         // one sentence or more
    kelvarin::Remedy Remedy;  // settings without a text are those of Explanation::ProposedSettings
};

struct Explanation {
    const AnalysisRecord& Record;
    Reading Format;
    bool FollowsDetection;  // else the settings name the format
    bool ReadsTimes;        // timestamps come from columns, and no format of theirs is set yet
    std::vector<ColumnSummary> Columns;
    std::optional<TableProposal> Proposal;
    std::string ProposalGives;  // how the module reads the proposal; empty while it isn't advised
    std::vector<Warning> Warnings;

    // The module should be told to take another table.
    bool IsAdvised() const { return !ProposalGives.empty(); }

    // The settings that make the module take the proposal; only while it is advised.
    SettingList ProposedSettings() const;
};

// Compares what the module took, as `record` has it, with what a person would see, and asks the module about
// that. `filter` has just analysed the file at `path`. The record must outlive the explanation.
Explanation Explain(const ModuleLoader& module, const std::u16string& path, const CImportFilter& filter,
                    const AnalysisRecord& record);

// The warnings of an explanation whose other members are set, the most telling first.
std::vector<Warning> FindWarnings(const Explanation& explanation);

// Why the separator was taken, then why the header, a sentence each.
std::vector<std::string> FormatReasons(const Explanation& explanation);

// The separator that came next and what it would have given.
std::string RunnerUp(const AnalysisRecord& record);

// How far the columns were analysed and what ended it.
std::string RowsRead(const AnalysisRecord& record);

}  // namespace kelvarin::explain
