// The number conversions, against the runtime's own.
#include "platform/framework/Numbers.h"

#include <gtest/gtest.h>
#include <locale.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <random>
#include <sstream>

namespace {

constexpr std::string_view Digits = "0123456789";
std::mt19937_64 Random(20240229);

std::string RandomText(std::string_view alphabet, std::size_t longest) {
    std::string text(Random() % (longest + 1), '\0');
    for (char& c : text) c = alphabet[Random() % alphabet.size()];
    return text;
}

// Value, bit by bit but for the kind of a NaN, and how far the number reached.
std::string Describe(double value, std::ptrdiff_t length) {
    char text[64];
    std::snprintf(text, sizeof text, "%a in %td", std::isnan(value) ? std::nan("") : value, length);
    return text;
}

std::string Parse(const std::u16string& text, char16_t decimalPoint = u'.') {
    const char16_t* end = nullptr;
    const double value = ParseDouble(text.c_str(), decimalPoint, &end);
    return Describe(value, end - text.c_str());
}

std::string ParseWhole(const std::u16string& text, int radix) {
    const char16_t* end = nullptr;
    const std::int64_t value = ParseInt64(text.c_str(), &end, radix);
    return std::to_string(value) + " in " + std::to_string(end - text.c_str());
}

// Reads one text as every kind of number, the double with comma and point exchanged too.
void CheckAgainstRuntime(const std::string& text) {
    static const locale_t point = newlocale(LC_ALL_MASK, "C", locale_t{});
    char* end = nullptr;
    const double value = strtod_l(text.c_str(), &end, point);
    std::u16string wide(text.begin(), text.end());
    const std::string expected = Describe(value, end - text.c_str());
    ASSERT_EQ(Parse(wide), expected) << text;
    for (const int radix : {8, 10, 16, 36}) {
        const std::string whole = std::to_string(std::strtoll(text.c_str(), &end, radix));
        ASSERT_EQ(ParseWhole(wide, radix), whole + " in " + std::to_string(end - text.c_str())) << text;
    }
    const char16_t* mark = nullptr;
    double shortcut = 0;  // which may refuse any text
    if (ParseShortDecimal(wide.c_str(), shortcut, &mark)) {
        const std::string found = Describe(shortcut, static_cast<std::ptrdiff_t>(wide.size()));
        ASSERT_EQ(found, Parse(wide, mark == nullptr ? u'.' : *mark)) << text;
    }
    for (char16_t& c : wide) c = c == u'.' ? u',' : c == u',' ? u'.' : c;
    ASSERT_EQ(Parse(wide, u','), expected) << text << " with a comma";
}

}  // namespace

TEST(Numbers, RandomTextsAreReadAsTheRuntimeDoes) {
    for (int i = 0; i < 20'000 && !HasFatalFailure(); ++i) {
        const std::string end = "e" + std::to_string(static_cast<int>(Random() % 700) - 350);
        CheckAgainstRuntime(RandomText("-", 1) + RandomText(Digits, 24) + "." + RandomText(Digits, 30) + end);
        CheckAgainstRuntime(RandomText(i % 2 ? "0011259.eE+-xXpPaAfF\t " : "0x.p-18aF", 14));
        CheckAgainstRuntime(RandomText(Digits, 12) + RandomText(".,", 1) + RandomText(Digits, 9));
        CheckAgainstRuntime(RandomText("iInNfFaAtTyY(_1)- ", 10));
        CheckAgainstRuntime(RandomText("01", 1) + RandomText("0123456789abcdefFxX+- z", 22));
        // any double, and the middle of two, where only the last of some hundred digits decides
        const double value = std::bit_cast<double>(std::uint64_t{Random()});
        char text[1200];
        std::snprintf(text, sizeof text, i % 2 ? "%.*e" : "%.*a", static_cast<int>(Random() % 40), value);
        CheckAgainstRuntime(text);
        if (i % 10 != 0 || !std::isfinite(value)) continue;
        const long double middle = static_cast<long double>(value) + std::nextafter(value, INFINITY);
        std::snprintf(text, sizeof text, "%.800Le", middle / 2);
        CheckAgainstRuntime(text);
        CheckAgainstRuntime(std::string(text).insert(std::string_view(text).find('e'), "1"));
    }
}

TEST(Numbers, EdgesAreReadAsTheRuntimeDoes) {
    const std::string zeros(10'000, '0');
    std::istringstream texts(
        "|-.| -|+-1|- 1|.e5|na|5.|-.5x|1,5|1e|1e+x|1e5.5|\t\n\v\f\r -1|-0e5|0x|-0xg|0x.g|0X.8|0x0x1|0x1.8p|"
        "0x1p+|-0x1p-1|0x1.8.8|0x1p1024|0x1p-1074|0x1p-1075|0x1.8p-1075|0x1.fffffffffffff8p1023|zZ|-1e309|"
        "0x1p9999999999999999|0x1.00000000000008p0|0x1.000000000000080000000000000000000001p0|-1e-400|nan()|"
        "0x1.00000000000018p0|1e9999999999999999|1e-9999999999999999|0e9999999999999999|-INFINITY|infinxty|"
        "nan(1_a)b|nan(|nan(-)|1.7976931348623158079e308|1.7976931348623159e308|2.4703282292062327e-324|"
        "2.4703282292062328e-324|2.2250738585072011e-308|9007199254740993|9007199254740993.00000000000001|"
        "9223372036854775807|9223372036854775808|-9223372036854775808|-9223372036854775809|"
        "18446744073709551617|7fffffffffffffff|0x8000000000000000|-0x8000000000000000|-0x8000000000000001|" +
        zeros + "7|1" + zeros + "e-10000|0." + zeros + "1e10001|0x" + zeros + "1." + zeros + "p3");
    for (std::string text; std::getline(texts, text, '|');) CheckAgainstRuntime(text);
}

TEST(Numbers, KnowAsciiOnly) {
    for (const std::u16string text : {u" -12.5e-3", u"0x1.8p+2", u"infinity", u"nan(a1)", u" -0x12aF"}) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            std::u16string changed = text;
            changed[i] = static_cast<char16_t>(text[i] + 0x100);
            EXPECT_EQ(Parse(changed), Parse(text.substr(0, i))) << i;
            EXPECT_EQ(ParseWhole(changed, 16), ParseWhole(text.substr(0, i), 16)) << i;
        }
    }
}

TEST(Numbers, DoublesBecomeWholeNumbers) {
    for (const double other : {0x1p63, -HUGE_VAL, NAN + 0.0}) EXPECT_EQ(DoubleToInt64(other), INT64_MIN);
    EXPECT_EQ(DoubleToInt64(-1.9) + DoubleToInt64(9223372036854774784.0), 9223372036854774783);
}
