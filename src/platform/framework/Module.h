// What exists once per loaded module: its string resources, its application object, and the context that says
// whose resources count at this moment.
#pragma once

#include <cstddef>
#include <string>

class CWinApp;

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
    explicit ModuleState(StringTable resources, DialogTable dialogs = {})
        : Resources(resources), Dialogs(dialogs) {}

    // A string of the module; empty for a number that doesn't exist.
    std::u16string LoadString(unsigned id) const;

    StringTable Resources;
    DialogTable Dialogs;
    CWinApp* App = nullptr;         // the module's application object, which enters itself
    std::u16string CurrentAppName;  // the title of message boxes
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
    ModuleState* const Previous;
};
