// The fast readers of plain cells against the parsers they answer for.
#include "analysis/ScanCell.h"

#include <limits>
#include <optional>
#include <random>

#include "analysis/NumberCells.h"
#include "analysis/SplitPaddedLine.h"
#include "analysis/TextCells.h"
#include "kit/CheckRows.h"

namespace {

// A cell as it stands in a run: other text behind it, which must not count.
template <class Unit>
class Cell {
  public:
    explicit Cell(const std::basic_string<Unit>& text) : Line(text) {
        Line += Unit{};
        Line += {'7', ',', '5', 'e', '1'};
        Line.append(LinePadding, '9');
    }
    operator const Unit*() const { return Line.c_str(); }

  private:
    std::basic_string<Unit> Line;
};

// What is read of a cell without its parser.
struct Scanned {
    std::optional<std::uint64_t> Float;  // the bits of it
    std::optional<std::int64_t> Integer, Hex;
    std::optional<bool> Truth;
    std::size_t Length = 0;

    // f, i, h, b: so that the fast ways can't fall asleep unseen.
    std::string Letters() const {
        return std::string(Float ? "f" : "") + (Integer ? "i" : "") + (Hex ? "h" : "") + (Truth ? "b" : "");
    }
    bool operator==(const Scanned&) const = default;
};

template <class Unit>
Scanned Scan(const std::basic_string<Unit>& text) {
    const Cell<Unit> cell(text);
    const Unit* const start = cell;
    Scanned scanned;
    const Unit* end = nullptr;
    double number = 0;
    if (ScanDecimal(start, number, &end) && *end == 0) scanned.Float = std::bit_cast<std::uint64_t>(number);
    std::int64_t integer = 0;
    if (ScanInteger(start, integer, &end) && *end == 0) scanned.Integer = integer;
    if (ScanHex(start, integer)) scanned.Hex = integer;
    bool truth = false;
    if (ScanBool(start, truth)) scanned.Truth = truth;
    scanned.Length = ScanLength(start);
    return scanned;
}

// What a scan accepts its parser must accept with the same value, and a cell in bytes is read as the same one
// in UTF-16.
Scanned Compare(const std::u16string& text) {
    const Scanned scanned = Scan(text);
    EXPECT_EQ(scanned.Length, text.size());
    const std::string bytes = Utf16ToUtf8(text);
    EXPECT_TRUE(bytes.size() != text.size() || Scan(bytes) == scanned) << bytes;
    std::u16string copy = text;
    double number = 0;
    if (scanned.Float) {
        EXPECT_TRUE(ParseFloat(copy.data(), number, nullptr)) << bytes;
        EXPECT_EQ(*scanned.Float, std::bit_cast<std::uint64_t>(number)) << bytes;
    }
    copy = text;
    std::int64_t integer = 0;
    if (scanned.Integer) {
        EXPECT_TRUE(ParseInteger(copy.data(), integer, true, 10, nullptr)) << bytes;
        EXPECT_EQ(*scanned.Integer, integer) << bytes;
    }
    if (scanned.Hex) {
        EXPECT_TRUE(ParseHex(text.c_str(), integer)) << bytes;
        EXPECT_EQ(*scanned.Hex, integer) << bytes;
    }
    bool truth = false;
    if (scanned.Truth) {
        copy = text;
        EXPECT_TRUE(ParseBool(copy.data(), truth)) << bytes;
        EXPECT_EQ(*scanned.Truth, truth) << bytes;
    }
    return scanned;
}

TEST(ScanCell, ReadsPlainCells) {
    CheckRows(
        "0->fihb|1->fihb|-0->fi|+12->fi|12345678->fih|-1234567812345678->i|99999999,99999999->|12345678,"
        "12345678->f|1234567,12345678->f|"
        "12.5->f|12,5->f|-0,004->f|1e5->fh|1.5E-3->f|1,5e+22->f|2e30->fh|2e31->h|00000001->fih|1,2e-15->|"
        "fF->h|0x1F3A->h|0x1234abCD->h|123456789abcdef->|true->b|FALSE->b|"
        // Left to the parsers.
        "->|-->|.5->|5.->|1.2.3->|1,234.5->|0x->|-0x5->|$ff->|1e->h|1e+->|1e5.->|nan->|tru->|truee->|fals->|"
        "10->fih|"
        "12 kg->| 5->|5 ->|\uFF15->|\u0135->|5\u0130->|\u8031->|t\u0172ue->",
        [](const std::u16string& text) { return Compare(text).Letters(); });
}

TEST(ScanCell, AgreesWithTheParsers) {
    std::minstd_rand random(7);
    // Digits by the run at every place of a cell, and one strange character among them.
    constexpr std::u16string_view Strange = u"+-,.eExX abfT$\x2F\x3A\x130\x8030\xFF30";
    for (int i = 0; i < 200'000; ++i) {
        std::u16string text(1 + random() % 40, u'0');
        if (random() % 3 != 0) text.resize(1 + text.size() % 18);
        for (char16_t& c : text) c = static_cast<char16_t>(u'0' + random() % (i % 5 == 0 ? 1 : 10));
        for (unsigned strange = random() % 4; strange-- > 0;)
            text[random() % text.size()] = Strange[random() % (i % 2 == 0 ? 6 : Strange.size())];
        Compare(text);
        if (HasFailure()) return;
    }
    for (const char* text :
         {"9007199254740992", "9007199254740993", "90071992,54740993", "90071992.54740992",
          "99999999,99999999", "99999999", "9999999999999999", "-9223372036854775808", "0,00000001"})
        Compare(Utf8ToUtf16(text));
}

// Behind the number stands the unit, which the writer compares.
TEST(ScanCell, StopsBehindTheNumber) {
    CheckRows("12 kg->2|12,5kg->4|12e->|12e3 m->4|-7%->2|12x->|0 x->1|5,->|12,,->",
              [](const std::u16string& text) {
                  const Cell<char16_t> cell(text);
                  const char16_t* const start = cell;
                  double value = 0;
                  const char16_t* end = nullptr;
                  return ScanDecimal(start, value, &end) ? std::to_string(end - start) : "";
              });
}

}  // namespace
