#include "host/guess/TableTrial.h"

#include <algorithm>

namespace kelvarin::guess {

namespace {

// So many rows tell whether a format is worth trying on all.
constexpr std::size_t FirstRows = 32;
constexpr std::size_t MostColumns = 256;

}  // namespace

std::size_t TableTrial::Columns() const {
    return std::min(Table.Names.size(), MostColumns);
}

TextList TableTrial::Texts(std::size_t column) const {
    TextList texts;
    texts.reserve(Table.Rows.size());
    for (const SampledRow& row : Table.Rows) {
        texts.push_back(column < row.Cells.size() ? row.Cells[column] : std::u16string());
    }
    return texts;
}

TextList TableTrial::JoinedTexts(std::size_t left, std::size_t right) const {
    TextList texts;
    texts.reserve(Table.Rows.size());
    for (const SampledRow& row : Table.Rows) {
        texts.push_back(right < row.Cells.size() ? row.Cells[left] + Table.Separator + row.Cells[right]
                                                 : std::u16string());
    }
    return texts;
}

TextList TableTrial::Examples(const TextList& texts) const {
    const auto end = texts.begin() + static_cast<std::ptrdiff_t>(std::min(texts.size(), FirstRows));
    const auto first = std::find_if(texts.begin(), end, [](const auto& text) { return !text.empty(); });
    if (first == end) return {};
    const auto longest = std::max_element(
        first, end, [](const auto& one, const auto& other) { return one.size() < other.size(); });
    return *longest == *first ? TextList{*first} : TextList{*first, *longest};
}

bool TableTrial::FitsFirstRows(const std::u16string& format, const TextList& texts, bool hasDate) const {
    const TextList first(texts.begin(),
                         texts.begin() + static_cast<std::ptrdiff_t>(std::min(texts.size(), FirstRows)));
    const std::vector<std::int64_t> times = Reader.ReadTimes(format, first, hasDate);
    const auto misfits = static_cast<std::size_t>(std::count(times.begin(), times.end(), -1));
    return misfits * 2 <= first.size() && misfits != first.size();
}

TimeReading TableTrial::Read(const std::u16string& format, const TextList& texts, bool hasDate) const {
    return JudgeTimes(Table.Rows, Reader.ReadTimes(format, texts, hasDate));
}

}  // namespace kelvarin::guess
