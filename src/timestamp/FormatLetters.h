// The letters of the timestamp format language, which depend on the user's language.
#pragma once

#include <cstddef>
#include <string>

// Positions in the letter strings.
enum EFormatLetter : std::size_t {
    LetterYear = 0,
    LetterMonth = 1,
    LetterDay = 2,
    LetterHours = 3,
    LetterMinutes = 4,
    LetterSeconds = 5,
    LetterCount = 6
};

// The six letters that ParseTimestamp understands, loaded from the module's own resources at their first use.
const std::u16string& GetFormatLetters();

// Replaces the neutral letters (Y for the year, D for the day) of a format by those that ParseTimestamp
// understands. There is no way back.
void LocalizeFormatLetters(std::u16string& format);
