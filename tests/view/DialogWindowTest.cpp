// The settings dialog in Qt's widgets: whatever a script does to the controls, mouse and keys do to the
// window, and both leave the same behind.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/DialogScript.h"
#include "kit/DialogScenarios.h"
#include "kit/TestProfile.h"
#include "kit/Workdir.h"
#include "platform/framework/Locale.h"
#include "platform/framework/portable/DialogFront.h"
#include "plugin/CsvImportFilter.h"
#include "view/WindowUser.h"

namespace {

using kelvarin::cli::DialogScript;
using Json = nlohmann::json;

SettingList SettingsOf(const DialogScenario& scenario) {
    SettingList settings;
    for (const std::string& option : scenario.Options) {
        if (option != "--set") settings.push_back(option);
    }
    return settings;
}

// The steps, with a dump for each question but that for the end.
std::vector<std::string> StepsOf(const DialogScenario& scenario) {
    std::vector<std::string> steps;
    std::istringstream lines(scenario.Script);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("?/result", 0) == 0) continue;
        steps.push_back(line[0] == '?' ? "dump" : line);
    }
    return steps;
}

// One dump, a line, with the messages since the last one.
std::string DumpOf(CDialog& dialog, const CImportFilter& filter, std::vector<std::string>& messages) {
    std::istringstream script("dump\n");
    std::ostringstream out;
    DialogScript user(script, out, filter);
    for (const std::string& message : std::exchange(messages, {})) user.ShowMessage(Utf8ToUtf16(message), 0);
    user.RunModal(dialog);
    return out.str();
}

// A moment close to now, which differs between two runs, as a word.
void MaskNow(Json& dump) {
    constexpr std::int64_t Hour = 3600;
    Json& start = dump["settings"]["StartDate"];
    if (std::abs(start.get<std::int64_t>() - CurrentSeconds()) < Hour) start = "now";
    LocalTime today{};
    ToLocalTime(CurrentSeconds(), today);
    for (Json& control : dump["controls"]) {
        if (!control.contains("value")) continue;
        const std::string value = control["value"];
        if (std::stoi(value) == today.Year) control["value"] = value.substr(0, value.find(' '));
    }
}

// What differs between two rows of dumps, a line each.
std::string Difference(const std::string& seen, const std::string& wanted) {
    std::istringstream seenLines(seen);
    std::istringstream wantedLines(wanted);
    std::string text;
    std::string other;
    std::string difference;
    for (int number = 1; std::getline(wantedLines, text); ++number) {
        if (!std::getline(seenLines, other)) return difference + "no dump " + std::to_string(number);
        Json one = Json::parse(other);
        Json two = Json::parse(text);
        MaskNow(one);
        MaskNow(two);
        for (const Json& change : Json::diff(one, two))
            difference += "dump " + std::to_string(number) + ": " + change.dump() + "\n";
    }
    return difference;
}

struct Outcome {
    std::string Dumps;
    std::int64_t Result = 0;
};

Outcome RunInWindow(const DialogScenario& scenario, const std::u16string& path) {
    const TestProfile profile(SettingsOf(scenario));
    CCsvImportFilter filter(path.c_str());
    Outcome outcome;
    WindowUser* user = nullptr;
    WindowUser made([&](CDialog& dialog) {
        for (const std::string& step : StepsOf(scenario)) {
            if (step == "dump") {
                outcome.Dumps += DumpOf(dialog, filter, user->Messages);
            } else {
                EXPECT_TRUE(DoStep(step)) << step;
            }
        }
    });
    user = &made;
    outcome.Result = filter.ShowOptionDialog();
    return outcome;
}

Outcome RunByScript(const DialogScenario& scenario, const std::u16string& path) {
    const TestProfile profile(SettingsOf(scenario));
    CCsvImportFilter filter(path.c_str());
    std::string script;
    for (const std::string& step : StepsOf(scenario)) script += step + "\n";
    std::istringstream in(script);
    std::ostringstream out;
    DialogScript user(in, out, filter);
    SetDialogDriver(&user);
    Outcome outcome;
    outcome.Result = filter.ShowOptionDialog();
    SetDialogDriver(nullptr);
    outcome.Dumps = out.str();
    return outcome;
}

TEST(ViewDialog, DoesByMouseAndKeysWhatAScriptDoes) {
    for (const DialogScenario& scenario : DialogScenarios()) {
        SCOPED_TRACE(scenario.What);
        const Workdir folder;
        const std::u16string path = folder.Write("data.csv", scenario.File);
        // The window first: it says how large the controls are.
        const Outcome seen = RunInWindow(scenario, path);
        const Outcome wanted = RunByScript(scenario, path);
        EXPECT_EQ(seen.Result, wanted.Result);
        EXPECT_EQ(Difference(seen.Dumps, wanted.Dumps), "");
    }
}

}  // namespace
