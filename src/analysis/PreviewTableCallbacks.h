// Who wants to see what the column analysis reads.
#pragma once

#include <cstdint>

class IPreviewTableCallbacks {
  public:
    virtual ~IPreviewTableCallbacks() = default;

    // A column with its name, in ascending order, before any cell.
    virtual bool AddColumn(std::int32_t column, const char16_t* name) = 0;

    // A cell of a data row; the first data row is 0.
    virtual bool SetCell(std::int32_t row, std::int32_t column, const char16_t* text) = 0;
};
