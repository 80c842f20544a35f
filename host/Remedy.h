// What to do about something that was found.
#pragma once

#include <string>

#include "host/SettingText.h"

namespace kelvarin {

// What a front end can do itself, by an option or a button, beside putting settings in force.
enum class RemedyAction {
    None,
    ExtractRows,          // copy the dropped rows to a file of their own
    ExtractRowsAndCells,  // and those with a refused cell
    SwitchToEnglish,      // read the file once more in English, whose formats have other letters
    ReverseRows           // make a copy of the file with its last row first
};

struct Remedy {
    std::string Text;           // one clause, in the language in force; empty if there is nothing to do
    SettingList Settings = {};  // that do what the text says; empty if no setting does
    RemedyAction Action = RemedyAction::None;
};

}  // namespace kelvarin
