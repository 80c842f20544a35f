// The grammar of a format, whose letters are those of FormatLetters ("JMThms" in German):
//
//   format   = { item } [ ( "." | "," ) ] { "0" }     the tail may be missing in the value
//   item     = letters | zeros | bracket | literal
//   letters  = a run of one letter                    a decimal number into that field
//   zeros    = a run of "0"                           digits as a fraction of the last time field's unit
//   bracket  = "[" ( "h" | "s" | "ms" | "µs" | "ns" ) "]"   a number, signed; at most one in a format
//   literal  = any other character                    itself; white space matches any white space
//
// A field directly before another one takes as many digits as its run is long, any other takes all that
// follow. White space behind a literal and at both ends is skipped. One walk over both texts, no way back.
//
// A run reads a value per row by one format, so the format is walked once and kept as steps.
#include "timestamp/TimestampFormat.h"

#include <cstring>

#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"
#include "timestamp/FormatLetters.h"

namespace {

template <class Unit>
const Unit* SkipWhiteSpace(const Unit* p) {
    while (IsWhiteSpace(static_cast<char16_t>(*p))) ++p;
    return p;
}

// True if a value may end where the format stands here.
bool IsOptionalTail(const char16_t* format) {
    if (*format == u'.' || *format == u',') ++format;
    while (*format == u'0') ++format;
    return *SkipWhiteSpace(format) == u'\0';
}

constexpr std::size_t BytesPerStep = ValuePadding + 1;

bool AreSame(const void* a, const void* b) {
    std::uint64_t first = 0;
    std::uint64_t second = 0;
    std::memcpy(&first, a, BytesPerStep);
    std::memcpy(&second, b, BytesPerStep);
    return first == second;
}

// How many units at the start of `value` are those of `text`; up to ValuePadding bytes behind it are read.
template <class Unit>
std::size_t CommonLength(const Unit* value, const std::basic_string<Unit>& text) {
    constexpr std::size_t Units = BytesPerStep / sizeof(Unit);
    std::size_t at = 0;
    while (at + Units <= text.size() && AreSame(value + at, text.data() + at)) at += Units;
    while (at < text.size() && value[at] == text[at]) ++at;
    return at;
}

// True if `value` begins with the text, which has no zeros. The last step overlaps the one before: what is
// read behind a value that ends early is the same few bytes.
template <class Unit>
bool BeginsWith(const Unit* value, const std::basic_string<Unit>& text) {
    constexpr std::size_t Units = BytesPerStep / sizeof(Unit);
    if (text.size() < Units) return CommonLength(value, text) == text.size();
    for (std::size_t at = 0; at + Units < text.size(); at += Units) {
        if (!AreSame(value + at, text.data() + at)) return false;
    }
    const std::size_t last = text.size() - Units;
    return AreSame(value + last, text.data() + last);
}

}  // namespace

TimestampFormat::TimestampFormat(const char16_t* format, const FieldAlphabet& alphabet) {
    bool hadBracket = false;
    format = SkipWhiteSpace(format);
    while (format != nullptr && *format != u'\0') {
        Step step;
        step.MayEnd = IsOptionalTail(format);
        if (alphabet[*format] == FieldKind::None) {
            step.Literal = *format;
            format = SkipWhiteSpace(format + 1);
        } else {
            format = ReadFormatField(format, alphabet, step.Field);
            if (step.Field.IsBracket && hadBracket) format = nullptr;
            hadBracket |= step.Field.IsBracket;
            // The NUL of such a step is a literal that no value has.
            if (format == nullptr) step.Field = {};
            if (step.IsField() && !Steps.empty() && !Steps.back().IsField()) {
                const bool isFraction = step.Field.Kind == FieldKind::Fraction;
                (isFraction ? FractionStep : WholeStep) = Steps.size();
                if (!isFraction) FractionStep = 0;
            }
        }
        Steps.push_back(step);
    }
    EndsWithFraction =
        FractionStep != 0 && FractionStep + 1 == Steps.size() && Steps.back().Field.FixedDigits == 0;
}

template <>
TimestampFormat::Memory<char>& TimestampFormat::MemoryOf() {
    return InBytes;
}

template <>
TimestampFormat::Memory<char16_t>& TimestampFormat::MemoryOf() {
    return InUnits;
}

template <class Unit>
std::int64_t TimestampFormat::Read(const Unit* value, bool hasDate) {
    std::int64_t time = NoTimestamp;
    if (ReadFractionAlone(value, hasDate, time)) return time;
    value = SkipWhiteSpace(value);
    const Unit* const text = value;
    const Memory<Unit>& memory = MemoryOf<Unit>();
    const std::size_t common = CommonLength(value, memory.Text);
    const auto goOnAt = [&](const Mark& mark) {
        if (mark.Length == 0 || mark.Length > common) return false;
        value = SkipWhiteSpace(value + mark.Length);
        return true;
    };
    std::size_t firstStep = 0;
    TimestampParts parts;
    if (goOnAt(memory.Fraction)) {
        firstStep = FractionStep;
        parts = memory.Fraction.Parts;
    } else if (goOnAt(memory.Whole)) {
        firstStep = WholeStep;
        parts = memory.Whole.Parts;
    }
    value = MatchSteps(firstStep, text, value, parts);
    if (value == nullptr || *SkipWhiteSpace(value) != 0) return NoTimestamp;
    return TimeOf(parts, hasDate);
}

template <class Unit>
bool TimestampFormat::ReadFractionAlone(const Unit* value, bool hasDate, std::int64_t& time) {
    Memory<Unit>& memory = MemoryOf<Unit>();
    if (!EndsWithFraction || memory.Fraction.Length == 0 || !BeginsWith(value, memory.Text)) return false;
    const Unit* const digits = value + memory.Fraction.Length;
    double fraction = 0;
    const Unit* const end = ReadFraction<Unit>(digits, nullptr, fraction);
    if (end == digits || *end != 0) return false;
    const TimestampParts& parts = memory.Fraction.Parts;
    std::optional<std::int64_t>& base = memory.FractionBase[hasDate];
    if (!base) {
        const std::int64_t whole = TimeOf(parts, hasDate);
        // An exponent multiplies the fraction too.
        if (whole == NoTimestamp || parts.Exponent != 0) return false;
        base = whole;
    }
    time = WrappingAdd(*base, WrappingMultiply(DoubleToInt64(fraction * parts.Unit), parts.Sign));
    return true;
}

template <class Unit>
const Unit* TimestampFormat::MatchSteps(std::size_t firstStep, const Unit* text, const Unit* value,
                                        TimestampParts& parts) {
    const auto isSpace = [](auto c) { return IsWhiteSpace(static_cast<char16_t>(c)); };
    for (std::size_t i = firstStep; i < Steps.size(); ++i) {
        const Step& step = Steps[i];
        if (*value == 0) return step.MayEnd ? value : nullptr;
        if (!step.IsField()) {
            const bool isSame = step.Literal == static_cast<char16_t>(*value);
            if (!isSame && !(isSpace(step.Literal) && isSpace(*value))) return nullptr;
            value = SkipWhiteSpace(value + 1);
            continue;
        }
        Memory<Unit>& memory = MemoryOf<Unit>();
        if (i != firstStep && i == WholeStep) Keep(memory.Whole, text, value, parts);
        if (i != firstStep && i == FractionStep) Keep(memory.Fraction, text, value, parts);
        FieldNumber number;
        value = ReadFieldNumber(value, step.Field, number);
        if (value == nullptr) return nullptr;
        parts.Store(step.Field.Kind, number);
    }
    return value;
}

template <class Unit>
void TimestampFormat::Keep(Mark& mark, const Unit* text, const Unit* value, const TimestampParts& parts) {
    Memory<Unit>& memory = MemoryOf<Unit>();
    // The mark behind this one belongs to a text that is gone.
    if (&mark == &memory.Whole) memory.Fraction.Length = 0;
    memory.FractionBase[0].reset();
    memory.FractionBase[1].reset();
    memory.Text.assign(text, value);
    mark.Length = memory.Text.size();
    mark.Parts = parts;
}

std::int64_t TimestampFormat::TimeOf(const TimestampParts& parts, bool hasDate) {
    if (!hasDate) return parts.TimePart();
    const std::int64_t midnight = Midnight(parts);
    return midnight == NoTimestamp ? NoTimestamp : WrappingAdd(midnight, parts.TimePart());
}

template std::int64_t TimestampFormat::Read(const char*, bool);
template std::int64_t TimestampFormat::Read(const char16_t*, bool);

std::int64_t TimestampFormat::Midnight(const TimestampParts& parts) {
    if (parts.Day != KnownDay.Day || parts.Month != KnownDay.Month || parts.Year != KnownDay.Year) {
        KnownDay = parts;
        KnownMidnight = parts.DatePart();
    }
    return KnownMidnight;
}

std::int64_t ParseTimestamp(const char16_t* format, const char16_t* value, bool hasDate) {
    if (format == nullptr || value == nullptr) return NoTimestamp;
    return TimestampFormat(format).Read(value, hasDate);
}
