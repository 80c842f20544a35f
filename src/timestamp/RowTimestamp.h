// The timestamp of a row: from its text or its index, corrected, based, and later than the row before.
#pragma once

#include <cstdint>
#include <optional>

#include "contract/FixedTimes.h"
#include "contract/RunObserver.h"
#include "timestamp/TimestampFormat.h"

class CCsvImportSettings;
class IRelativeTimeContext;

// The times of one run, carried from row to row. What comes from the settings or the host is the same for all
// rows of a run and is settled at the first that needs it.
struct RunTimes {
    std::int64_t LastTime = 0;      // of the last accepted row
    std::int64_t FirstRowTime = 0;  // of the first data row before correction; NoTimestamp if it had none
    std::optional<TimestampFormat> Format;   // of TimestampFormat in the settings
    std::optional<std::int64_t> Correction;  // GetTimeCorrection
    std::optional<std::int64_t> Base;        // of relative measurement time
};

// What became of a row.
struct RowTimestamp {
    std::int64_t Time = NoTimestamp;
    bool Accepted = false;                       // the row's samples are stored under Time
    bool Before1990 = false;                     // an absolute time below the limit, accepted or not
    bool HasTime = false;                        // Time is one, accepted or not; else nothing was read
    DropReason Reason = DropReason::DoesNotFit;  // if it isn't accepted
};

// Settles the timestamp of the row with index `row` (0 for the first data row) and text `text`, after which
// ValuePadding bytes are readable. A Unit is char for a text of ASCII, else char16_t. The time of an accepted
// row becomes times.LastTime. All arithmetic wraps at 64 bits.
template <class Unit>
RowTimestamp MakeRowTimestamp(const CCsvImportSettings& settings, std::int64_t row, const Unit* text,
                              IRelativeTimeContext& context, RunTimes& times);
