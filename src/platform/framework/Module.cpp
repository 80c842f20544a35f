#include "platform/framework/Module.h"

#include <deque>
#include <vector>

#include "platform/framework/DialogTemplate.h"
#include "platform/framework/Language.h"

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

// A module's templates with a language's texts in them.
class TranslatedDialogs {
  public:
    TranslatedDialogs(const DialogTable& own, const LanguageResources& language) {
        for (std::size_t i = 0; i < own.Count; ++i) {
            DialogTemplate dialog = own.Entries[i];
            auto& controls = Controls.emplace_back(dialog.Controls, dialog.Controls + dialog.Count);
            for (ControlTemplate& control : controls) {
                control.Text = language.Translate(control.Text);
                control.Items = language.Translate(control.Items);
            }
            dialog.Title = language.Translate(dialog.Title);
            dialog.Controls = controls.data();
            Templates.push_back(dialog);
        }
    }

    DialogTable Table() const { return {Templates.data(), Templates.size()}; }

  private:
    std::deque<std::vector<ControlTemplate>> Controls;
    std::vector<DialogTemplate> Templates;
};

ModuleState::ModuleState(StringTable resources, DialogTable dialogs, const char16_t* name)
    : Dialogs(dialogs), Name(name), Resources(resources) {}

ModuleState::~ModuleState() = default;

std::u16string ModuleState::LoadString(unsigned id) const {
    const char16_t* text = Language == nullptr ? nullptr : Language->Strings.Find(id);
    if (text == nullptr) text = Resources.Find(id);
    return text == nullptr ? std::u16string() : std::u16string(text);
}

const DialogTemplate* ModuleState::FindDialog(int id) const {
    return (Translated == nullptr ? Dialogs : Translated->Table()).Find(id);
}

void ModuleState::UseLanguage(const LanguageResources* language) {
    Language = language;
    Translated = language == nullptr ? nullptr : std::make_unique<TranslatedDialogs>(Dialogs, *language);
}

ModuleState* GetCurrentModule() {
    return currentModule;
}

AFX_MAINTAIN_STATE2::AFX_MAINTAIN_STATE2(ModuleState& module) : Current(currentModule), Previous(Current) {
    Current = &module;
}

AFX_MAINTAIN_STATE2::~AFX_MAINTAIN_STATE2() {
    Current = Previous;
}
