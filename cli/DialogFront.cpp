#include "cli/DialogFront.h"

#include "host/ModuleLoader.h"

namespace kelvarin::cli {
bool DialogFront::Open() {
    std::u16string error;
    if (!Library.Load(FindModule(u"kelvarin-dialog"), error)) return false;
    const auto entry = reinterpret_cast<DialogFrontEntry>(Library.Find(DialogFrontEntryName));
    if (entry != nullptr) Made.reset(entry());
    return Made != nullptr;
}
}  // namespace kelvarin::cli
