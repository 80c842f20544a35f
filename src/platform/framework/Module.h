// What exists once per loaded module: its string resources, its application object, and the context that says
// whose resources count at this moment.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

class CWinApp;
class TranslatedDialogs;
struct LanguageResources;

// One string of a resource table.
struct StringResource {
    unsigned Id;
    const char16_t* Text;
};

// A module's string table; refers to static tables.
struct StringTable {
    const StringResource* Entries = nullptr;
    std::size_t Count = 0;

    // The text of a number, or null.
    const char16_t* Find(unsigned id) const;
};

struct DialogTemplate;

// A module's dialog templates; refers to static tables.
struct DialogTable {
    const DialogTemplate* Entries = nullptr;
    std::size_t Count = 0;

    // The template of a number, or null.
    const DialogTemplate* Find(int id) const;
};

// The state of one module. The module keeps it for as long as it is loaded.
class ModuleState {
  public:
    // Without a name the module has no other language than its own.
    explicit ModuleState(StringTable resources, DialogTable dialogs = {}, const char16_t* name = u"");
    ~ModuleState();

    // A string of the module in the language in force; empty for a number that doesn't exist.
    std::u16string LoadString(unsigned id) const;

    // A dialog of the module in the language in force, or null.
    const DialogTemplate* FindDialog(int id) const;

    // Puts a language's texts before the module's own, or takes them away with null. The tables must outlive
    // the module. Before the first text is loaded: what was loaded stays as it is.
    void UseLanguage(const LanguageResources* language);

    const DialogTable Dialogs;      // in the module's own language
    const std::u16string Name;      // its file's, without extension
    CWinApp* App = nullptr;         // the module's application object, which enters itself
    std::u16string CurrentAppName;  // the title of message boxes

  private:
    const StringTable Resources;
    const LanguageResources* Language = nullptr;
    std::unique_ptr<TranslatedDialogs> Translated;
};

// The module whose context was entered last on this thread; null outside any.
ModuleState* GetCurrentModule();

// Selects a module's context for as long as it lives and then gives the caller's back, on every way out.
class AFX_MAINTAIN_STATE2 {
  public:
    explicit AFX_MAINTAIN_STATE2(ModuleState& module);
    AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
    AFX_MAINTAIN_STATE2& operator=(const AFX_MAINTAIN_STATE2&) = delete;
    ~AFX_MAINTAIN_STATE2();

  private:
    ModuleState*& Current;  // of this thread: to look for it twice costs every line of a run
    ModuleState* const Previous;
};
