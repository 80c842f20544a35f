// The fields of a timestamp format: what kinds there are, and the reading of one number.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

// What a character of a format begins, and what a field's number means.
enum class FieldKind : std::uint8_t {
    None,     // a literal, or the end
    Bracket,  // "[": the name tells what the number means
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
    FieldKind Kind = FieldKind::None;
    bool IsBracket = false;
    int FixedDigits = 0;  // exactly so many digits; 0: all that follow
};

// The number of a field as it stands in the value.
struct FieldNumber {
    std::int64_t Integer = 0;  // the digits as a whole number, wrapping; not of a fraction
    double Fraction = 0.0;     // the digits of a fraction
    bool Negative = false;
    bool HasExponent = false;
    std::int32_t Exponent = 0;
};

// The characters of a format that begin a field: the six letters, "0" and "[".
class FieldAlphabet {
  public:
    explicit FieldAlphabet(const std::u16string& letters);

    FieldKind operator[](char16_t c) const { return c < AsciiCount ? Ascii[c] : KindBeyondAscii(c); }

    const std::u16string& Letters() const { return FieldLetters; }

  private:
    FieldKind KindBeyondAscii(char16_t c) const;

    static constexpr std::size_t AsciiCount = 128;
    std::array<FieldKind, AsciiCount> Ascii{};
    const std::u16string FieldLetters;
};

// The alphabet of the letters in force, made at its first use.
const FieldAlphabet& GetFieldAlphabet();

// Reads the field at `format`, which stands on a field character. Answers the place behind it, or null for a
// bracket with an unknown name or without end.
const char16_t* ReadFormatField(const char16_t* format, const FieldAlphabet& alphabet, FormatField& field);

// Values are read as they stand in their line: a Unit is char in a line of ASCII, else char16_t.

// Reads the field's number at `value`. Answers the place behind it, or null if there is none.
template <class Unit>
const Unit* ReadFieldNumber(const Unit* value, const FormatField& field, FieldNumber& number);

// Reads the digits at `value`, up to `end` if that isn't null, as a fraction. Answers the place behind them.
template <class Unit>
const Unit* ReadFraction(const Unit* value, const Unit* end, double& fraction);
