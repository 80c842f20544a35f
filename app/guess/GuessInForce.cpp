#include "app/guess/GuessInForce.h"

#include <algorithm>

#include "app/SettingsJson.h"
#include "app/language/Phrase.h"
#include "host/SidecarTool.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

CLI::Option* AddGuessOption(CLI::App& command, GuessOptions& options) {
    return command.add_flag("--guess-time", options.GuessTime,
                            Phrase("Find out the columns and the format of the times, use and print them"));
}

void AddGuessOptions(CLI::App& command, GuessOptions& options) {
    CLI::Option* const guess = AddGuessOption(command, options);
    command.add_flag("--save", options.Save, Phrase("Keep what was guessed in FILE.info"))->needs(guess);
}

std::string SaveBeside(const ModuleLoader& module, const std::u16string& path) {
    const std::u16string sidecar = path + u".info";
    if (module.SidecarTool().CheckSidecar(sidecar.c_str()).Errors >= 0)
        return Phrase("{} exists already and stays as it is", Utf16ToUtf8(PathStripPath(sidecar)));
    std::string reason;
    module.SidecarTool().SaveSidecar(path.c_str(), reason);
    return reason;
}

GuessInForce::GuessInForce(const ModuleLoader& module, const CommonOptions& common,
                           const GuessOptions& options, const std::u16string& path)
    : Before(GetProcessProfile()) {
    if (!options.GuessTime) return;
    Made = GuessTime(module, path);
    if (!Made->Failure.empty()) return;
    const std::u16string sidecar = path + u".info";
    if (module.SidecarTool().CheckSidecar(sidecar.c_str()).Errors == 0) {
        Made->Objections.push_back(
            Phrase("it is not used: {} is in force", Utf16ToUtf8(PathStripPath(sidecar))));
    }
    LayOver(common);
    if (!options.Save) return;
    Made->SaveFailure = SaveBeside(module, path);
    if (Made->SaveFailure.empty()) Made->Saved = Utf16ToUtf8(path + u".info");
}

GuessInForce::~GuessInForce() {
    if (Made) SetProcessProfile(Before);
}

void GuessInForce::LayOver(const CommonOptions& common) {
    auto layer = std::make_shared<ProfileOverlay>(Before);
    for (const auto& [name, text] : Made->Settings) {
        std::u16string key;
        ProfileOverlay::Value value;
        if (!ParseSettingOption(name + "=" + text, key, value).empty()) continue;
        const bool isSet = std::any_of(common.Settings.begin(), common.Settings.end(),
                                       [&](const auto& setting) { return setting.first == key; });
        if (isSet) {
            Made->Objections.push_back(Phrase("{} stays as it was set", name));
        } else {
            layer->Set(SettingsSectionName(), key, std::move(value));
        }
    }
    SetProcessProfile(std::move(layer));
}
