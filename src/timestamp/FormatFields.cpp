#include "timestamp/FormatFields.h"

#include <string_view>

#include "platform/framework/Text.h"
#include "timestamp/FormatLetters.h"

namespace {

constexpr FieldKind LetterKinds[LetterCount] = {FieldKind::Year,  FieldKind::Month,   FieldKind::Day,
                                                FieldKind::Hours, FieldKind::Minutes, FieldKind::Seconds};

// A bracket field: its name, what it reads, and the character that lengthens its run.
struct Bracket {
    std::u16string_view Name;
    FieldKind Kind;
    char16_t RunCharacter;
};

constexpr Bracket Brackets[] = {
    {u"h", FieldKind::Hours, u'h'},         {u"s", FieldKind::Seconds, u's'},
    {u"ms", FieldKind::Milliseconds, u'['}, {u"µs", FieldKind::Microseconds, u'['},
    {u"ns", FieldKind::Nanoseconds, u'['},
};

// Settles the kind of the bracket at `format`; answers the place behind its "]", or null.
const char16_t* ReadBracket(const char16_t* format, FormatField& field, char16_t& runCharacter) {
    const std::u16string_view rest(format + 1);
    const std::size_t end = rest.find(u']');
    if (end == std::u16string_view::npos) return nullptr;
    for (const Bracket& bracket : Brackets) {
        if (bracket.Name != rest.substr(0, end)) continue;
        field.Kind = bracket.Kind;
        runCharacter = bracket.RunCharacter;
        return format + 1 + end + 1;
    }
    return nullptr;
}

template <class Unit>
bool IsDecimal(Unit c) {
    return IsDigit(static_cast<char16_t>(c));
}

template <class Unit>
std::uint32_t DigitOf(Unit c) {
    return static_cast<std::uint32_t>(c - '0');
}

// An exponent directly behind the digits. An "e" without digits is the exponent 0; digits beyond 32 bits are
// cut.
template <class Unit>
const Unit* ReadExponent(const Unit* value, FieldNumber& number) {
    if (*value != 'e' && *value != 'E') return value;
    ++value;
    const bool negative = *value == '-';
    if (negative) ++value;
    std::uint32_t exponent = 0;
    for (; IsDecimal(*value); ++value) exponent = exponent * 10 + DigitOf(*value);
    number.HasExponent = true;
    number.Exponent = static_cast<std::int32_t>(negative ? 0 - exponent : exponent);
    return value;
}

// The weights of the first digits behind a decimal mark. Each is the one before divided by ten, as the sum
// below wants it: a nearer power of ten would round some fractions otherwise.
constexpr std::size_t WeightCount = 20;
constexpr std::array<double, WeightCount> Weights = [] {
    std::array<double, WeightCount> weights{};
    double weight = 0.1;
    for (double& entry : weights) {
        entry = weight;
        weight /= 10.0;
    }
    return weights;
}();

}  // namespace

FieldAlphabet::FieldAlphabet(const std::u16string& letters) : FieldLetters(letters) {
    for (std::size_t i = LetterCount; i-- > 0;) {
        if (letters[i] < AsciiCount) Ascii[letters[i]] = LetterKinds[i];
    }
    Ascii[u'0'] = FieldKind::Fraction;
    Ascii[u'['] = FieldKind::Bracket;
    Ascii[u'\0'] = FieldKind::None;
}

FieldKind FieldAlphabet::KindBeyondAscii(char16_t c) const {
    const std::size_t position = FieldLetters.find(c);
    return position < LetterCount ? LetterKinds[position] : FieldKind::None;
}

const FieldAlphabet& GetFieldAlphabet() {
    static const FieldAlphabet alphabet(GetFormatLetters());
    return alphabet;
}

const char16_t* ReadFormatField(const char16_t* format, const FieldAlphabet& alphabet, FormatField& field) {
    char16_t runCharacter = *format;
    field.Kind = alphabet[*format];
    field.IsBracket = field.Kind == FieldKind::Bracket;
    format = field.IsBracket ? ReadBracket(format, field, runCharacter) : format + 1;
    if (format == nullptr) return nullptr;
    int run = 1;
    for (; *format == runCharacter; ++format) ++run;
    // Only a field directly before another one needs its width; any other ends where its digits do.
    field.FixedDigits = alphabet[*format] == FieldKind::None ? 0 : run;
    return format;
}

template <class Unit>
const Unit* ReadFraction(const Unit* value, const Unit* end, double& fraction) {
    std::size_t i = 0;
    for (; IsDecimal(*value) && value != end && i < WeightCount; ++value)
        fraction += DigitOf(*value) * Weights[i++];
    double weight = Weights.back();
    for (; IsDecimal(*value) && value != end; ++value) fraction += DigitOf(*value) * (weight /= 10.0);
    return value;
}

template <class Unit>
const Unit* ReadFieldNumber(const Unit* value, const FormatField& field, FieldNumber& number) {
    if (!IsDecimal(*value) && !(field.IsBracket && *value == '-')) return nullptr;
    const bool isOpen = field.FixedDigits == 0;
    if (isOpen && *value == '-') {
        number.Negative = true;
        ++value;
    }
    const Unit* const end = isOpen ? nullptr : value + field.FixedDigits;
    if (field.Kind == FieldKind::Fraction) {
        value = ReadFraction(value, end, number.Fraction);
    } else {
        std::uint64_t integer = 0;
        for (; IsDecimal(*value) && value != end; ++value) integer = integer * 10 + DigitOf(*value);
        number.Integer = static_cast<std::int64_t>(integer);
    }
    if (!isOpen) return value == end ? value : nullptr;
    return field.IsBracket || field.Kind == FieldKind::Fraction ? ReadExponent(value, number) : value;
}

template const char* ReadFieldNumber(const char*, const FormatField&, FieldNumber&);
template const char16_t* ReadFieldNumber(const char16_t*, const FormatField&, FieldNumber&);
template const char* ReadFraction(const char*, const char*, double&);
template const char16_t* ReadFraction(const char16_t*, const char16_t*, double&);
