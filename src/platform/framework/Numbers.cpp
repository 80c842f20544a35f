#include "platform/framework/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <string>

#include "platform/framework/Text.h"

namespace {

// The powers of ten that a double holds exactly.
constexpr double ExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                  1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int LargestExactPower = 22;
constexpr std::uint64_t LargestExactInteger = std::uint64_t{1} << 53;
constexpr int MostDigitsInUint64 = 19;
// An exponent beyond this is out of range for every mantissa that memory can hold.
constexpr std::int64_t ExponentLimit = std::int64_t{1} << 40;

// The value of a digit in radices up to 36, or 36 for any other character.
constexpr int DigitValue(char16_t c) {
    if (IsDigit(c)) return c - u'0';
    if (c >= u'a' && c <= u'z') return c - u'a' + 10;
    if (c >= u'A' && c <= u'Z') return c - u'A' + 10;
    return 36;
}

// Steps over `word` (in lower case), any case in the text; null if it isn't there.
const char16_t* MatchWord(const char16_t* p, const char* word) {
    for (; *word != 0; ++word, ++p) {
        const char16_t expected = static_cast<char16_t>(*word);
        if (*p != expected && *p != static_cast<char16_t>(expected - 32)) return nullptr;
    }
    return p;
}

// infinity, inf, nan, nan(letters, digits, underscores); null if none of them.
const char16_t* MatchSpecial(const char16_t* p, double* value) {
    if (const char16_t* end = MatchWord(p, "inf")) {
        *value = std::numeric_limits<double>::infinity();
        const char16_t* longer = MatchWord(end, "inity");
        return longer != nullptr ? longer : end;
    }
    const char16_t* end = MatchWord(p, "nan");
    if (end == nullptr) return nullptr;
    *value = std::numeric_limits<double>::quiet_NaN();
    if (*end != u'(') return end;
    const char16_t* inside = end + 1;
    while (DigitValue(*inside) < 36 || *inside == u'_') ++inside;
    return *inside == u')' ? inside + 1 : end;
}

// A number's parts as they stand in the text.
struct Scan {
    const char16_t* Begin;    // first character of the mantissa
    const char16_t* End;      // behind the number, exponent included
    std::uint64_t Mantissa;   // the significant digits, meaningful for up to MostDigitsInUint64 of them
    int Digits;               // significant digits counted, cut at MostDigitsInUint64 + 1
    bool AnyDigit;            // false: no number at all
    std::int64_t PointShift;  // power of the radix that the mantissa's digits are to be scaled by
    std::int64_t Magnitude;   // digits before the point, from the first that isn't zero; negative behind it
    std::int64_t Exponent;    // of ten, or of two for a hexadecimal number
};

// An exponent marker (`lower` or its capital), sign and digits; leaves `scan` alone if there are no digits.
void ScanExponent(char16_t lower, Scan& scan) {
    const char16_t* p = scan.End;
    if (*p != lower && *p != static_cast<char16_t>(lower - 32)) return;
    ++p;
    const bool negative = *p == u'-';
    if (*p == u'-' || *p == u'+') ++p;
    if (!IsDigit(*p)) return;
    std::int64_t exponent = 0;
    for (; IsDigit(*p); ++p) exponent = std::min(exponent * 10 + (*p - u'0'), ExponentLimit);
    scan.Exponent = negative ? -exponent : exponent;
    scan.End = p;
}

// Walks the mantissa's digits in `radix` with at most one point, then the exponent.
Scan ScanNumber(const char16_t* p, char16_t decimalPoint, int radix) {
    Scan scan{p, p, 0, 0, false, 0, 0, 0};
    bool behindPoint = false;
    for (;; ++p) {
        if (*p == decimalPoint && !behindPoint) {
            behindPoint = true;
            continue;
        }
        const int digit = DigitValue(*p);
        if (digit >= radix) break;
        scan.AnyDigit = true;
        if (behindPoint) --scan.PointShift;
        if (digit == 0 && scan.Digits == 0) {
            if (behindPoint) --scan.Magnitude;
            continue;
        }
        if (scan.Digits < MostDigitsInUint64) {
            scan.Mantissa = scan.Mantissa * static_cast<unsigned>(radix) + static_cast<unsigned>(digit);
        }
        if (scan.Digits <= MostDigitsInUint64) ++scan.Digits;
        if (!behindPoint) ++scan.Magnitude;
    }
    scan.End = p;
    if (scan.AnyDigit) ScanExponent(radix == 16 ? u'p' : u'e', scan);
    return scan;
}

// The exact conversion of any length, over a copy in ASCII. Out of line: cells of up to 19 digits seldom come
// here.
double ConvertExactly(const Scan& scan, char16_t decimalPoint, int radix) {
    if (scan.Digits == 0) return 0.0;
    constexpr std::size_t ShortLength = 128;
    char shortCopy[ShortLength];
    std::string longCopy;
    const auto length = static_cast<std::size_t>(scan.End - scan.Begin);
    char* copy = shortCopy;
    if (length > ShortLength) {
        longCopy.resize(length);
        copy = longCopy.data();
    }
    for (std::size_t i = 0; i < length; ++i) {
        copy[i] = scan.Begin[i] == decimalPoint ? '.' : static_cast<char>(scan.Begin[i]);
    }
    double value = 0.0;
    const auto format = radix == 16 ? std::chars_format::hex : std::chars_format::general;
    const std::from_chars_result result = std::from_chars(copy, copy + length, value, format);
    if (result.ec != std::errc::result_out_of_range) return value;
    const std::int64_t magnitude = scan.Magnitude * (radix == 16 ? 4 : 1) + scan.Exponent;
    return magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

double ConvertDecimal(const Scan& scan, char16_t decimalPoint) {
    const std::int64_t power = scan.PointShift + scan.Exponent;
    if (scan.Digits <= MostDigitsInUint64 && scan.Mantissa <= LargestExactInteger) {
        // Both factors are exact, so the one rounding of the product or quotient is the correct one.
        const double mantissa = static_cast<double>(scan.Mantissa);
        if (power >= 0 && power <= LargestExactPower) return mantissa * ExactPowers[power];
        if (power < 0 && power >= -LargestExactPower) return mantissa / ExactPowers[-power];
    }
    return ConvertExactly(scan, decimalPoint, 10);
}

}  // namespace

double ParseDouble(const char16_t* text, char16_t decimalPoint, const char16_t** end) {
    const char16_t* p = text;
    while (IsWhiteSpace(*p)) ++p;
    const bool negative = *p == u'-';
    if (*p == u'-' || *p == u'+') ++p;

    double value = 0.0;
    Scan scan = ScanNumber(p, decimalPoint, 10);
    if (!scan.AnyDigit) {
        *end = MatchSpecial(p, &value);
        if (*end == nullptr) {
            *end = text;
            return 0.0;
        }
        return negative ? -value : value;
    }
    if (p[0] == u'0' && (p[1] == u'x' || p[1] == u'X')) {
        const Scan hexadecimal = ScanNumber(p + 2, decimalPoint, 16);
        if (hexadecimal.AnyDigit) {
            value = ConvertExactly(hexadecimal, decimalPoint, 16);
            *end = hexadecimal.End;
            return negative ? -value : value;
        }
    }
    value = ConvertDecimal(scan, decimalPoint);
    *end = scan.End;
    return negative ? -value : value;
}

bool ParseShortDecimal(const char16_t* text, double& value, const char16_t** mark) {
    const char16_t* p = text;
    const bool negative = *p == u'-';
    if (*p == u'-' || *p == u'+') ++p;
    const char16_t* const digits = p;
    std::uint64_t mantissa = 0;
    for (; IsDigit(*p); ++p) mantissa = mantissa * 10 + (*p - u'0');
    std::ptrdiff_t digitCount = p - digits;
    std::ptrdiff_t decimals = 0;
    *mark = nullptr;
    if (*p == u',' || *p == u'.') {
        *mark = p;
        const char16_t* const behindMark = ++p;
        for (; IsDigit(*p); ++p) mantissa = mantissa * 10 + (*p - u'0');
        decimals = p - behindMark;
        digitCount += decimals;
    }
    if (*p != u'\0' || digitCount == 0 || digitCount > MostDigitsInUint64) return false;
    if (mantissa > LargestExactInteger) return false;
    const double magnitude = static_cast<double>(mantissa) / ExactPowers[decimals];
    value = negative ? -magnitude : magnitude;
    return true;
}

std::int64_t ParseInt64(const char16_t* text, const char16_t** end, int radix) {
    const char16_t* p = text;
    while (IsWhiteSpace(*p)) ++p;
    const bool negative = *p == u'-';
    if (*p == u'-' || *p == u'+') ++p;
    if (radix == 16 && p[0] == u'0' && (p[1] == u'x' || p[1] == u'X') && DigitValue(p[2]) < 16) p += 2;

    constexpr auto Highest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    const std::uint64_t limit = negative ? Highest + 1 : Highest;
    const auto base = static_cast<unsigned>(radix);
    std::uint64_t value = 0;
    bool saturated = false;
    const char16_t* const digits = p;
    for (; DigitValue(*p) < radix; ++p) {
        const auto digit = static_cast<unsigned>(DigitValue(*p));
        if (saturated || value > (limit - digit) / base) {
            saturated = true;
        } else {
            value = value * base + digit;
        }
    }
    *end = p == digits ? text : p;
    if (saturated) value = limit;
    return static_cast<std::int64_t>(negative ? 0 - value : value);
}
