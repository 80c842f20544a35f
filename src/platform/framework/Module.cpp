#include "platform/framework/Module.h"

#include "platform/framework/DialogTemplate.h"

namespace {

thread_local ModuleState* currentModule = nullptr;

}  // namespace

const char16_t* StringTable::Find(unsigned id) const {
    for (std::size_t i = 0; i < Count; ++i) {
        if (Entries[i].Id == id) return Entries[i].Text;
    }
    return nullptr;
}

const DialogTemplate* DialogTable::Find(int id) const {
    for (std::size_t i = 0; i < Count; ++i) {
        if (Entries[i].Id == id) return &Entries[i];
    }
    return nullptr;
}

std::u16string ModuleState::LoadString(unsigned id) const {
    const char16_t* const text = Resources.Find(id);
    return text == nullptr ? std::u16string() : std::u16string(text);
}

ModuleState* GetCurrentModule() {
    return currentModule;
}

AFX_MAINTAIN_STATE2::AFX_MAINTAIN_STATE2(ModuleState& module) : Previous(currentModule) {
    currentModule = &module;
}

AFX_MAINTAIN_STATE2::~AFX_MAINTAIN_STATE2() {
    currentModule = Previous;
}
