#include "host/FileReading.h"

#include "host/language/Phrase.h"

namespace kelvarin {
namespace {
plan::AutomaticOptions AutomaticOptionsFor(const ReadingOptions& options) {
    plan::AutomaticOptions automatic;
    automatic.IsOff = options.NoGuess;
    automatic.ColumnsOnly = options.ColumnsOnly;
    automatic.Copies = options.Copies;
    automatic.Wishes = options.Wishes;
    automatic.FormatLetters = options.FormatLetters;
    automatic.Kinds = options.Kinds;
    automatic.Cancel = options.Cancel;
    automatic.OnProgress = options.OnProgress;
    return automatic;
}
}  // namespace

std::string Joint(const std::vector<std::string>& sentences) {
    std::string text;
    for (const std::string& sentence : sentences) text += (text.empty() ? "" : "; ") + sentence;
    return text;
}

FileReading::FileReading(const ModuleLoader& module, const std::u16string& path,
                         const std::vector<ParsedSetting>& chosen, const ReadingOptions& options)
    : Module(module),
      Path(path),
      IsToBeSaved(options.Save),
      Chosen(chosen),
      Plan(module, path, chosen, AutomaticOptionsFor(options)) {
    if (!Plan.Unlikeness().empty()) {
        Unlike = Phrase("not read, as it is not like the files of the plan: {}", Joint(Plan.Unlikeness()));
        Found.emplace();
        Found->Failure = Unlike;
        return;
    }
    const bool isAsked = options.GuessTime || options.Save;
    if (Plan.Plan() == nullptr && (!isAsked || options.NoGuess)) return;
    Found = plan::GuessOf(Plan);
    if (options.Save) Save();
}

void FileReading::Save() {
    plan::SaveGuess(Module, Path, Plan, *Found);
}

bool FileReading::TakesCopy() {
    if (!Plan.TakesCopy()) return false;
    Found = plan::GuessOf(Plan);
    if (IsToBeSaved) Save();
    return true;
}
}  // namespace kelvarin
