// Writes a measurement file for benchmarks: a German date and time and eight float columns with decimal
// comma.
//
//   generate-file MEBIBYTES > file.csv
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// A fixed sequence, so that every run measures the same file.
class Random {
  public:
    std::uint32_t Below(std::uint32_t bound) {
        State = State * 6364136223846793005u + 1442695040888963407u;
        return static_cast<std::uint32_t>(State >> 33) % bound;
    }

  private:
    std::uint64_t State = 42;
};

constexpr int Columns = 8;
constexpr std::uint64_t RowsPerSecond = 1000;

void AppendTime(std::string& line, std::uint64_t row) {
    const std::uint64_t second = row / RowsPerSecond;
    char text[64];
    std::snprintf(text, sizeof text, "%02d.02.2024 %02d:%02d:%02d,%03d",
                  static_cast<int>(1 + second / 86400 % 29), static_cast<int>(second / 3600 % 24),
                  static_cast<int>(second / 60 % 60), static_cast<int>(second % 60),
                  static_cast<int>(row % RowsPerSecond));
    line = text;
}

}  // namespace

int main(int argc, char** argv) {
    const std::uint64_t limit = (argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1) << 20;
    Random random;
    std::string line = "Zeit";
    for (int column = 1; column <= Columns; ++column) line += ";Kanal " + std::to_string(column);
    line += "\n";
    std::uint64_t written = 0;
    for (std::uint64_t row = 0; written + line.size() <= limit; ++row) {
        written += std::fwrite(line.data(), 1, line.size(), stdout);
        AppendTime(line, row);
        for (int column = 0; column < Columns; ++column) {
            line += random.Below(8) == 0 ? ";-" : ";";
            line += std::to_string(random.Below(2000)) + "," + std::to_string(1000 + random.Below(9000));
        }
        line += "\n";
    }
    return 0;
}
