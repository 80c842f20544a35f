#include "python/native/Process.h"

#include <clocale>
#include <memory>
#include <new>
#include <string>

#include "contract/SupportFunctions.h"
#include "host/SettingText.h"
#include "host/language/Phrase.h"
#include "platform/framework/Language.h"
#include "platform/framework/SharedLibrary.h"
#include "platform/framework/Text.h"
#include "python/native/Failure.h"

namespace kelvarin::python {
namespace {
// Never destroyed: a thread may still use both while the process ends.
struct Shared {
    std::timed_mutex Mutex;
    std::unique_ptr<ModuleLoader> Module;
    std::shared_ptr<ProfileStore> Profile;  // of the user
};

Shared& TheShared() {
    static Shared* const shared = new Shared;
    return *shared;
}

// The module takes the user's locale, which is that of the whole process.
class LocaleKeeper {
  public:
    LocaleKeeper() : Before(std::setlocale(LC_ALL, nullptr)) {}
    LocaleKeeper(const LocaleKeeper&) = delete;
    LocaleKeeper& operator=(const LocaleKeeper&) = delete;
    ~LocaleKeeper() { std::setlocale(LC_ALL, Before.c_str()); }

  private:
    const std::string Before;
};

void Load(Shared& shared) {
    const std::string language = UserLanguage();
    SetPhraseLanguage(language);
    // Of a language that has no texts the module would speak its own.
    if (!language.empty() && !HasTexts(language)) SetPreferredLanguage("en");
    UseUserProfile();
    shared.Profile = GetProcessProfile();
    const LocaleKeeper locale;
    auto module = std::make_unique<ModuleLoader>();
    const std::u16string folder = FolderOfCode(reinterpret_cast<const void*>(&BeginForkedChild));
    const std::string reason = module->Load(folder, Utf8ToUtf16(KELVARIN_PLUGINS_OF_PACKAGE));
    if (!reason.empty()) throw Failure{FailureKind::Error, reason, {}};
    shared.Module = std::move(module);
}
}  // namespace

ProcessLock::ProcessLock(std::chrono::milliseconds time) : Lock(TheShared().Mutex, time) {}

void BeginForkedChild() {
    Shared& shared = TheShared();
    new (&shared.Mutex) std::timed_mutex;
    if (shared.Profile != nullptr) SetProcessProfile(shared.Profile);
}

const ModuleLoader& LoadedModule() {
    Shared& shared = TheShared();
    if (shared.Module == nullptr) Load(shared);
    return *shared.Module;
}
}  // namespace kelvarin::python
