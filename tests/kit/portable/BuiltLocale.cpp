#include "kit/BuiltLocale.h"

#include <cstdlib>

#include "platform/framework/Locale.h"

BuiltLocale::BuiltLocale(const std::string& definition, const std::string& encoding) {
    const std::string name = definition + "." + encoding;
    const std::string file = Folder.NativePath(name).string();
    const std::string command =
        "localedef -c -i " + definition + " -f " + encoding + " '" + file + "' >/dev/null 2>&1";
    // Its status is 1 if there were warnings.
    if (std::system(command.c_str()) == -1 || !std::filesystem::exists(file)) return;
    Built = true;
    if (const char* const before = std::getenv("LC_ALL")) NameBefore = before;
    setenv("LOCPATH", Folder.NativePath("").string().c_str(), 1);
    setenv("LC_ALL", name.c_str(), 1);
    UseUserLocale();
}

BuiltLocale::~BuiltLocale() {
    if (!Built) return;
    unsetenv("LOCPATH");
    if (NameBefore) {
        setenv("LC_ALL", NameBefore->c_str(), 1);
    } else {
        unsetenv("LC_ALL");
    }
    UseUserLocale();
}
