// Tries formats on the rows of a sampled table.
#pragma once

#include <string>
#include <vector>

#include "contract/TableReader.h"
#include "contract/TimeReader.h"
#include "host/guess/TimeReading.h"

namespace kelvarin::guess {

using TextList = std::vector<std::u16string>;

class TableTrial {
  public:
    // Both outlive the trial.
    TableTrial(ITimeReader& reader, const TableSample& table) : Reader(reader), Table(table) {}

    const TableSample& Sample() const { return Table; }
    std::size_t Columns() const;
    const std::u16string& Letters() const { return FormatLetters; }

    // The cells of a column, from 0; an empty text for a row without.
    TextList Texts(std::size_t column) const;

    // The cells of two columns as the import joins them, the left one first.
    TextList JoinedTexts(std::size_t left, std::size_t right) const;

    // The texts that tell the look of a column: its first one, and the longest of the first rows.
    TextList Examples(const TextList& texts) const;

    // True if the format fits at least half of the first rows.
    bool FitsFirstRows(const std::u16string& format, const TextList& texts, bool hasDate) const;

    // Reads all rows.
    TimeReading Read(const std::u16string& format, const TextList& texts, bool hasDate) const;

  private:
    ITimeReader& Reader;
    const TableSample& Table;
    const std::u16string FormatLetters = Reader.FormatLetters();
};

}  // namespace kelvarin::guess
