// What one writes without a thought of speed: the file in one string, lines and cells as std::string_view,
// std::from_chars, a std::vector per column.
//
//   naive-loop logger|wide|ints|mixed FILE
#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "bench/LoopReport.h"

namespace {

using Reals = std::vector<double>;
using Wholes = std::vector<std::int64_t>;
using Texts = std::vector<std::string>;
using Column = std::variant<Reals, Wholes, Texts>;

template <class Number, class... Options>
Number Parse(std::string_view text, Options... options) {
    Number number{};
    std::from_chars(text.data(), text.data() + text.size(), number, options...);
    return number;
}

double ParseReal(std::string_view text, char mark) {
    const std::size_t place = text.find(mark);
    if (mark == '.' || place == text.npos) return Parse<double>(text);
    std::string copy(text);
    copy[place] = '.';
    return Parse<double>(copy);
}

std::int64_t Midnight(std::string_view year, std::string_view month, std::string_view day) {
    using namespace std::chrono;
    const sys_days date = std::chrono::year(Parse<int>(year)) / Parse<int>(month) / Parse<int>(day);
    return nanoseconds(date.time_since_epoch()).count();
}

// "hh:mm:ss", a mark and a fraction of a second.
std::int64_t TimeOfDay(std::string_view text) {
    const std::int64_t minutes =
        Parse<std::int64_t>(text.substr(0, 2)) * 60 + Parse<std::int64_t>(text.substr(3, 2));
    std::int64_t fraction = Parse<std::int64_t>(text.substr(9));
    for (std::size_t digits = text.size() - 9; digits < 9; ++digits) fraction *= 10;
    return (minutes * 60 + Parse<std::int64_t>(text.substr(6, 2))) * 1000000000 + fraction;
}

std::int64_t IsoMidnight(std::string_view text) {
    return Midnight(text.substr(0, 4), text.substr(5, 2), text.substr(8, 2));
}

// The next cell; a quoted one without its quotes. Leaves the rest of the line.
std::string_view NextCell(std::string_view& line, char separator) {
    const bool quoted = !line.empty() && line.front() == '"';
    if (quoted) line.remove_prefix(1);
    const std::size_t end = line.find(quoted ? '"' : separator);
    const std::string_view cell = line.substr(0, end);
    line.remove_prefix(std::min(line.size(), cell.size() + (quoted ? 2 : 1)));
    return cell;
}

struct Table {
    Wholes Times;
    std::vector<Column> Columns;
};

// Each takes a line without its end.

void AddLogger(std::string_view line, Table& table) {
    const std::string_view time = NextCell(line, ';');
    const std::int64_t midnight = Midnight(time.substr(6, 4), time.substr(3, 2), time.substr(0, 2));
    table.Times.push_back(midnight + TimeOfDay(time.substr(11)));
    for (Column& column : table.Columns)
        std::get<Reals>(column).push_back(ParseReal(NextCell(line, ';'), ','));
}

void AddWide(std::string_view line, Table& table) {
    const std::int64_t midnight = IsoMidnight(NextCell(line, ','));
    table.Times.push_back(midnight + TimeOfDay(NextCell(line, ',')));
    for (Column& column : table.Columns)
        std::get<Reals>(column).push_back(ParseReal(NextCell(line, ','), '.'));
}

void AddInts(std::string_view line, Table& table) {
    table.Times.push_back(static_cast<std::int64_t>(ParseReal(NextCell(line, '\t'), '.') * 1e9));
    for (Column& column : table.Columns) {
        std::get<Wholes>(column).push_back(Parse<std::int64_t>(NextCell(line, '\t')));
    }
}

void AddMixed(std::string_view line, Table& table) {
    const std::string_view time = NextCell(line, ';');
    table.Times.push_back(IsoMidnight(time) + TimeOfDay(time.substr(11)));
    std::vector<Column>& columns = table.Columns;
    std::get<Wholes>(columns[0]).push_back(NextCell(line, ';') == "true");
    std::get<Wholes>(columns[1]).push_back(Parse<std::int64_t>(NextCell(line, ';')));
    std::get<Wholes>(columns[2]).push_back(Parse<std::int64_t>(NextCell(line, ';').substr(2), 16));
    std::get<Reals>(columns[3]).push_back(ParseReal(NextCell(line, ';'), '.'));
    std::get<Wholes>(columns[4]).push_back(NextCell(line, ';').front());
    std::get<Texts>(columns[5]).emplace_back(NextCell(line, ';'));
    std::get<Texts>(columns[6]).emplace_back(NextCell(line, ';'));
}

struct Shape {
    std::string_view Name;
    std::vector<Column> Columns;
    void (*AddLine)(std::string_view line, Table& table);
};

const Shape Shapes[] = {
    {"logger", std::vector<Column>(8, Reals()), AddLogger},
    {"wide", std::vector<Column>(64, Reals()), AddWide},
    {"ints", std::vector<Column>(12, Wholes()), AddInts},
    {"mixed", {Wholes(), Wholes(), Wholes(), Reals(), Wholes(), Texts(), Texts()}, AddMixed},
};

std::string ReadWhole(const char* path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string text(file ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
    file.seekg(0);
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    return text;
}

double SumOf(const Column& column) {
    double sum = 0;
    if (const Reals* const reals = std::get_if<Reals>(&column)) {
        for (const double value : *reals) sum += value;
    } else if (const Wholes* const wholes = std::get_if<Wholes>(&column)) {
        for (const std::int64_t value : *wholes) sum += static_cast<double>(value);
    } else {
        for (const std::string& text : std::get<Texts>(column)) sum += static_cast<double>(text.size());
    }
    return sum;
}

int Run(const Shape& shape, const char* path) {
    const Stopwatch stopwatch;
    Table table{{}, shape.Columns};
    const std::string text = ReadWhole(path);
    std::size_t at = text.find('\n') + 1;  // behind the header
    for (std::size_t end = 0; (end = text.find('\n', at)) != text.npos; at = end + 1) {
        shape.AddLine(std::string_view(text).substr(at, end - at), table);
    }
    const TimeTaken taken = stopwatch.Taken();
    std::vector<double> sums;
    for (const Column& column : table.Columns) sums.push_back(SumOf(column));
    PrintReport("naive loop", table.Times.size(), sums, taken);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    for (const Shape& shape : Shapes) {
        if (argc == 3 && shape.Name == argv[1]) return Run(shape, argv[2]);
    }
    std::fputs("usage: naive-loop logger|wide|ints|mixed FILE\n", stderr);
    return 2;
}
