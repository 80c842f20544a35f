// Units of measurement in names and in rows of units.
#pragma once

#include <string>
#include <string_view>

namespace kelvarin::plan {
// True for the symbol or name of a unit, with prefix, powers, products and quotients: "mV", "m/s^2", "kWh",
// "Grad C".
bool IsUnit(std::u16string_view text);

// The unit that a column's name ends in: in brackets of any kind, or after "/", "in", or a comma: "Druck
// [bar]", "Speed(mph)", "U / V". Empty if there is none.
std::u16string UnitInName(std::u16string_view name);

// The last word of a name if it is a unit that may as well be a word of a language or a letter that tells
// names apart: "Pressure bar", "Battery V". Empty if there is none.
std::u16string_view MaybeUnitInName(std::u16string_view name);

// True for a unit that some devices write in capitals, as they do all words: "DEG F", "PCT", "KPA", "M3/HR".
bool IsUnitInCapitals(std::u16string_view text);
}  // namespace kelvarin::plan
