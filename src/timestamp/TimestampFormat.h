// The small language that says how a timestamp is read from text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "timestamp/FormatFields.h"
#include "timestamp/TimestampParts.h"

// Bytes that must be readable behind a value, see TimestampFormat::Read.
constexpr std::size_t ValuePadding = 7;

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
    // is compared in steps, and from the second value on ValuePadding bytes must be readable behind the
    // terminating zero. A Unit is char for a value of ASCII, else char16_t.
    template <class Unit>
    std::int64_t Read(const Unit* value, bool hasDate);

  private:
    // One item of the format: a field, or else a literal.
    struct Step {
        bool IsField() const { return Field.Kind != FieldKind::None; }

        FormatField Field;
        char16_t Literal = u'\0';
        bool MayEnd = false;  // a value may end before this step
    };

    // How far the value before has been read up to a field.
    struct Mark {
        std::size_t Length = 0;  // of the text before it, white space included; 0 if no value got so far
        TimestampParts Parts;    // what that text said
    };

    // What is remembered of the value before: its text up to the last mark, both marks, and the times without
    // and with a date at the second one, as far as they have been wanted.
    template <class Unit>
    struct Memory {
        std::basic_string<Unit> Text;
        Mark Whole, Fraction;
        std::optional<std::int64_t> FractionBase[2];
    };
    template <class Unit>
    Memory<Unit>& MemoryOf();

    // Reads a value that differs from the one before in the digits of its fraction alone, as most do in a
    // table of many rows a second; false if it isn't one.
    template <class Unit>
    bool ReadFractionAlone(const Unit* value, bool hasDate, std::int64_t& time);

    // Walks the steps from `firstStep` on over the value, whose text begins at `text`. The place behind what
    // was read, or null for a mismatch.
    template <class Unit>
    const Unit* MatchSteps(std::size_t firstStep, const Unit* text, const Unit* value, TimestampParts& parts);

    // Remembers how far a value has been read.
    template <class Unit>
    void Keep(Mark& mark, const Unit* text, const Unit* value, const TimestampParts& parts);

    // The time that the parts make.
    std::int64_t TimeOf(const TimestampParts& parts, bool hasDate);

    // The date part, from memory while the date stays.
    std::int64_t Midnight(const TimestampParts& parts);

    std::vector<Step> Steps;
    // The last field behind a literal that isn't a fraction, and a fraction behind it, among the steps; 0 for
    // none. Marks are there: many rows share their second.
    std::size_t WholeStep = 0, FractionStep = 0;
    bool EndsWithFraction = false;  // of any number of digits, at FractionStep
    Memory<char> InBytes;
    Memory<char16_t> InUnits;
    TimestampParts KnownDay;
    std::int64_t KnownMidnight = NoTimestamp;
};

// Reads one value by one format, as TimestampFormat does; NoTimestamp too if a pointer is null.
std::int64_t ParseTimestamp(const char16_t* format, const char16_t* value, bool hasDate);
