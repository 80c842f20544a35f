// A piece in the file is a sequence of rows, each a RowHead and the text.
#include "host/plan/RowSorter.h"

#include <algorithm>
#include <cstring>
#include <queue>
#include <tuple>

namespace kelvarin::plan {
namespace {
struct RowHead {
    std::int64_t Time;
    std::uint64_t Line;
    std::uint64_t Size;
};

constexpr std::size_t MostBlock = 256 * 1024;
}  // namespace

// Reads the rows of one piece, a block at a time.
class RowSorter::PieceReader {
  public:
    PieceReader(const ScratchFile& file, Place place, std::size_t blockSize)
        : File(file), Next(place.Begin), End(place.End), Block(blockSize) {}

    // False at the end of the piece. The row is valid until the next call.
    bool Read(SortedRow& row) {
        RowHead head;
        if (!Fill(sizeof head)) return false;
        std::memcpy(&head, Block.data() + At, sizeof head);
        if (!Fill(sizeof head + static_cast<std::size_t>(head.Size))) return false;
        row = {head.Time, head.Line, {Block.data() + At + sizeof head, static_cast<std::size_t>(head.Size)}};
        At += sizeof head + row.Text.size();
        return true;
    }

  private:
    // Makes so many bytes from At on available.
    bool Fill(std::size_t size) {
        if (Held - At >= size) return true;
        std::memmove(Block.data(), Block.data() + At, Held - At);
        Held -= At;
        At = 0;
        Block.resize(std::max(Block.size(), size));
        while (Held < size && Next < End) {
            const auto most =
                static_cast<std::size_t>(std::min<std::uint64_t>(Block.size() - Held, End - Next));
            const std::size_t count = File.Read(Next, Block.data() + Held, most);
            if (count == 0) return false;
            Held += count;
            Next += count;
        }
        return Held >= size;
    }

    const ScratchFile& File;
    std::uint64_t Next, End;  // of what isn't in the block yet
    std::vector<char> Block;
    std::size_t At = 0, Held = 0;
};

void RowSorter::Add(std::int64_t time, std::uint64_t line, std::string_view text) {
    const std::size_t size = Texts.size() + text.size() + (Entries.size() + 1) * sizeof(Entry);
    if (size > MostBytes && !Entries.empty()) WritePiece();
    Entries.push_back({time, line, Texts.size(), text.size()});
    Texts += text;
}

void RowSorter::Sort() {
    std::sort(Entries.begin(), Entries.end(), [](const Entry& a, const Entry& b) {
        return std::tie(a.Time, a.Line) < std::tie(b.Time, b.Line);
    });
}

void RowSorter::WritePiece() {
    Sort();
    if (!File) File = std::make_unique<ScratchFile>();
    const std::uint64_t begin = Places.empty() ? 0 : Places.back().End;
    std::uint64_t end = begin;
    std::string block;
    for (const Entry& entry : Entries) {
        const RowHead head{entry.Time, entry.Line, entry.Size};
        block.append(reinterpret_cast<const char*>(&head), sizeof head);
        block.append(Texts, entry.Begin, entry.Size);
        end += sizeof head + entry.Size;
        if (block.size() < MostBlock) continue;
        File->Write(block.data(), block.size());
        block.clear();
    }
    File->Write(block.data(), block.size());
    Places.push_back({begin, end});
    Entries.clear();
    Texts.clear();
}

void RowSorter::Finish(const std::function<bool(const SortedRow&)>& take) {
    if (!Places.empty()) {
        if (!Entries.empty()) WritePiece();
        Merge(take);
        return;
    }
    Sort();
    for (const Entry& entry : Entries) {
        if (!take({entry.Time, entry.Line, std::string_view(Texts).substr(entry.Begin, entry.Size)})) return;
    }
}

void RowSorter::Merge(const std::function<bool(const SortedRow&)>& take) {
    // What sorting needed is free now.
    std::vector<Entry>().swap(Entries);
    std::string().swap(Texts);
    constexpr std::size_t LeastBlock = 4096;
    const std::size_t blockSize = std::clamp(MostBytes / Places.size(), LeastBlock, MostBlock);
    std::vector<PieceReader> readers;
    readers.reserve(Places.size());
    std::vector<SortedRow> rows(Places.size());
    // Of one time, the rows of the first piece come first.
    using Head = std::pair<std::int64_t, std::size_t>;
    std::priority_queue<Head, std::vector<Head>, std::greater<>> heads;
    for (std::size_t i = 0; i < Places.size(); ++i) {
        readers.emplace_back(*File, Places[i], blockSize);
        if (readers[i].Read(rows[i])) heads.emplace(rows[i].Time, i);
    }
    while (!heads.empty()) {
        const std::size_t piece = heads.top().second;
        heads.pop();
        if (!take(rows[piece])) return;
        if (readers[piece].Read(rows[piece])) heads.emplace(rows[piece].Time, piece);
    }
}
}  // namespace kelvarin::plan
