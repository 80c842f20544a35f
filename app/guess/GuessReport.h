// A guess as people and scripts read it.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <ostream>
#include <string>

#include "app/guess/TimeGuess.h"

// The options that make these the settings of a run, quoted for a shell.
std::string OptionsText(const SettingList& settings);

// "certain", "likely" or "a guess".
std::string CertaintyText(Certainty sureness);

// Some lines of a text report: how sure, what, the options, and a line for each objection.
void WriteGuessText(std::ostream& out, const TimeGuess& guess);

// The value of the key "guess" of a document.
nlohmann::ordered_json GuessToJson(const TimeGuess& guess);
