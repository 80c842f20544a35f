// The upper bound: the best loop on one thread that knows the shapes of generate-file in advance. It decodes
// no text, checks no cell and reports nothing; what an import may cost at best is told by how near it comes.
//
//   tight-loop logger|wide|ints|mixed FILE [--shared-axis]
//
// A sample is 16 bytes, time and value; with --shared-axis 8, and one list of times serves all columns.
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "bench/LoopReport.h"
#include "bench/SampleBlocks.h"
#include "bench/TightCells.h"

namespace {

// The columns of a file and their rows' times.
class Table {
  public:
    Table(const std::vector<SampleKind>& kinds, bool sharedAxis) : SharedAxis(sharedAxis) {
        for (const SampleKind kind : kinds) Columns.push_back(MakeSink(kind));
    }

    void BeginRow(std::int64_t time) {
        Time = time;
        ++Rows;
        if (SharedAxis) Times.Add(time);
    }

    void Add(std::size_t column, double value) { Columns[column]->AddSample(&value, sizeof value, Time); }
    void Add(std::size_t column, std::int64_t value) {
        Columns[column]->AddSample(&value, sizeof value, Time);
    }
    void Add(std::size_t column, const char* text, std::uint32_t length) {
        Columns[column]->AddSample(text, length, Time);
    }

    std::vector<double> Sums() const {
        std::vector<double> sums;
        for (const auto& column : Columns) sums.push_back(column->Sum());
        return sums;
    }

    std::uint64_t Rows = 0;
    MidnightCache Midnights;

  private:
    template <SampleKind Kind>
    std::unique_ptr<SampleSink> MakeSinkOf() const {
        if (SharedAxis) return std::make_unique<BlockSink<Kind, false>>();
        return std::make_unique<BlockSink<Kind, true>>();
    }

    std::unique_ptr<SampleSink> MakeSink(SampleKind kind) const {
        if (kind == SampleKind::Real) return MakeSinkOf<SampleKind::Real>();
        if (kind == SampleKind::Whole) return MakeSinkOf<SampleKind::Whole>();
        return MakeSinkOf<SampleKind::Text>();
    }

    const bool SharedAxis;
    std::int64_t Time = 0;
    BlockList<std::int64_t> Times;
    std::vector<std::unique_ptr<SampleSink>> Columns;
};

constexpr std::int64_t Second = 1000000000;

// Each scans a row and gives the start of the next.

const char* ScanLogger(const char* at, Table& table) {
    const std::int64_t midnight = table.Midnights.Of(at, 6, 3, 0);
    const std::int64_t millisecond = static_cast<std::int64_t>(DigitsAt(at + 20, 3));
    table.BeginRow(midnight + TimeOfDayAt(at + 11) * Second + millisecond * 1000000);
    at += 24;
    for (std::size_t column = 0; column < 8; ++column) table.Add(column, ScanFloat(at));
    return at;
}

const char* ScanWide(const char* at, Table& table) {
    const std::int64_t midnight = table.Midnights.Of(at, 0, 5, 8);
    const std::int64_t microsecond = static_cast<std::int64_t>(DigitsAt(at + 20, 6));
    table.BeginRow(midnight + TimeOfDayAt(at + 11) * Second + microsecond * 1000);
    at += 27;
    for (std::size_t column = 0; column < 64; ++column) table.Add(column, ScanFloat(at));
    return at;
}

const char* ScanInts(const char* at, Table& table) {
    const std::int64_t second = ScanDigits(at);
    table.BeginRow(second * Second + static_cast<std::int64_t>(DigitsAt(at + 1, 3)) * 1000000);
    at += 5;
    for (std::size_t column = 0; column < 12; ++column) {
        table.Add(column, ScanDigits(at));
        ++at;
    }
    return at;
}

const char* ScanMixed(const char* at, Table& table) {
    const std::int64_t midnight = table.Midnights.Of(at, 0, 5, 8);
    const std::int64_t millisecond = static_cast<std::int64_t>(DigitsAt(at + 20, 3));
    table.BeginRow(midnight + TimeOfDayAt(at + 11) * Second + millisecond * 1000000);
    at += 24;
    const std::int64_t isTrue = *at == 't';
    table.Add(0, isTrue);
    at += 6 - isTrue;
    table.Add(1, ScanDigits(at));
    at += 4;
    table.Add(2, ScanHex(at));
    table.Add(3, ScanFloat(at));
    table.Add(4, std::int64_t{*at});
    at += 2;
    const char* const plain = at;
    table.Add(5, plain, ScanText(at, ';'));
    const char* const quoted = ++at;
    table.Add(6, quoted, ScanText(at, '"'));
    return at + 1;
}

// Reads a file in blocks of whole lines.
class LineBlocks {
  public:
    explicit LineBlocks(int file) : File(file), Buffer(Padding + Capacity + Padding) {}

    // The next whole lines; false at the file's end. A last line without its end is dropped.
    bool Next(const char*& begin, const char*& end) {
        char* const start = Buffer.data() + Padding;
        std::memmove(start, Rest, RestSize);
        const ssize_t got = read(File, start + RestSize, Capacity - RestSize);
        if (got <= 0) return false;
        const std::string_view text(start, RestSize + static_cast<std::size_t>(got));
        const std::size_t whole = text.rfind('\n') + 1;
        Rest = start + whole;
        RestSize = text.size() - whole;
        begin = start;
        end = Rest;
        return true;
    }

  private:
    static constexpr std::size_t Capacity = 1 << 18;

    const int File;
    std::vector<char> Buffer;
    const char* Rest = Buffer.data();
    std::size_t RestSize = 0;
};

template <const char* (*ScanRow)(const char*, Table&)>
void ScanFile(int file, Table& table) {
    LineBlocks blocks(file);
    const char* at = nullptr;
    const char* end = nullptr;
    for (bool header = true; blocks.Next(at, end); header = false) {
        if (header)
            at = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at))) + 1;
        while (at < end) at = ScanRow(at, table);
    }
}

struct Shape {
    std::string_view Name;
    std::vector<SampleKind> Columns;
    void (*Scan)(int file, Table& table);
};

const Shape Shapes[] = {
    {"logger", std::vector(8, SampleKind::Real), ScanFile<ScanLogger>},
    {"wide", std::vector(64, SampleKind::Real), ScanFile<ScanWide>},
    {"ints", std::vector(12, SampleKind::Whole), ScanFile<ScanInts>},
    {"mixed",
     {SampleKind::Whole, SampleKind::Whole, SampleKind::Whole, SampleKind::Real, SampleKind::Whole,
      SampleKind::Text, SampleKind::Text},
     ScanFile<ScanMixed>},
};

int Run(const Shape& shape, const char* path, bool sharedAxis) {
    const Stopwatch stopwatch;
    const int file = open(path, O_RDONLY);
    if (file < 0) {
        std::perror(path);
        return 1;
    }
    Table table(shape.Columns, sharedAxis);
    shape.Scan(file, table);
    const TimeTaken taken = stopwatch.Taken();
    PrintReport(sharedAxis ? "tight loop, shared axis" : "tight loop", table.Rows, table.Sums(), taken);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const bool sharedAxis = argc == 4 && std::strcmp(argv[3], "--shared-axis") == 0;
    for (const Shape& shape : Shapes) {
        if ((argc == 3 || sharedAxis) && shape.Name == argv[1]) return Run(shape, argv[2], sharedAxis);
    }
    std::fputs("usage: tight-loop logger|wide|ints|mixed FILE [--shared-axis]\n", stderr);
    return 2;
}
