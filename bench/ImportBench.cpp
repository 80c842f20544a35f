// Throughput of a whole run and of its stages, and the allocations of a run.
//
//   import-bench [--benchmark_filter=...]
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "analysis/ScanCell.h"
#include "analysis/SplitPaddedLine.h"
#include "bench/Allocations.h"
#include "bench/NullHost.h"
#include "contract/ImportFilter.h"
#include "contract/StdioFileEx.h"
#include "platform/framework/Path.h"
#include "platform/framework/ProfileStore.h"
#include "platform/framework/SharedLibrary.h"
#include "plugin/CsvImportApp.h"
#include "plugin/CsvImportFactory.h"
#include "timestamp/TimestampFormat.h"

namespace {

constexpr const char16_t* Format = u"TT.MM.JJJJ hh:mm:ss,000";
constexpr const char16_t* Row =
    u"01.02.2024 10:00:00,125;12,5;-1013,25;0,004;1500,75;-8,125;99,9;1,2345;100000,5";

// A file of 16 MiB beside the program, made by the generator at the first use.
const std::u16string& BenchFile() {
    static const std::u16string path = [] {
        const std::u16string file = ProgramFolder() + u"/bench-16.csv";
        const std::string generator = PathToNative(ProgramFolder() + u"/generate-file");
        const std::string command = "'" + generator + "' logger 16 > '" + PathToNative(file) + "'";
        if (std::system(command.c_str()) != 0) std::abort();
        return file;
    }();
    return path;
}

void WholeImport(benchmark::State& state) {
    std::uint64_t lines = 0;
    std::uint64_t allocationsInLoop = 0;
    std::uint64_t bytes = 0;
    for (auto _ : state) {
        NullHost host;
        const std::unique_ptr<CImportFilter> filter(CreateCsvImportFilter(BenchFile().c_str()));
        filter->DeviceHost = &host;
        filter->TimeContext = &host;
        if (!filter->BeginImport()) state.SkipWithError("the run could not begin");
        std::uint32_t progress = 0;
        filter->ImportNextLine(&progress);  // after it the buffers have their size
        const std::uint64_t before = CountAllocations();
        while (filter->ImportNextLine(&progress)) ++lines;
        allocationsInLoop += CountAllocations() - before;
        filter->EndImport();
        bytes += 16u << 20;
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
    state.counters["lines"] = static_cast<double>(lines);
    state.counters["allocations"] = static_cast<double>(allocationsInLoop);
}

void ReadLines(benchmark::State& state) {
    std::u16string line;
    for (auto _ : state) {
        CStdioFileEx file;
        CFileException error(false);
        if (!file.Open(BenchFile().c_str(), CFile::modeRead, &error)) state.SkipWithError("no file");
        while (file.ReadString(line)) benchmark::DoNotOptimize(line.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * (16 << 20));
}

void SplitRow(benchmark::State& state) {
    const std::u16string row = Row + std::u16string(LinePadding, u'\0');
    std::u16string line;
    CellList cells;
    for (auto _ : state) {
        line = row;
        SplitPaddedLine(line.data(), u';', false, cells);
        benchmark::DoNotOptimize(cells.begin());
    }
    state.SetBytesProcessed(
        static_cast<std::int64_t>(state.iterations() * std::char_traits<char16_t>::length(Row)));
}

void ScanFloatCell(benchmark::State& state) {
    const std::u16string cell = u"-1013,25" + std::u16string(LinePadding, u'\0');
    const char16_t* end = nullptr;
    double value = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(cell.data());
        benchmark::DoNotOptimize(ScanDecimal(cell.data(), value, &end));
    }
}

void ReadTimestampCell(benchmark::State& state) {
    const std::u16string cells[] = {u"01.02.2024 10:00:00,125", u"01.02.2024 10:00:00,126"};
    TimestampFormat format(Format);
    std::size_t row = 0;
    for (auto _ : state) benchmark::DoNotOptimize(format.Read(cells[row++ % 2].c_str(), true));
}

BENCHMARK(WholeImport)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadLines)->Unit(benchmark::kMillisecond);
BENCHMARK(SplitRow);
BENCHMARK(ScanFloatCell);
BENCHMARK(ReadTimestampCell);

// No user's profile: only the format of the generated file.
class NoProfile : public ProfileStore {
  public:
    using Section = const std::u16string&;
    std::optional<std::int32_t> ReadInt(Section, const std::u16string&) override { return std::nullopt; }
    std::optional<std::u16string> ReadText(Section, const std::u16string& key) override {
        if (key == u"TimestampFormat") return Format;
        return std::nullopt;
    }
    std::optional<ProfileBlock> ReadBlock(Section, const std::u16string&) override { return std::nullopt; }
    bool WriteInt(Section, const std::u16string&, std::int32_t) override { return false; }
    bool WriteText(Section, const std::u16string&, const std::u16string&) override { return false; }
    bool WriteBlock(Section, const std::u16string&, const ProfileBlock&) override { return false; }
};

}  // namespace

int main(int argc, char** argv) {
    CCsvImportApp app;
    app.InitInstance();
    SetProcessProfile(std::make_shared<NoProfile>());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
