// What the analysis tells while it decides, and that telling changes nothing.
#include "contract/AnalysisObserver.h"
#include "kit/CheckRows.h"
#include "kit/MemoryFile.h"
#include "kit/TestProfile.h"

namespace {

// Writes down what it is told.
class Transcript : public IAnalysisObserver {
  public:
    std::string Text;

  private:
    void OnLineCounted(int line, std::u16string_view, std::span<const SeparatorRun> runs) override {
        Text += "c" + std::to_string(line);
        for (const SeparatorRun& run : runs.first(2))
            Text += "," + std::to_string(run.LastCount) + "/" + std::to_string(run.Start);
        Text += " ";
    }
    void OnSeparatorChosen(int separator, int firstLine) override {
        Text += "s" + std::to_string(separator) + "/" + std::to_string(firstLine) + " ";
    }
    void OnLineTested(const TestedLine& line) override {
        Text += "t" + std::to_string(line.Line) + ":" + std::to_string(line.Numbers) + "/" +
                std::to_string(line.Cells) + (line.IsData() ? "+ " : "- ");
    }
    void OnFormatDetected(int firstLine, bool header) override {
        Text += "f" + std::to_string(firstLine) + (header ? "h " : " ");
    }
    void OnTableBegun(int firstLine, bool header) override {
        Text += "b" + std::to_string(firstLine) + (header ? "h " : " ");
    }
    void OnRow(int line, std::size_t cells) override {
        Text += "r" + std::to_string(line) + ":" + std::to_string(cells) + " ";
    }
    // The types that the cell took.
    void OnCell(const JudgedCell& cell) override {
        const DataTypeSet fallen = cell.Before & ~cell.After;
        EXPECT_EQ(fallen, cell.Before & ~cell.Fits) << Utf16ToUtf8(cell.Text);
        for (int type = 1; type <= 8; ++type)
            Text += (fallen >> (type - 1) & 1) != 0 ? std::to_string(type) : "";
        Text += "@" + std::to_string(cell.Column) + "." + std::to_string(cell.Line) + " ";
    }
    void OnTableEnded(TableEnd why, int line) override {
        constexpr const char* Ends[] = {"file", "empty", "enough"};
        Text += Ends[static_cast<int>(why)] + std::to_string(line);
    }
};

TEST(AnalysisObserver, HearsHowTheFormatIsFound) {
    CheckRows(
        "a;b\n\n1;2->c1,1/1,0/1 c3,1/1,0/3 s0/1 t1:0/2- t2:0/1- t3:2/2+ f2h |"
        "it's;1\n3;4\n5,6->c1,0/1,0/1 c2,1/2,0/2 c3,0/3,1/3 s0/3 t3:1/1+ f3 |"
        "\n->s0/1 t1:0/1- f1 |->",
        [](const std::u16string& text) {
            CCsvImportSettings settings = MakeSettings();
            MemoryFile file(text);
            Transcript transcript;
            settings.DetectFormat(file, &transcript);
            return transcript.Text;
        });
}

TEST(AnalysisObserver, HearsWhichCellTookWhichType) {
    CheckRows(
        "a;b\n1;2\n1,5;\n\n7;8->b1h r1:2 r2:2 36@0.2 136@1.2 r3:2 1247@0.3 2457@1.3 empty4|"
        "a\n5 kg\n6 lb\n->b1h r1:1 r2:1 12457@0.2 r3:1 36@0.3 file4|"
        "a\n2;7\n->b1h r1:1 r2:2 136@0.2 @1.2 file3|->b1h file1",
        [](const std::u16string& text) {
            CCsvImportSettings settings = MakeSettings({"Separator=0", "ImportHeader=1"});
            MemoryFile file(text);
            Transcript transcript;
            settings.AnalyzeColumns(file, nullptr, nullptr, &transcript);
            return transcript.Text;
        });
}

// The unit that a cell settles is where asking for the cell's own types could disturb.
TEST(AnalysisObserver, ChangesNothingByListening) {
    for (const char16_t* const text :
         {u"a;b;c\n5 kg;1;x\n6 kg;0x1A;\n7 lb;2;1\n", u"a\nx\n5 kg\n6 lb\n7,5 kg\n",
          u"a;b\n0xff;1e5\n0xfe;2e5;9 V\n;1,5\n"}) {
        std::string results[2];
        for (std::string& result : results) {
            CCsvImportSettings settings = MakeSettings({"Separator=0", "ImportHeader=1"});
            MemoryFile file(text);
            Transcript transcript;
            settings.AnalyzeColumns(file, nullptr, nullptr, &result == results ? &transcript : nullptr);
            for (const auto& [index, info] : settings.ColumnMap) {
                result +=
                    std::to_string(index) + ":" + std::to_string(info.DetectedType) + Utf16ToUtf8(info.Unit);
                for (const bool isCandidate : info.TypeCandidates) result += isCandidate ? '1' : '0';
            }
        }
        EXPECT_EQ(results[0], results[1]) << Utf16ToUtf8(text);
    }
}

}  // namespace
