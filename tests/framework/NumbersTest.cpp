// The number conversions: against the runtime's own on generated texts, then edge by edge.
#include "platform/framework/Numbers.h"

#include <gtest/gtest.h>
#include <locale.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <string_view>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t Lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t Highest = std::numeric_limits<std::int64_t>::max();

// The C locale on this thread: the reference wants a point, whatever the user's locale has.
class PointLocale {
  public:
    PointLocale() : Own(newlocale(LC_ALL_MASK, "C", locale_t{})), Previous(uselocale(Own)) {}
    PointLocale(const PointLocale&) = delete;
    PointLocale& operator=(const PointLocale&) = delete;
    ~PointLocale() {
        uselocale(Previous);
        freelocale(Own);
    }

  private:
    locale_t Own, Previous;
};

// The same sequence in every run and with every library: the standard distributions promise neither.
class Random {
  public:
    std::uint64_t Bits() { return Engine(); }
    std::size_t Below(std::size_t bound) { return Engine() % bound; }
    bool Chance() { return Below(2) == 0; }

    // Up to `longest` characters of the alphabet.
    std::string Text(std::string_view alphabet, std::size_t longest) {
        std::string text(Below(longest + 1), '\0');
        for (char& c : text) c = alphabet[Below(alphabet.size())];
        return text;
    }

  private:
    std::mt19937_64 Engine{20240229};
};

std::u16string Widen(std::string_view text) {
    return std::u16string(text.begin(), text.end());
}

// Value, bit by bit but for the kind of a NaN, and how far the number reached.
std::string Describe(double value, std::ptrdiff_t length) {
    char text[64];
    std::snprintf(text, sizeof text, "%a in %td", std::isnan(value) ? NotANumber : value, length);
    return text;
}

std::string Parse(const std::u16string& text, char16_t decimalPoint = u'.') {
    const char16_t* end = nullptr;
    const double value = ParseDouble(text.c_str(), decimalPoint, &end);
    return Describe(value, end - text.c_str());
}

std::string ParseByRuntime(const std::string& text) {
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    return Describe(value, end - text.c_str());
}

// Checks one text, and once more with comma and point exchanged.
void CheckAgainstRuntime(const std::string& text) {
    const std::string expected = ParseByRuntime(text);
    std::u16string wide = Widen(text);
    ASSERT_EQ(Parse(wide), expected) << text;
    for (char16_t& c : wide) c = c == u'.' ? u',' : c == u',' ? u'.' : c;
    ASSERT_EQ(Parse(wide, u','), expected) << text << " with a comma";
}

std::string Print(const char* format, int precision, double value) {
    char text[1200];
    std::snprintf(text, sizeof text, format, precision, value);
    return text;
}

std::string ParseWhole(const std::u16string& text, int radix) {
    const char16_t* end = nullptr;
    const std::int64_t value = ParseInt64(text.c_str(), &end, radix);
    return std::to_string(value) + " in " + std::to_string(end - text.c_str());
}

}  // namespace

TEST(ParseDouble, ReadsDecimalsAsTheRuntimeDoes) {
    const PointLocale locale;
    Random random;
    for (int i = 0; i < 150'000 && !HasFatalFailure(); ++i) {
        std::string text = random.Chance() ? "-" : "";
        text += random.Text("0123456789", random.Chance() ? 6 : 24);
        if (random.Chance()) text += "." + random.Text("0123456789", random.Chance() ? 4 : 30);
        if (random.Chance()) text += "e" + std::to_string(static_cast<int>(random.Below(700)) - 350);
        CheckAgainstRuntime(text);
    }
}

TEST(ParseDouble, ReadsEveryPrintedDouble) {
    const PointLocale locale;
    Random random;
    for (int i = 0; i < 50'000 && !HasFatalFailure(); ++i) {
        const std::uint64_t bits = random.Bits();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        CheckAgainstRuntime(Print("%.*e", static_cast<int>(random.Below(40)), value));
        CheckAgainstRuntime(Print("%.*a", static_cast<int>(random.Below(16)), value));
    }
}

// Exactly between two doubles only the last of some hundred digits decides.
TEST(ParseDouble, RoundsTheMiddleOfTwoDoublesToEven) {
    const PointLocale locale;
    Random random;
    for (int i = 0; i < 3'000 && !HasFatalFailure(); ++i) {
        const double low = std::ldexp(1.0 + static_cast<double>(random.Bits() >> 12) * 0x1p-52,
                                      static_cast<int>(random.Below(2000)) - 1000);
        const long double middle =
            (static_cast<long double>(low) + static_cast<long double>(std::nextafter(low, Infinity))) / 2;
        char text[1200];
        std::snprintf(text, sizeof text, "%.800Le", middle);
        const std::string exact = text;
        const std::size_t exponent = exact.find('e');
        CheckAgainstRuntime(exact);
        CheckAgainstRuntime(exact.substr(0, exponent) + "1" + exact.substr(exponent));
    }
}

TEST(ParseDouble, EndsWhereTheRuntimeEnds) {
    const PointLocale locale;
    Random random;
    for (int i = 0; i < 150'000 && !HasFatalFailure(); ++i) {
        CheckAgainstRuntime(random.Text("0011259.eE+-xXpPaAfF\t ", 12));
        CheckAgainstRuntime(random.Text("0x.p-18aF", 16));
        CheckAgainstRuntime(random.Text("iInNfFaAtTyY(_1)- ", 10));
    }
}

// The places where the grammar turns, which chance may miss.
TEST(ParseDouble, EndsWhereTheRuntimeEndsAtEdges) {
    const PointLocale locale;
    const char* const texts[] = {
        // no number
        "", " ", ".", "-.", "+-1", "- 1", "e5", ".e5", "in", "na", "0-",
        // points and exponents that lack their digits
        "5.", "-.5x", "5..", "1,5", "1e", "1e+", "1e+x", "1E-2", "1e5.5", "\t\n\v\f\r -1", "-0", "-0e5",
        "1_000",
        // hexadecimal
        "0x", "-0xg", "0x.", "0x.g", "0X.8", "0x1.8p", "0x1p+", "0x1e2", "-0x1p-1", "0x1P4", "0x1.8.8",
        "00x1", "0x1p1024", "0x1p-1074", "0x1p-1075", "0x1.8p-1075", "0x1.fffffffffffff8p1023",
        "0x1p99999999999999999999", "0x1.00000000000008p0", "0x1.000000000000080000000000000000000001p0",
        "0x1.00000000000018p0",
        // exponents beyond every type
        "1e999999999999999999999", "1e-99999999999999999999", "0e999999999999999999999",
        // words
        "inf", "-INFINITY", "infinit", "infinxty", "nAn", "nan(1_a)b", "nan()", "nan(", "nan(-)", "nan (1)"};
    for (const char* text : texts) CheckAgainstRuntime(text);
}

TEST(ParseDouble, RoundsAtTheBoundsOfTheRange) {
    const struct {
        const char16_t* Input;
        double Value;
    } cases[] = {
        {u"1.7976931348623157e308", std::numeric_limits<double>::max()},
        {u"1.7976931348623158079e308", std::numeric_limits<double>::max()},
        {u"1.7976931348623159e308", Infinity},
        {u"-1e309", -Infinity},
        {u"2.4703282292062327e-324", 0},
        {u"2.4703282292062328e-324", std::numeric_limits<double>::denorm_min()},
        {u"2.2250738585072011e-308", 0x0.fffffffffffffp-1022},  // once hung a well-known runtime
        {u"-1e-400", -0.0},
        // ties at 53 bits
        {u"9007199254740993", 9007199254740992.0},
        {u"9007199254740995", 9007199254740996.0},
        {u"9007199254740993.0000000000000000000000001", 9007199254740994.0},
    };
    for (const auto& c : cases) {
        const std::u16string text = c.Input;
        EXPECT_EQ(Parse(text), Describe(c.Value, static_cast<std::ptrdiff_t>(text.size())));
    }
}

TEST(ParseDouble, TakesAnyNumberOfDigits) {
    const std::u16string zeros(100'000, u'0');
    const std::u16string nines(100'000, u'9');
    EXPECT_EQ(Parse(u"1" + zeros + u"e-100000"), Describe(1, 100'009));
    EXPECT_EQ(Parse(u"0." + zeros + u"1e100001"), Describe(1, 100'010));
    EXPECT_EQ(Parse(zeros + u"7"), Describe(7, 100'001));
    EXPECT_EQ(Parse(u"0." + nines), Describe(1, 100'002));
    EXPECT_EQ(Parse(nines), Describe(Infinity, 100'000));
    EXPECT_EQ(Parse(u"0." + zeros + u"1"), Describe(0, 100'003));
    EXPECT_EQ(Parse(u"0x" + zeros + u"1." + zeros + u"p3"), Describe(8, 200'006));
}

// A character that only looks like ASCII, or shares its low byte with it, ends the text there.
TEST(ParseDouble, KnowsAsciiOnly) {
    for (const std::u16string text : {u" -12.5e-3", u"0x1.8p+2", u"infinity", u"nan(a1)"}) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            for (const int shift : {0x100, 0xFEE0}) {
                std::u16string changed = text;
                changed[i] = static_cast<char16_t>(changed[i] + shift);
                EXPECT_EQ(Parse(changed), Parse(text.substr(0, i)))
                    << "character " << i << " of " << testing::PrintToString(text);
            }
        }
    }
}

// The shortcut may refuse any text, but where it answers the long way must answer the same.
TEST(ParseShortDecimal, AgreesWithTheLongWay) {
    Random random;
    int answered = 0;
    for (int i = 0; i < 300'000; ++i) {
        const std::string text = random.Chance()
                                     ? random.Text("0123456789", 12) + "." + random.Text("012345", 9)
                                     : random.Text("0199,.+-e x", 6);
        const std::u16string wide = Widen(text);
        const char16_t* mark = nullptr;
        double value = 0;
        if (!ParseShortDecimal(wide.c_str(), value, &mark)) continue;
        ++answered;
        ASSERT_EQ(Describe(value, static_cast<std::ptrdiff_t>(wide.size())),
                  Parse(wide, mark == nullptr ? u'.' : *mark))
            << text;
        const std::size_t place = text.find_first_of(",.");
        ASSERT_EQ(mark, place == std::string::npos ? nullptr : wide.c_str() + place) << text;
    }
    EXPECT_GT(answered, 100'000);
}

TEST(ParseShortDecimal, AnswersMeasuredValuesOnly) {
    const struct {
        const char16_t* Input;
        bool Answers;
    } cases[] = {{u"0", true},
                 {u"-0", true},
                 {u"+12.50", true},
                 {u"12,5", true},
                 {u"5.", true},
                 {u",5", true},
                 {u"", false},
                 {u"-", false},
                 {u".", false},
                 {u"1.2.3", false},
                 {u"1,2.3", false},
                 {u" 1", false},
                 {u"1 ", false},
                 {u"1e5", false},
                 {u"+-1", false},
                 {u"0x1", false},
                 {u"inf", false},
                 {u"1\u0661", false},
                 {u"9007199254740992", true},
                 {u"9007199254740993", false},
                 {u"0000000000000000001", true},
                 {u"00000000000000000001", false},
                 {u"18446744073709551617", false},
                 {u"1.8446744073709551617", false}};
    for (const auto& c : cases) {
        const char16_t* mark = nullptr;
        double value = 0;
        EXPECT_EQ(ParseShortDecimal(c.Input, value, &mark), c.Answers)
            << testing::PrintToString(std::u16string(c.Input));
    }
}

TEST(ParseInt64, Edges) {
    const struct {
        const char16_t* Input;
        int Radix;
        std::int64_t Value;
        int Length;
    } cases[] = {
        {u"", 10, 0, 0},
        {u" -", 10, 0, 0},
        {u"- 5", 10, 0, 0},
        {u"+-5", 10, 0, 0},
        {u"\t\n\v\f\r 42;", 10, 42, 8},
        {u"+7.9", 10, 7, 2},
        {u"1e3", 10, 1, 1},
        {u"0x10", 10, 0, 1},
        // saturation, and digits behind it
        {u"9223372036854775807", 10, Highest, 19},
        {u"9223372036854775808", 10, Highest, 19},
        {u"-9223372036854775807", 10, Lowest + 1, 20},
        {u"-9223372036854775808", 10, Lowest, 20},
        {u"-9223372036854775809", 10, Lowest, 20},
        {u"18446744073709551617", 10, Highest, 20},
        {u"-99999999999999999999999999x", 10, Lowest, 27},
        {u"00000000000000000000000000001", 10, 1, 29},
        // radix 16
        {u"fFg", 16, 255, 2},
        {u"0X1f", 16, 31, 4},
        {u"0x", 16, 0, 1},
        {u"-0xg", 16, 0, 2},
        {u"x1", 16, 0, 0},
        {u"0x0x1", 16, 0, 3},
        {u"7fffffffffffffff", 16, Highest, 16},
        {u"0x8000000000000000", 16, Highest, 18},
        {u"-0x8000000000000000", 16, Lowest, 19},
        // other radices
        {u"1012", 2, 5, 3},
        {u"08", 8, 0, 1},
        {u"zZ", 36, 1295, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(c.Input)));
        EXPECT_EQ(ParseWhole(c.Input, c.Radix), std::to_string(c.Value) + " in " + std::to_string(c.Length));
    }
}

TEST(ParseInt64, ReadsAsTheRuntimeDoes) {
    Random random;
    for (int i = 0; i < 100'000; ++i) {
        const std::string text = random.Text("01", 1) + random.Text("0123456789abcdefFxX+- z", 22);
        for (const int radix : {8, 10, 16, 36}) {
            char* end = nullptr;
            const std::int64_t value = std::strtoll(text.c_str(), &end, radix);
            const std::string expected = std::to_string(value) + " in " + std::to_string(end - text.c_str());
            ASSERT_EQ(ParseWhole(Widen(text), radix), expected) << text << " at radix " << radix;
        }
    }
}

TEST(ParseInt64, KnowsAsciiOnly) {
    for (const std::u16string text : {u" -0x12aF", u"+1234"}) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            for (const int shift : {0x100, 0xFEE0}) {
                std::u16string changed = text;
                changed[i] = static_cast<char16_t>(changed[i] + shift);
                EXPECT_EQ(ParseWhole(changed, 16), ParseWhole(text.substr(0, i), 16)) << "character " << i;
            }
        }
    }
}

TEST(DoubleToInt64, Edges) {
    const struct {
        double Value;
        std::int64_t Expected;
    } cases[] = {
        {0.0, 0},
        {-0.9, 0},
        {1.9, 1},
        {-1.9, -1},
        {9223372036854774784.0, 9223372036854774784},  // the last double below 2 to the 63
        {9223372036854775808.0, Lowest},
        {-9223372036854775808.0, Lowest},
        {-9223372036854777856.0, Lowest},
        {1e300, Lowest},
        {Infinity, Lowest},
        {-Infinity, Lowest},
        {NotANumber, Lowest},
    };
    for (const auto& c : cases) EXPECT_EQ(DoubleToInt64(c.Value), c.Expected) << c.Value;
}
