// Writes a measurement file for benchmarks: the same bytes for the same arguments, on every machine.
//
//   generate-file SHAPE MEBIBYTES > file
//
//   logger  semicolon; German date and time with milliseconds; 8 floats with decimal comma
//   wide    comma; ISO date; time with microseconds; 64 floats with decimal point
//   ints    tab; elapsed seconds with milliseconds; 12 integers of 1 to 8 digits
//   mixed   semicolon; ISO date and time with milliseconds; boolean, integer with unit, hexadecimal number,
//           float, character, text, quoted text with separators inside
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "bench/RowText.h"

namespace {

void AppendLogger(RowText& text, std::uint64_t row) {
    const Moment moment = MomentOf(row * 1000);
    text.Digits(moment.Day, 2).Char('.').Digits(moment.Month, 2).Char('.').Digits(moment.Year, 4);
    text.Char(' ').TimeOfDay(moment).Char(',').Digits(moment.Microsecond / 1000, 3);
    for (int column = 0; column < 8; ++column) text.Char(';').Float(',', 4, 4);
}

void AppendWide(RowText& text, std::uint64_t row) {
    const Moment moment = MomentOf(row * 125);
    text.IsoDate(moment).Char(',').TimeOfDay(moment).Char('.').Digits(moment.Microsecond, 6);
    for (int column = 0; column < 64; ++column) text.Char(',').Float('.', 3, 5);
}

void AppendInts(RowText& text, std::uint64_t row) {
    text.Whole(12345 + row / 1000).Char('.').Digits(row % 1000, 3);
    for (int column = 0; column < 12; ++column) text.Char('\t').Sign().Whole(text.AnyLength());
}

void AppendMixed(RowText& text, std::uint64_t row) {
    constexpr const char* Places[] = {"Halle 3", "Kesselhaus", "Pumpe", "Vorlauf Nord", "Turbine 12"};
    constexpr const char* States[] = {"offen; gestellt", "zu; verriegelt; rot", "Wartung; bis 12:30"};
    const Moment moment = MomentOf(row * 1000);
    text.IsoDate(moment).Char(' ').TimeOfDay(moment).Char('.').Digits(moment.Microsecond / 1000, 3);
    text.Text(text.Below(2) == 0 ? ";true;" : ";false;");
    text.Whole(text.Below(5000)).Text(" kg;0x").Hex(text.Below(1u << 24)).Char(';').Float('.', 2, 5);
    text.Char(';').Char(static_cast<char>('A' + text.Below(26)));
    text.Char(';').Text(Places[text.Below(std::size(Places))]);
    text.Text(";\"").Text(States[text.Below(std::size(States))]).Char('"');
}

// The header line; the signals' names are the prefix and their number from 1.
std::string Header(const char* times, char separator, int signals) {
    std::string line = times;
    for (int signal = 1; signal <= signals; ++signal) line += separator + ("Kanal " + std::to_string(signal));
    return line + "\n";
}

struct Shape {
    const char* Name;
    std::string Header;
    void (*AppendRow)(RowText& text, std::uint64_t row);
};

const Shape Shapes[] = {
    {"logger", Header("Zeit", ';', 8), AppendLogger},
    {"wide", Header("Datum,Zeit", ',', 64), AppendWide},
    {"ints", Header("Zeit", '\t', 12), AppendInts},
    {"mixed", Header("Zeit", ';', 7), AppendMixed},
};

// Whole rows up to the limit in bytes.
bool WriteFile(const Shape& shape, std::uint64_t limit) {
    constexpr std::size_t BlockSize = 1 << 18;
    constexpr std::size_t LongestRow = 2048;
    std::vector<char> block(BlockSize + LongestRow);
    RowText text;
    std::uint64_t written = std::fwrite(shape.Header.data(), 1, shape.Header.size(), stdout);
    std::uint64_t row = 0;
    for (bool full = false; !full;) {
        text.Begin(block.data());
        while (text.End() < block.data() + BlockSize) {
            char* const start = text.End();
            shape.AppendRow(text, row++);
            text.Char('\n');
            full = written + static_cast<std::uint64_t>(text.End() - block.data()) > limit;
            if (full) {
                text.Begin(start);
                break;
            }
        }
        const std::size_t size = static_cast<std::size_t>(text.End() - block.data());
        if (std::fwrite(block.data(), 1, size, stdout) != size) return false;
        written += size;
    }
    return std::fflush(stdout) == 0;
}

}  // namespace

int main(int argc, char** argv) {
    for (const Shape& shape : Shapes) {
        if (argc != 3 || std::strcmp(argv[1], shape.Name) != 0) continue;
        if (WriteFile(shape, std::strtoull(argv[2], nullptr, 10) << 20)) return 0;
        std::perror("generate-file");
        return 1;
    }
    std::fputs("usage: generate-file logger|wide|ints|mixed MEBIBYTES > file\n", stderr);
    return 2;
}
