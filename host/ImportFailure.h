// Why an import or a check of a file gave nothing.
#pragma once

#include <cstdint>
#include <string>

#include "host/HostSession.h"

namespace kelvarin {
namespace check {
struct CheckResult;
}

struct ImportFailure {
    std::string Reason;           // one clause; empty: the file hasn't failed
    bool IsTableMissing = false;  // the file can be read, but no table begins where one was expected
    std::uint64_t Line = 0;       // of the file, from 1, that it is about; 0 for none
};

// Of all signals. `device` may be null.
std::uint64_t CountSamples(const store::StoredDevice* device);

// True if rows were read and not one of them was stored.
bool LostEveryRow(const RunResult& result, const store::StoredDevice* device);

// Why the file counts as failed after a run of its session.
ImportFailure WhyImportFailed(const std::u16string& path, const RunResult& result,
                              const HostSession& session);

// Why it could not be checked.
ImportFailure WhyCheckFailed(const check::CheckResult& result);

// Of a run without a sample, which isn't a failure by itself.
std::string WhyNothingIsStored(const RunResult& result, const store::StoredDevice* device);
}  // namespace kelvarin
