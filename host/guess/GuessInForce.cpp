#include "host/guess/GuessInForce.h"

#include <algorithm>

#include "host/language/Phrase.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"

namespace kelvarin::guess {

std::string SaveBeside(const ModuleLoader& module, const std::u16string& path) {
    const std::u16string sidecar = path + u".info";
    if (sidecar::CheckSidecar(module, sidecar).Errors >= 0)
        return Phrase("{} exists already and stays as it is", Utf16ToUtf8(PathStripPath(sidecar)));
    return sidecar::SaveSidecar(module, path);
}

GuessInForce::GuessInForce(const ModuleLoader& module, const std::u16string& path,
                           const GuessOptions& options, const std::vector<ParsedSetting>& chosen) {
    if (!options.GuessTime) return;
    Made = GuessTime(module, path);
    if (!Made->Failure.empty()) return;
    const std::u16string sidecar = path + u".info";
    if (sidecar::CheckSidecar(module, sidecar).Errors == 0) {
        Made->Objections.push_back(
            Phrase("it is not used: {} is in force", Utf16ToUtf8(PathStripPath(sidecar))));
    }
    LayOver(chosen);
    if (!options.Save) return;
    Made->SaveFailure = SaveBeside(module, path);
    if (Made->SaveFailure.empty()) Made->Saved = Utf16ToUtf8(path + u".info");
}

void GuessInForce::LayOver(const std::vector<ParsedSetting>& chosen) {
    for (const auto& [key, value] : Made->Settings) {
        const bool isChosen = std::any_of(chosen.begin(), chosen.end(), [&](const ParsedSetting& setting) {
            return Utf16ToUtf8(setting.Key) == key;
        });
        if (isChosen) {
            Made->Objections.push_back(Phrase("{} stays as it was set", key));
        } else {
            Layer.Set(key, value);
        }
    }
}

}  // namespace kelvarin::guess
