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

const char16_t* SkipWhiteSpace(const char16_t* p) {
    while (IsWhiteSpace(*p)) ++p;
    return p;
}

// True if a value may end where the format stands here.
bool IsOptionalTail(const char16_t* format) {
    if (*format == u'.' || *format == u',') ++format;
    while (*format == u'0') ++format;
    return *SkipWhiteSpace(format) == u'\0';
}

// How many units at the start of `value` are those of `text`; as many units as ValuePadding are read behind
// it.
std::size_t CommonLength(const char16_t* value, const std::u16string& text) {
    constexpr std::size_t Units = ValuePadding + 1;
    std::size_t at = 0;
    for (; at + Units <= text.size(); at += Units) {
        std::uint64_t own = 0;
        std::uint64_t kept = 0;
        std::memcpy(&own, value + at, sizeof own);
        std::memcpy(&kept, text.data() + at, sizeof kept);
        if (own != kept) break;
    }
    while (at < text.size() && value[at] == text[at]) ++at;
    return at;
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
                (isFraction ? FractionMark : WholeMark).Step = Steps.size();
                if (!isFraction) FractionMark.Step = 0;
            }
        }
        Steps.push_back(step);
    }
}

std::int64_t TimestampFormat::Read(const char16_t* value, bool hasDate) {
    value = SkipWhiteSpace(value);
    const char16_t* const text = value;
    const std::size_t common = CommonLength(value, KeptText);
    std::size_t firstStep = 0;
    TimestampParts parts;
    for (const Mark* mark : {&FractionMark, &WholeMark}) {
        if (mark->Length == 0 || mark->Length > common) continue;
        value = SkipWhiteSpace(value + mark->Length);
        firstStep = mark->Step;
        parts = mark->Parts;
        break;
    }
    value = MatchSteps(firstStep, text, value, parts);
    if (value == nullptr || *SkipWhiteSpace(value) != u'\0') return NoTimestamp;
    if (!hasDate) return parts.TimePart();
    const std::int64_t midnight = Midnight(parts);
    return midnight == NoTimestamp ? NoTimestamp : WrappingAdd(midnight, parts.TimePart());
}

const char16_t* TimestampFormat::MatchSteps(std::size_t firstStep, const char16_t* text,
                                            const char16_t* value, TimestampParts& parts) {
    for (std::size_t i = firstStep; i < Steps.size(); ++i) {
        const Step& step = Steps[i];
        if (*value == u'\0') return step.MayEnd ? value : nullptr;
        if (!step.IsField()) {
            if (step.Literal != *value && !(IsWhiteSpace(step.Literal) && IsWhiteSpace(*value)))
                return nullptr;
            value = SkipWhiteSpace(value + 1);
            continue;
        }
        if (i != firstStep && i == WholeMark.Step) Keep(WholeMark, text, value, parts);
        if (i != firstStep && i == FractionMark.Step) Keep(FractionMark, text, value, parts);
        FieldNumber number;
        value = ReadFieldNumber(value, step.Field, number);
        if (value == nullptr) return nullptr;
        parts.Store(step.Field.Kind, number);
    }
    return value;
}

void TimestampFormat::Keep(Mark& mark, const char16_t* text, const char16_t* value,
                           const TimestampParts& parts) {
    // The mark behind this one belongs to a text that is gone.
    if (&mark == &WholeMark) FractionMark.Length = 0;
    KeptText.assign(text, value);
    mark.Length = KeptText.size();
    mark.Parts = parts;
}

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
