// All that is told about one file, gathered once for words and JSON.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/Reading.h"
#include "host/explain/AnalysisRecord.h"
#include "host/explain/TableProposal.h"

namespace kelvarin::explain {

// What surprises people, and what to do.
struct Surprise {
    std::string Kind;  // for scripts
    std::string Text;
    std::string Remedy;
};

struct Explanation {
    const AnalysisRecord& Record;
    Reading Format;
    bool FollowsDetection;  // else the settings name the format
    bool ReadsTimes;        // timestamps come from columns, and no format of theirs is set yet
    std::vector<ColumnSummary> Columns;
    std::optional<TableProposal> Proposal;
    std::string ProposalGives;  // how the module reads the proposal; empty while it isn't advised
    std::vector<Surprise> Surprises;

    // The module should be told to take another table.
    bool IsAdvised() const { return !ProposalGives.empty(); }

    // The options that make the module take it.
    std::string ProposedOptions() const;
};

// Compares what the module took, as `record` tells it, with what a person would see, and asks the module
// about that. `filter` has just analysed the file at `path`.
Explanation Explain(const ModuleLoader& module, const std::u16string& path, const CImportFilter& filter,
                    const AnalysisRecord& record);

}  // namespace kelvarin::explain
