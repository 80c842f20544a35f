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
}  // namespace kelvarin::plan
