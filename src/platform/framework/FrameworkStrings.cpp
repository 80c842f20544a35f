#include "platform/framework/FrameworkStrings.h"

#include <iterator>

namespace {

constexpr StringResource Strings[] = {
    {IdWholeRange, u"Geben Sie eine ganze Zahl zwischen %i und %i ein."},
    {IdNumberRange, u"Geben Sie eine Zahl zwischen %s und %s ein."},
    {IdMostCharacters, u"Geben Sie höchstens %i Zeichen ein."},
    {IdNoDevice, u"Für die Quelldatei konnte kein Gerät angelegt werden."},
    {IdStoreFailed, u"Beim Schreiben in den Datenspeicher ist ein Fehler aufgetreten."},
};

}  // namespace

StringTable GetFrameworkStrings() {
    return {Strings, std::size(Strings)};
}

std::u16string LoadFrameworkString(EFrameworkStringId id) {
    const ModuleState* const module = GetCurrentModule();
    const std::u16string text = module == nullptr ? std::u16string() : module->LoadString(id);
    return text.empty() ? std::u16string(GetFrameworkStrings().Find(id)) : text;
}
