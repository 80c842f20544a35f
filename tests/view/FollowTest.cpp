// A file that grows is read on from its end, and shows what it shows when all of it is read.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>

#include "kit/HostModule.h"
#include "kit/Workdir.h"
#include "platform/framework/Text.h"
#include "view/model/FileImport.h"

namespace follow_tests {

using namespace kelvarin;
using namespace kelvarin::view;

// All that a window shows of a file.
std::string Described(const ImportedFile& file) {
    std::string text = file.Failure + " " + std::to_string(file.LinesRead) + " lines\n";
    for (const auto& signal : file.Signals) {
        text += signal->Name() + " [" + signal->Unit() + "] " + std::to_string(signal->Type()) + ":";
        for (std::uint64_t row = 0; row < signal->Count(); ++row) {
            const SampleAt sample = signal->Sample(row);
            text += " " + std::to_string(sample.Time) + "=" + sample.Text + "@" +
                    std::to_string(file.Lines.LineOf(row));
        }
        text += " " + signal->Summary().Plot.Draw(32) + "\n";
    }
    for (const check::Finding& finding : file.Findings)
        text += finding.Text + " " + testing::PrintToString(finding.Lines) + "\n";
    for (const MessageGroup& group : file.Messages)
        text += Utf16ToUtf8(group.FirstText) + " " + testing::PrintToString(group.Lines) + "\n";
    if (!file.Guess) return text;
    for (const Assumption& assumed : file.Guess->Assumed) text += assumed.Text + "\n";
    return text;
}

std::string Line(const char* format, int row, double value) {
    char text[100];
    std::snprintf(text, sizeof text, format, row / 3600 % 24, row / 60 % 60, row % 60, value);
    return text;
}

// Rows of the first reading, of the second and of the third.
constexpr int Ends[] = {150, 180, 300};

struct Kind {
    const char* About;
    const char* Head;
    std::function<std::string(int)> RowOf;
    bool IsReadOn = true;  // its new lines alone can be read
};

const Kind Kinds[] = {
    {"numbers", "t;a;b\n",
     [](int row) {
         return std::to_string(row) + ".25;" + std::to_string(row % 7) + ".5;" + std::to_string(row) + "\n";
     }},
    {"texts and truth values", "t;a;b\n",
     [](int row) {
         return std::to_string(row) + ".0;mode " + std::to_string(row / 20) + (row % 2 ? ";true" : ";false") +
                "\n";
     }},
    {"units in a row of their own",
     "t;a;b\ns;V;\xC2\xB0"
     "C\n",
     [](int row) { return std::to_string(row) + ".5;" + std::to_string(row) + ".25;21.5\n"; }},
    {"no time", "a;b\n", [](int row) { return std::to_string(row * row % 977) + ".5;" + "1.25\n"; }},
    {"times of day that go over midnight", "Zeit;Druck\n",
     [](int row) { return Line("%02d:%02d:%02d;%.1f\n", 86'000 + row * 5, row / 10.0); }},
    {"dates", "Zeit;Druck\n",
     [](int row) { return Line("31.01.2024 %02d:%02d:%02d;%.2f\n", row, row / 4.0); }},
    {"faults, gaps and blank lines", "Zeit;Druck\n",
     [](int row) {
         if (row % 50 == 30) return std::string("\n");
         const char* const format = row % 50 == 20   ? "31.01.2024 %02d:%02d:%02d\n"
                                    : row % 50 == 10 ? "31.01.2024 %02d:%02d:%02d;defekt\n"
                                                     : "31.01.2024 %02d:%02d:%02d;%.1f\n";
         return Line(format, row + row / 100 * 500, row / 4.0);
     }},
    {"whole numbers that become decimal", "t;a\n",
     [](int row) { return std::to_string(row) + ".5;" + (row < 200 ? "12" : "12.5") + "\n"; }, false},
};

class Follow : public testing::Test {
  protected:
    ImportedFile Read(const std::string& bytes, std::shared_ptr<CheckedRun> before, bool hasGrown = true) {
        ImportOrder order{Folder.Write("data.csv", bytes)};
        order.HasGrown = hasGrown;
        order.Before = std::move(before);
        return ImportFile(HostModule(), order);
    }

    Workdir Folder;
};

std::string Bytes(const Kind& kind, int rows) {
    std::string bytes = kind.Head;
    for (int row = 0; row < rows; ++row) bytes += kind.RowOf(row);
    return bytes;
}

using ViewFollow = Follow;

TEST_F(ViewFollow, ShowsWhatTheWholeFileShows) {
    for (const Kind& kind : Kinds) {
        SCOPED_TRACE(kind.About);
        ImportedFile file = Read(Bytes(kind, Ends[0]), nullptr, false);
        const std::uint64_t before = file.LinesRead;
        file = Read(Bytes(kind, Ends[1]), file.Next);
        EXPECT_EQ(file.LinesBefore, before);
        file = Read(Bytes(kind, Ends[2]), file.Next);
        EXPECT_EQ(file.LinesBefore != 0, kind.IsReadOn);
        EXPECT_EQ(Described(file), Described(Read(Bytes(kind, Ends[2]), nullptr)));
    }
}

// The samples of earlier readings stay what they were, for whoever still has them.
TEST_F(ViewFollow, LeavesTheSignalsOfBeforeAsTheyWere) {
    const Kind& kind = Kinds[0];
    const ImportedFile first = Read(Bytes(kind, Ends[0]), nullptr);
    const std::string before = Described(first);
    const ImportedFile second = Read(Bytes(kind, Ends[2]), first.Next);
    EXPECT_EQ(second.LinesBefore, static_cast<std::uint64_t>(Ends[0]));
    EXPECT_EQ(Described(first), before);
}

TEST_F(ViewFollow, ReadsALineOnceItIsFinished) {
    const Kind& kind = Kinds[0];
    const std::string bytes = Bytes(kind, Ends[2]);
    const std::size_t end = Bytes(kind, Ends[1]).size();
    ImportedFile file = Read(bytes.substr(0, end - 2), nullptr);
    EXPECT_EQ(file.LinesRead, static_cast<std::uint64_t>(Ends[1] - 1));
    for (const std::size_t size : {end - 1, end, end + 1}) {
        file = Read(bytes.substr(0, size), file.Next);
        EXPECT_EQ(file.LinesRead, static_cast<std::uint64_t>(Ends[1] - (size < end ? 1 : 0))) << size;
        EXPECT_NE(file.LinesBefore, 0u) << size;
    }
    EXPECT_EQ(Described(Read(bytes, file.Next)), Described(Read(bytes, nullptr)));
}

TEST_F(ViewFollow, ReadsAnotherFileFromItsBeginning) {
    const Kind& kind = Kinds[0];
    const std::string before = Bytes(kind, Ends[0]);
    const std::string grown = Bytes(kind, Ends[2]);
    std::string otherHead = grown;
    otherHead[8] = '7';
    std::string otherEnd = grown;
    otherEnd[before.size() - 5] = '7';
    for (const std::string& bytes : {otherHead, otherEnd, before.substr(0, before.size() / 2)}) {
        const ImportedFile file = Read(bytes, Read(before, nullptr).Next);
        EXPECT_EQ(file.LinesBefore, 0u);
        EXPECT_EQ(Described(file), Described(Read(bytes, nullptr)));
    }
}

}  // namespace follow_tests
