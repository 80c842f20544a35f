// kelvarin-view: signals of measurement files in a window, or as a picture.
#include <QApplication>
#include <QLoggingCategory>
#include <cstdlib>
#include <iostream>
#include <new>
#include <utility>

#include "contract/SupportFunctions.h"
#include "host/language/Phrase.h"
#include "platform/framework/Language.h"
#include "platform/framework/Path.h"
#include "platform/framework/ProfileStore.h"
#include "platform/framework/Terminal.h"
#include "view/dialog/QtText.h"
#include "view/dialog/QtTexts.h"
#include "view/language/Texts.h"
#include "view/program/Arguments.h"
#include "view/program/PlotCommand.h"
#include "view/window/MainWindow.h"

using namespace kelvarin;
using namespace kelvarin::view;

namespace {
enum ExitStatus : int { ExitDone = 0, ExitFileFailed = 1, ExitWrongUsage = 2, ExitInterrupted = 130 };

int Complain(const std::string& reason, int status) {
    std::cerr << "kelvarin-view: " << reason << "\n";
    return status;
}

// The language is known before the rest, since complaints are in it.
std::string LanguageOf(const std::vector<std::string>& words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--language" && i + 1 < words.size()) return words[i + 1];
        if (words[i].starts_with("--language=")) return words[i].substr(std::string("--language=").size());
    }
    return UserLanguage();
}

int DrawPicture(int argc, char** argv, const Arguments& arguments) {
    // A picture needs no display.
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // Nor the folder of a session, of whose absence Qt warns.
    QLoggingCategory::setFilterRules("default.warning=false");
    CatchInterrupt();
    const QApplication application(argc, argv);
    ModuleLoader module;
    const std::string reason = module.Load();
    if (!reason.empty()) return Complain(reason, ExitFileFailed);
    const PlotOutcome outcome = PlotFile(module, arguments);
    if (WasInterrupted()) return ExitInterrupted;
    if (!outcome.Left.empty()) std::cerr << "kelvarin-view: " << outcome.Left << "\n";
    if (outcome.Failure.empty()) return ExitDone;
    if (outcome.IsUsage) return Complain(outcome.Failure, ExitWrongUsage);
    return Complain(arguments.Files.front() + ": " + outcome.Failure, ExitFileFailed);
}

int ShowWindow(int argc, char** argv, const Arguments& arguments) {
    const bool hasDisplay = std::getenv("DISPLAY") != nullptr || std::getenv("WAYLAND_DISPLAY") != nullptr ||
                            std::getenv("QT_QPA_PLATFORM") != nullptr;
    if (!hasDisplay) return Complain(Phrase("there is no display; --plot needs none"), ExitFileFailed);
    std::vector<ParsedSetting> settings;
    for (const std::string& text : arguments.Settings) {
        const std::string reason = ParseSetting(text, settings.emplace_back());
        if (!reason.empty()) return Complain("--set: " + reason, ExitWrongUsage);
    }
    const QApplication application(argc, argv);
    QApplication::setOrganizationName("Brenholt");
    QApplication::setApplicationName("kelvarin-view");
    QApplication::setDesktopFileName("kelvarin-view");
    QTranslator texts;
    UseQtTexts(texts, LanguageInForce());
    ModuleLoader module;
    const std::string reason = module.Load();
    if (!reason.empty()) return Complain(reason, ExitFileFailed);
    MainWindow window(module, std::move(settings));
    window.show();
    for (const std::string& file : arguments.Files) window.Open(ToQt(PathFromNative(file)));
    return QApplication::exec();
}
}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words = BeginProgram(argc, argv);
    const std::string language = LanguageOf(words);
    UseTexts(language);
    SetPreferredLanguage(HasTexts(language) ? language : "en");
    Arguments arguments;
    const std::string reason = ParseArguments(words, arguments);
    if (!reason.empty()) return Complain(reason, ExitWrongUsage);
    if (arguments.WantsHelp || arguments.WantsVersion) {
        std::cout << (arguments.WantsHelp ? UsageText() : "kelvarin-view " KELVARIN_VERSION "\n");
        return ExitDone;
    }
    SetProcessProfile(OpenUserProfile(u"Brenholt", GetCommonProfileName()));
    try {
        return arguments.Picture.empty() ? ShowWindow(argc, argv, arguments)
                                         : DrawPicture(argc, argv, arguments);
    } catch (const std::bad_alloc&) {
        return Complain(Phrase("not enough memory"), ExitFileFailed);
    }
}
