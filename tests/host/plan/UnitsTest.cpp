// Units alone and at the end of names.
#include "host/plan/Units.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/framework/Text.h"

namespace {

using namespace kelvarin::plan;

TEST(PlanUnits, AreKnownWithPrefixesPowersAndQuotients) {
    for (const char* unit : {"V",     "mV",           "kWh",   "°C",  "Grad C", "m/s",   "m/s^2", "m/s²",
                             "W/m2",  "umol m-2 s-1", "%",     "%RH", "U/min",  "1/min", "mg/l",  "l/h",
                             "kg/m³", "N·m",          "dBm",   "Ohm", "MΩ",     "hPa",   "µS/cm", "bar",
                             "psi",   "rpm",          "deg C", "ms",  "h",      "daN",   "1/s"})
        EXPECT_TRUE(IsUnit(Utf8ToUtf16(unit))) << unit;
    for (const char* text : {"", "Druck", "Time", "x-axis", "TIMESTAMP", "1", "100", "Channel 1", "REAL32",
                             "Spannung V", "mx", "Position/Weg", "Kanal/V", "2023", "-", "°X", "C0", "V1"})
        EXPECT_FALSE(IsUnit(Utf8ToUtf16(text))) << text;
}

TEST(PlanUnits, MayBeInCapitals) {
    for (const char* unit :
         {"DEG F", "PCT", "IN WC", "KPA", "MBAR", "M3/HR", "%RH", "% RH", "GPM", "KWH", "V"})
        EXPECT_TRUE(IsUnitInCapitals(Utf8ToUtf16(unit))) << unit;
    for (const char* text : {"", "TEMP", "kPa", "FAN", "AHU1.SAT", "X", "DATE", "12"})
        EXPECT_FALSE(IsUnitInCapitals(Utf8ToUtf16(text))) << text;
}

struct UnitCase {
    const char* Name;
    const char* Unit;
};

TEST(PlanUnits, StandAtTheEndOfNames) {
    const UnitCase cases[] = {
        {"Druck [bar]", "bar"},
        {"Speed(mph)", "mph"},
        {"Time {s}", "s"},
        {"Strom <mA>", "mA"},
        {"Druck [bar] (max)", "bar"},
        {"Temp (°C) innen", "°C"},
        {"Spannung / V", "V"},
        {"Zeit in ms", "ms"},
        {"Relative time, s", "s"},
        {"Time/min", "min"},
        // In square brackets any short word is one.
        {"Durchsatz [Stk]", "Stk"},
        {"Consumption (l/100km)", "l/100km"},
        {"Qty <mg/stroke>", "mg/stroke"},
        {"Humidity (% sat)", "% sat"},
        {"Ewe/V", "V"},
        {"I/A", "A"},
        {"Total (x10^6) cells/mL", "cells/mL"},
        {"Temp, °C (LGR S/N: 2041, LBL: cellar)", "°C"},
        {"RH, % (LGR S/N: 2041)", "%"},
        // The whole of the brackets, whatever it holds.
        {"Rad (Kj/m²)", "Kj/m²"},
        {"Volume (E3m3)", "E3m3"},
        {"Coal ($/mt)", "$/mt"},
        {"Temp(℃)", "℃"},
        {"Humidity(%rh)", "%rh"},
        {"Rain (millimetres)", "millimetres"},
        {"Pressure (hPa abs)", "hPa abs"},
        {"Flux (mol/(m2 s))", "mol/(m2 s)"},
        {"<I>/mA", "mA"},
        // A stroke within a unit, or between symbols.
        {"Bytes/sec", ""},
        {"NO3/N", ""},
        {"E/W", ""},
        {"tz_cd", ""},
        {"TA_F", ""},
        {"LAeq_dt", ""},
        // The last word, where it can't be one of a language.
        {"Gas m3", "m3"},
        {"altitude_m", "m"},
        {"CO2_ppm", "ppm"},
        {"vehicle_speed_km/h", "km/h"},
        {"temperature_C", "C"},
        {"Phase_C", ""},
        {"Sensor A", ""},
        {"Side bar", ""},
        {"temp_min", ""},
        {"Druck", ""},
        {"Druck (innen)", ""},
        {"Druck [5]", ""},
        {"Druck [auf der anderen Seite]", ""},
        {"Mode/A", ""},
        {"Ein/Aus", ""},
        {"Check in hall", ""},
        {"[bar", ""},
        {"", ""},
    };
    for (const UnitCase& c : cases) EXPECT_EQ(Utf16ToUtf8(UnitInName(Utf8ToUtf16(c.Name))), c.Unit) << c.Name;
}

}  // namespace
