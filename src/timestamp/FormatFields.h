// The fields of a timestamp format: what kinds there are, and the reading of one number.
#pragma once

#include <cstdint>
#include <string>

// What a field's number means.
enum class FieldKind {
    Year,
    Month,
    Day,
    Hours,
    Minutes,
    Seconds,
    Fraction,
    Milliseconds,
    Microseconds,
    Nanoseconds
};

// One field of a format, ready to be read.
struct FormatField {
    FieldKind Kind = FieldKind::Year;
    bool IsBracket = false;
    int FixedDigits = 0;  // exactly so many digits; 0: all that follow
};

// The number of a field as it stands in the value.
struct FieldNumber {
    std::int64_t Integer = 0;  // the digits as a whole number, wrapping
    double Fraction = 0.0;     // the digits behind a decimal mark
    bool Negative = false;
    bool HasExponent = false;
    std::int32_t Exponent = 0;
};

// True for the characters that begin a field: the six letters, "0" and "[". Any other is a literal.
bool IsFieldCharacter(char16_t c, const std::u16string& letters);

// Reads the field at `format`, which stands on a field character. Answers the place behind it, or null for a
// bracket with an unknown name or without end.
const char16_t* ReadFormatField(const char16_t* format, const std::u16string& letters, FormatField& field);

// Reads the field's number at `value`. Answers the place behind it, or null if there is none.
const char16_t* ReadFieldNumber(const char16_t* value, const FormatField& field, FieldNumber& number);
