// The application object of a module: its names and its access to the user's profile.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/framework/Module.h"
#include "platform/framework/ProfileStore.h"

class CObject {
  public:
    virtual ~CObject() = default;
};

class CCmdTarget : public CObject {};

class CWinThread : public CCmdTarget {
  public:
    // Called once, after the module is loaded. False means that the module can't be used.
    virtual bool InitInstance() { return true; }
};

class CWinApp : public CWinThread {
  public:
    // Enters the object in its module, which must outlive it.
    explicit CWinApp(ModuleState& module, const char16_t* appName = nullptr);
    ~CWinApp() override;

    // The company under which the profile lies.
    void SetRegistryKey(const char16_t* company);

    // Reads a value of the profile; `fallback` if it is absent or of another kind.
    std::int32_t GetProfileInt(const char16_t* section, const char16_t* entry, std::int32_t fallback);
    std::u16string GetProfileString(const char16_t* section, const char16_t* entry,
                                    const std::u16string& fallback);

    // Hands over a block; false, with `block` empty, if it is absent or of another kind.
    bool GetProfileBinary(const char16_t* section, const char16_t* entry, ProfileBlock& block);

    // All values of the profile as they are now.
    std::shared_ptr<ProfileValues> GetProfileNow();

    // Writes a value of the profile; false if the store refuses.
    bool WriteProfileInt(const char16_t* section, const char16_t* entry, std::int32_t value);
    bool WriteProfileString(const char16_t* section, const char16_t* entry, const std::u16string& value);
    bool WriteProfileBinary(const char16_t* section, const char16_t* entry, const ProfileBlock& block);

    // What is written between these two is stored in one step, as ProfileStore says.
    void BeginProfileWrites();
    bool EndProfileWrites();

    std::u16string ProfileName;  // names the store, shared with the host
    std::u16string AppName;

  private:
    // The store in force: the process's, or else the user's own under company and profile name.
    std::shared_ptr<ProfileStore> Profile() const;

    ModuleState& Module;
    std::u16string Company;
    std::shared_ptr<ProfileStore> Written;  // from BeginProfileWrites on
    int WriteDepth = 0;
};
