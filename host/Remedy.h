// What to do about something that was found.
#pragma once

#include <string>
#include <vector>

#include "contract/GuidedReading.h"
#include "host/SettingText.h"

namespace kelvarin {
// What a front end can do itself, by an option or a button, beside putting settings in force.
enum class RemedyAction {
    None,
    ExtractRows,          // copy the dropped rows to a file of their own
    ExtractRowsAndCells,  // and those with a refused cell
    CopyFile              // write a clean copy of the file, which no setting needs
};

struct Remedy {
    std::string Text;           // one clause, in the language in force; empty if there is nothing to do
    SettingList Settings = {};  // that do what the text says; empty if no setting does
    RemedyAction Action = RemedyAction::None;
    std::vector<ColumnChoice> Columns = {};  // choices that do it
    std::u16string FormatLetters = {};       // as those of plan::TimeSettings
};
}  // namespace kelvarin
