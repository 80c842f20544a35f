// The small language that says how a timestamp is read from text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "timestamp/FormatFields.h"
#include "timestamp/TimestampParts.h"

// Units that must be readable behind a value, see TimestampFormat::Read.
constexpr std::size_t ValuePadding = 3;

// Marks a failure in place of a timestamp.
constexpr std::int64_t NoTimestamp = -1;

// A format, ready to read many values, one after the other. The grammar stands in TimestampFormat.cpp.
class TimestampFormat {
  public:
    // `format` must not be null. One that no value fits is no error. `alphabet` is needed for the call alone.
    explicit TimestampFormat(const char16_t* format, const FieldAlphabet& alphabet = GetFieldAlphabet());

    // With `hasDate` the absolute time in nanoseconds since 1970, else the time part alone, which may be
    // negative. NoTimestamp if format and value don't match, or the date doesn't exist or lies outside 1970
    // to 2115; a time part of exactly -1 ns can't be told from that. Raises nothing. Rows of a file share
    // most of their text: what a value has in common with the one before is not read again. For that its text
    // is compared in steps, and from the second value on ValuePadding units must be readable behind the
    // terminating zero.
    std::int64_t Read(const char16_t* value, bool hasDate);

  private:
    // One item of the format: a field, or else a literal.
    struct Step {
        bool IsField() const { return Field.Kind != FieldKind::None; }

        FormatField Field;
        char16_t Literal = u'\0';
        bool MayEnd = false;  // a value may end before this step
    };

    // A field behind a literal, up to which the value before has been read.
    struct Mark {
        std::size_t Step = 0;    // the field's; 0 for no mark
        std::size_t Length = 0;  // of the text before it, white space included; 0 if no value got so far
        TimestampParts Parts;    // what that text said
    };

    // Walks the steps from `firstStep` on over the value, whose text begins at `text`. The place behind what
    // was read, or null for a mismatch.
    const char16_t* MatchSteps(std::size_t firstStep, const char16_t* text, const char16_t* value,
                               TimestampParts& parts);

    // Remembers how far a value has been read.
    void Keep(Mark& mark, const char16_t* text, const char16_t* value, const TimestampParts& parts);

    // The date part, from memory while the date stays.
    std::int64_t Midnight(const TimestampParts& parts);

    std::vector<Step> Steps;
    // At the last field that isn't a fraction, and at a fraction behind it: many rows share their second.
    Mark WholeMark, FractionMark;
    std::u16string KeptText;  // of the value before, up to its last mark
    TimestampParts KnownDay;
    std::int64_t KnownMidnight = NoTimestamp;
};

// Reads one value by one format, as TimestampFormat does; NoTimestamp too if a pointer is null.
std::int64_t ParseTimestamp(const char16_t* format, const char16_t* value, bool hasDate);
